#include "exercise/mark.h"

#include "base/number_text.h"

#include <cmath>

namespace stoikal {

using namespace Qt::StringLiterals;

double Mark(std::int64_t score, std::int64_t maxScore)
{
    if (maxScore == 0)
        return 0;
    return static_cast<double>(score) * 20.0 / static_cast<double>(maxScore);
}

QString MarkText(double mark, QChar separator)
{
    const bool isWhole = mark == std::trunc(mark);
    return u"Votre note est de : "_s + FormatMask(mark, isWhole ? u"#0" : u"#0.#", separator) + u"/20"_s;
}

QString TimeText(double seconds, QChar separator)
{
    return u"Temps mis : "_s + FormatMask(seconds, u"#0.0", separator) + u" s"_s;
}

} // namespace stoikal
