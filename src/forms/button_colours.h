#pragma once

#include <QColor>
#include <QHash>
#include <QObject>

class QAbstractButton;

namespace stoikal {

/// Gives buttons a caption in a chosen colour. It keeps a table of the buttons
/// served; the style draws them, by their palette.
class ButtonColours final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Sets or changes the colour of a button's caption. False, and nothing done,
    /// for a button without a parent window.
    bool SetButtonForeColor(QAbstractButton* button, const QColor& colour);

    /// Gives the button its own colour back and forgets it; nothing happens for
    /// one that is not served.
    void RemoveButtonForeColor(QAbstractButton* button);

    /// The colour of a served button; invalid for any other.
    QColor ColourOf(const QAbstractButton* button) const;
    qsizetype ServedCount() const { return m_served.size(); }

private:
    struct Served {
        QColor colour;
        QColor own; ///< what the caption had before
    };
    QHash<const QObject*, Served> m_served;
};

} // namespace stoikal
