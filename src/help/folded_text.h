#pragma once

#include <QString>

namespace stoikal {

/// A text as a search compares it: small letters without accents, every kind of
/// blank as a blank, the typographic apostrophe and the minus sign as those that
/// a keyboard has. It has as many characters as the text, each at its
/// own position.
inline QString Folded(const QString& text)
{
    QString folded = text;
    for (QChar& c : folded) {
        if (c.unicode() < 128) {
            c = c.toLower();
        } else if (c.isSpace()) {
            c = QLatin1Char(' ');
        } else if (c == QChar(0x2019)) {
            c = QLatin1Char('\'');
        } else if (c == QChar(0x2212)) {
            c = QLatin1Char('-');
        } else {
            if (c.decompositionTag() == QChar::Canonical)
                c = c.decomposition().at(0);
            c = c.toLower();
        }
    }
    return folded;
}

} // namespace stoikal
