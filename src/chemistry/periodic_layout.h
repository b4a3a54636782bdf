#pragma once

#include "chemistry/element_table.h"

#include <QString>
#include <array>

namespace stoikal {

/// What the text colour of an element's cell tells.
enum class ElementState { Solid, Liquid, Gas, Synthetic, NotYetSynthesised };

/// What the ground of an element's cell tells.
enum class ElementFamily { NonMetal, Metal, SemiConductor };

/// The state of an element at 30 °C, or that it is obtained by synthesis.
ElementState StateOf(int index);
ElementFamily FamilyOf(int index);

/// Sizes in twips from which the grid is laid out.
struct GridInput {
    float innerWidth = 0; ///< of the window
    float headHeight = 0; ///< of the column heads
    /// The tallest grid that leaves room for the legend; 0 for no such limit.
    float heightLimit = 0;
};

/// Where the cells of the periodic table stand, in twips from the corner of the
/// frame that holds them; 32-bit numbers, rounded where they are used. Eighteen columns from the frame's
/// width; the two rows of lanthanides and actinides stand a tenth of a cell below the grid.
struct GridLayout {
    float side = 0; ///< of a cell
    float top = 0; ///< of the first row
    float frameWidth = 0;
    float frameHeight = 0;
    std::array<float, kElementCount> left{};
    std::array<float, kElementCount> cellTop{};
};

GridLayout LayOutGrid(const GridInput& input);

/// The cell that an arrow key leads to: the nearest one in that direction,
/// first in the same row or column; the cell itself when there is none.
/// `dx` and `dy` are -1, 0 or 1, one of them 0.
int NeighbourOf(const GridLayout& layout, int index, int dx, int dy);

} // namespace stoikal
