#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace stoikal {

/// The discs of a box that stand already, by place, so that the neighbours of a
/// point are found without a look at all. It decides nothing: it gives exactly the
/// disc that a loop over all indices in rising order would find first.
class NeighbourGrid
{
public:
    /// For at most `count` discs in a box of this size, of which those nearer than
    /// `reach` are asked for. Forgets all discs. The only call that allocates.
    void Prepare(double width, double height, double reach, std::size_t count);

    /// Forgets all discs.
    void Clear();

    /// Adds a disc. The indices run from 1 to `count` and rise from call to call.
    void Add(std::size_t index, double x, double y);

    /// The lowest index above `after` of a disc nearer to the point than `reach`:
    /// its squared distance, as the machine computes it, is below `limit`, which
    /// is the squared reach or a little less. 0 when there is none.
    std::size_t FirstNear(std::size_t after, double x, double y, double limit) const;

private:
    /// A disc, and the one added to its cell before it (0: none).
    struct Disc {
        double x;
        double y;
        std::uint32_t next;
    };

    std::size_t CellOf(double x, double y) const;

    std::vector<Disc> m_discs; ///< by index
    /// The last disc added to each cell, 0 for none; row by row, with a border of
    /// empty cells all around.
    std::vector<std::uint32_t> m_heads;
    std::size_t m_columns = 1; ///< without the border
    std::size_t m_rows = 1;
    double m_cellsPerX = 1.0;
    double m_cellsPerY = 1.0;
};

} // namespace stoikal
