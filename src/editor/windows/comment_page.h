#pragma once

#include <QWidget>
#include <array>

class QCheckBox;
class QLineEdit;
class QPlainTextEdit;

namespace stoikal {

/// The tab of comments: the one at the head of the file, of many lines, and the
/// line in front of this equation. A box is open while its mark is set.
class CommentPage final : public QWidget
{
    Q_OBJECT

public:
    explicit CommentPage(QWidget* parent);

    /// The head, its lines parted by "\n".
    QString Head() const;
    void ShowHead(const QString& head);
    /// Whether comments in front of equations are entered and shown.
    bool TakesComments() const;
    void TakeComments(bool taken);
    QString Comment() const;
    void ShowComment(const QString& comment);

Q_SIGNALS:
    void Edited();

private:
    std::array<QCheckBox*, 2> chkComment{};
    QPlainTextEdit* m_head; ///< txtComment(0)
    QLineEdit* m_comment; ///< txtComment(1)
};

} // namespace stoikal
