#pragma once

#include "exercise/equation_layout.h"

#include <array>

class QColor;
class QFrame;
class QLabel;
class QWidget;

namespace stoikal {

class FilterEdit;
class ReactionArrow;
class SpeciesLabel;

/// The controls that show an equation as one band: coefficients, species, the
/// signs between them. They belong to the window that they were made in.
struct BandControls {
    std::array<FilterEdit*, 6> txtCoef{};
    std::array<SpeciesLabel*, 6> rtbCorp{};
    std::array<QFrame*, 4> picPlus{};
    std::array<QLabel*, 4> lblPlus{};
    ReactionArrow* imgFleche = nullptr;
};

/// Makes the controls of the band in a window, named and not yet placed.
BandControls MakeBand(QWidget& window);

/// The layout with the width of each species, "+", arrow and coefficient as the
/// fonts are, which are added to `widths`. If the band would be wider than the
/// screen, given in twips, the species stand closer, and if that does not do, all
/// is set in smaller type, down to half the usual.
EquationLayout FitBand(const BandControls& band, EquationWidths& widths, Twips available);

/// Puts the controls where the layout says and hides those of empty slots; top
/// and height in pixels.
void PlaceBand(const BandControls& band, const EquationLayout& layout, const EquationWidths& widths, int top,
               int height);

/// The band's ground, the window's too.
void PaintBand(const BandControls& band, QWidget& window, const QColor& colour);

} // namespace stoikal
