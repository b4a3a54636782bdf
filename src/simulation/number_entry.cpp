#include "simulation/number_entry.h"

#include "base/number_text.h"

#include <algorithm>
#include <cmath>

namespace stoikal {

CountKey JudgeCountKey(QChar key, qsizetype lengthBefore)
{
    if (lengthBefore >= kMostCharacters)
        return CountKey::NotJudged;
    if (key >= u'0' && key <= u'9')
        return CountKey::Accepted;
    return key == u',' || key == u'.' ? CountKey::DecimalSign : CountKey::NoDigit;
}

QString WithoutKey(const QString& text, QChar key)
{
    QString mended = text;
    const qsizetype place = mended.indexOf(key);
    if (place >= 0)
        mended.remove(place, 1);
    return mended.isEmpty() ? QStringLiteral("0") : mended;
}

std::int32_t TypedCount(QStringView text)
{
    // A sign can only come into a full box, where keys are not judged; there is
    // no negative number of particles.
    constexpr double kMost = 1e6;
    return static_cast<std::int32_t>(std::nearbyint(std::clamp(ReadNumber(text), 0.0, kMost)));
}

} // namespace stoikal
