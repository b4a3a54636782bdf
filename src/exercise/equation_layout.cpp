#include "exercise/equation_layout.h"

#include <algorithm>
#include <cmath>

namespace stoikal {
namespace {

/// Which "+" stands in front of a slot: none before the first of a side.
constexpr std::array<int, 6> kPlusBefore{-1, 0, 1, -1, 2, 3};

constexpr Twips kBandLeft = 100;

} // namespace

Twips SpeciesWidth(double textPixels)
{
    return static_cast<Twips>(std::lround(1.4 * textPixels * kTwipsPerPixel));
}

EquationLayout LayoutEquation(const EquationWidths& widths)
{
    EquationLayout layout;
    Twips x = widths.isProgressFile ? std::max(kProgressBandLeft, widths.titles) : kBandLeft;
    const Twips leastColumn = widths.isProgressFile ? widths.column : 0;
    for (size_t slot = 0; slot < 6; ++slot) {
        if (slot == 3) {
            layout.arrowLeft = x;
            x += widths.arrow;
        }
        const bool shown = slot == 0 || slot == 3 || widths.present.at(slot);
        layout.shown.at(slot) = shown;
        const int plus = kPlusBefore.at(slot);
        if (plus >= 0) {
            layout.plusShown.at(static_cast<size_t>(plus)) = shown;
            layout.plusLeft.at(static_cast<size_t>(plus)) = x;
            x += shown ? widths.plus : 0;
        }
        layout.coefficientLeft.at(slot) = x;
        layout.speciesLeft.at(slot) = x + widths.coefficient + kSpeciesGap;
        layout.columnWidth.at(slot) = std::max(leastColumn,
                                               layout.speciesLeft.at(slot) + widths.species.at(slot)
                                                   - layout.coefficientLeft.at(slot));
        if (shown)
            x = layout.coefficientLeft.at(slot) + layout.columnWidth.at(slot);
    }
    layout.bandEnd = x;
    // A very short equation still leaves room for the score beside the button.
    layout.width = std::max(x + kBandMargin, widths.scoreRow);
    layout.height = widths.isProgressFile ? kProgressHeight : kBalancingHeight;
    return layout;
}

} // namespace stoikal
