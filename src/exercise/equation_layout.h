#pragma once

#include "base/twips.h"

#include <array>

namespace stoikal {

constexpr Twips kBalancingHeight = 2025;
constexpr Twips kProgressHeight = 6630;
constexpr Twips kValidateTop = 840; ///< the button that validates an equation
constexpr Twips kTableButtonsTop = 5580; ///< the buttons below the table of progress
constexpr Twips kBandMargin = 100;
constexpr Twips kProgressBandLeft
    = 1560; ///< where a progress file's first species begins, right of the table's titles
constexpr Twips kSpeciesGap = 20; ///< between a coefficient's box and its species

/// What the placing of an equation's boxes starts from, in twips.
struct EquationWidths {
    std::array<bool, 6> present{}; ///< the slot holds a species; slots 0 and 3 always count
    std::array<Twips, 6> species{};
    Twips coefficient = 0;
    Twips plus = 0;
    Twips arrow = 0;
    Twips scoreRow = 0; ///< what the row of the score and the button needs at least
    Twips titles = 0; ///< what the titles of a table's rows need at the left; a progress file only
    Twips column = 0; ///< what a table's column needs under its species; a progress file only
    bool isProgressFile = false;
};

/// Where the boxes of an equation stand, in twips from the window's left edge.
/// The band is filled from left to right: each species starts where the one
/// before it ends.
struct EquationLayout {
    std::array<Twips, 6> coefficientLeft{};
    std::array<Twips, 6> speciesLeft{};
    std::array<Twips, 6> columnWidth{}; ///< from the coefficient's left edge
    std::array<bool, 6> shown{};
    std::array<Twips, 4> plusLeft{};
    std::array<bool, 4> plusShown{};
    Twips arrowLeft = 0;
    Twips bandEnd = 0; ///< where the last species ends
    Twips width = 0;
    Twips height = 0;
};

EquationLayout LayoutEquation(const EquationWidths& widths);

/// The width of a species' box for a text of a given width in pixels: 1.4 times it.
Twips SpeciesWidth(double textPixels);

} // namespace stoikal
