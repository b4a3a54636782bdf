#include "exercise/charge_place.h"

#include "base/number_text.h"

#include <algorithm>

namespace stoikal {

QPoint ChargePlace(const ChargePlaceInput& input)
{
    const Twips aboveExercise = std::max(0, (input.exercise.top() - input.window.height()) / 2 + 400);

    Twips left = (input.usableWidth - input.window.width()) / 2;
    if (!input.leftSetting.isEmpty())
        left = static_cast<Twips>(std::clamp(ReadNumber(input.leftSetting), -1e6, 1e6));
    left = std::min(left, input.usableWidth - input.window.width());
    left = std::max(left, 0);

    Twips top = static_cast<Twips>(std::clamp(ReadNumber(input.topSetting), -1e6, 1e6));
    if (top <= 0)
        top = aboveExercise;
    top = std::min(top, input.usableHeight + 700 - input.window.height());

    if (QRect(QPoint(left, top), input.window).intersects(input.exercise))
        top = aboveExercise;
    return {left, top};
}

} // namespace stoikal
