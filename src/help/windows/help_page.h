#pragma once

#include "help/page_address.h"

#include <QTextBrowser>
#include <memory>

namespace stoikal {

class HelpFile;

/// Shows one page of a help file. All it loads comes from that file: it reaches
/// neither the network nor the disk, and nothing on a page runs.
class HelpPage final : public QTextBrowser
{
    Q_OBJECT

public:
    static constexpr int kSmallestZoom = 60; ///< percent
    static constexpr int kLargestZoom = 240;

    explicit HelpPage(QWidget* parent);

    /// The file of the pages to come; may be null.
    void SetFile(std::shared_ptr<const HelpFile> file);
    /// Shows a page at a position. One that cannot be read is replaced by a page
    /// that says why.
    void ShowPage(const PageAddress& address);
    /// The title of the page shown.
    QString Title() const;

    int Zoom() const { return m_zoom; }
    /// Shows the text larger or smaller, in percent, held within the bounds.
    void SetZoom(int percent);

    /// Marks every occurrence of the text, whatever its case and accents, and goes to
    /// the one after the current position, or before it; both wrap around.
    /// Gives how many there are; none for an empty text.
    int FindText(const QString& text, bool isBackward, bool isFromStart);
    /// Marks every occurrence of every word and goes to the first one.
    void MarkWords(const QStringList& words);

Q_SIGNALS:
    /// A link inside the help files was chosen.
    void PageRequested(const PageAddress& address);
    /// A link that leads out of the help files was chosen; it is not followed.
    void LinkRefused(const QString& link);
    /// Ctrl and the wheel: another size of the text, in percent.
    void ZoomRequested(int percent);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void FollowLink(const QUrl& url);
    bool IsOwn(const QUrl& url) const;
    QUrl UrlOf(const PageAddress& address) const;
    QString Zoomed(const QString& text) const;
    QList<int> PositionsOf(const QString& text) const;
    QList<int> PositionsOfWord(const QString& word) const;
    QTextCursor Selected(int position, qsizetype length) const;
    void Mark(const QList<int>& positions, qsizetype length);
    void GoTo(int position, qsizetype length);

    std::shared_ptr<const HelpFile> m_file;
    int m_fileNumber = 0; ///< distinguishes pages of one name in two files
    int m_zoom = 100;
    double m_pointSize;
    PageAddress m_address;
    bool m_isLoading = false;
};

} // namespace stoikal
