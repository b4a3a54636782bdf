#include "chemistry/periodic_layout.h"

#include <algorithm>
#include <cmath>

namespace stoikal {
namespace {

constexpr std::array kLiquids{30, 34, 54, 79, 86};
constexpr std::array kGases{0, 1, 6, 7, 8, 9, 16, 17, 35, 53, 85};
constexpr std::array kNonMetals{0, 1, 5, 6, 7, 8, 9, 14, 15, 16, 17, 33, 34, 35, 52, 53, 84, 85};
constexpr std::array kSemiConductors{4, 13, 31, 32, 50, 51};

template <typename Row>
bool Holds(const Row& row, int index)
{
    return std::find(row.begin(), row.end(), index) != row.end();
}

constexpr float kLeft = 240;
constexpr float kFrameMargins = 360;
constexpr float kBelowHeads = 45;
constexpr float kBelowGrid = 200;
constexpr float kLanthanides = 7.1F; ///< in cells below the first row
constexpr float kActinides = 8.1F;

} // namespace

ElementState StateOf(int index)
{
    if (Holds(kLiquids, index))
        return ElementState::Liquid;
    if (Holds(kGases, index))
        return ElementState::Gas;
    const bool isSynthetic = index == 42 || index == 60 || index >= 92;
    return isSynthetic ? ElementState::Synthetic : ElementState::Solid;
}

ElementFamily FamilyOf(int index)
{
    if (Holds(kNonMetals, index))
        return ElementFamily::NonMetal;
    return Holds(kSemiConductors, index) ? ElementFamily::SemiConductor : ElementFamily::Metal;
}

GridLayout LayOutGrid(const GridInput& input)
{
    GridLayout layout;
    const float w = [&] {
        const float byWidth = (input.innerWidth - kFrameMargins - kFrameMargins) / 18;
        if (input.heightLimit <= 0)
            return byWidth;
        return std::min(byWidth,
                        (input.heightLimit - input.headHeight - kBelowHeads - kBelowGrid) / (kActinides + 1));
    }();
    layout.side = w;
    layout.top = input.headHeight + kBelowHeads;
    layout.frameWidth = 18 * w + kFrameMargins;
    float left = kLeft;
    float top = layout.top;
    for (int i = 0; i < kElementCount; ++i) {
        switch (i) {
        case 0:
            break;
        case 1:
            left += w + 16 * w;
            break;
        case 2:
        case 10:
        case 18:
        case 36:
        case 54:
        case 86:
            top += w;
            left = kLeft;
            break;
        case 4:
        case 12:
            left += w + 10 * w;
            break;
        case 57:
            left = 2 * w + kLeft;
            top = layout.top + kLanthanides * w;
            break;
        case 71:
            left = 3 * w + kLeft;
            top = layout.top + 5 * w;
            break;
        case 89:
            left = 2 * w + kLeft;
            top = layout.top + kActinides * w;
            break;
        case 103:
            left = 3 * w + kLeft;
            top = layout.top + 6 * w;
            break;
        default:
            left += w;
            break;
        }
        layout.left.at(static_cast<size_t>(i)) = left;
        layout.cellTop.at(static_cast<size_t>(i)) = top;
    }
    layout.frameHeight = layout.top + (kActinides + 1) * w + kBelowGrid;
    return layout;
}

int NeighbourOf(const GridLayout& layout, int index, int dx, int dy)
{
    const auto at = static_cast<size_t>(index);
    int best = index;
    double bestDistance = HUGE_VAL;
    for (int i = 0; i < kElementCount; ++i) {
        const auto place = static_cast<size_t>(i);
        const double right = layout.left.at(place) - layout.left.at(at);
        const double down = layout.cellTop.at(place) - layout.cellTop.at(at);
        const double along = dx != 0 ? right * dx : down * dy;
        const double across = std::fabs(dx != 0 ? down : right);
        if (along < layout.side / 2)
            continue;
        // To leave the row or column is far: only where nothing else lies ahead.
        const double distance = along + 100 * across;
        if (distance < bestDistance) {
            bestDistance = distance;
            best = i;
        }
    }
    return best;
}

} // namespace stoikal
