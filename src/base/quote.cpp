#include "base/quote.h"

namespace stoikal {

QString Quoted(QStringView text)
{
    constexpr qsizetype kLongestQuote = 200;
    if (text.size() <= kLongestQuote)
        return text.toString();
    qsizetype end = kLongestQuote - 1;
    // A pair of surrogates is one character.
    if (text.at(end - 1).isHighSurrogate())
        --end;
    return text.first(end).toString() + QChar(u'…');
}

} // namespace stoikal
