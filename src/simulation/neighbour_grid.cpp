#include "simulation/neighbour_grid.h"

#include <algorithm>
#include <array>
#include <limits>

namespace stoikal {
namespace {

/// A very narrow box has larger cells, not more of them.
constexpr double kMostCells = 1024.0;

/// A little above 1, so that whatever rounding does to the places, what counts as
/// nearer than the reach lies in the point's own cell or in one of the eight
/// around it.
constexpr double kReachesPerCell = 1.000001;

std::size_t CellsAlong(double length, double reach)
{
    return static_cast<std::size_t>(std::clamp(length / (kReachesPerCell * reach), 1.0, kMostCells));
}

/// The cell along one side, from 1: 0 is the border. It never falls while the place
/// rises. Places outside the box, and what is no number, count to the cells at its
/// edge.
std::size_t CellAlong(double place, double cellsPerUnit, std::size_t cells)
{
    // A number that is none comes out of the first comparison as 0.
    const double cell = std::min(std::max(0.0, place * cellsPerUnit), static_cast<double>(cells - 1));
    return static_cast<std::size_t>(static_cast<std::int32_t>(cell)) + 1;
}

} // namespace

void NeighbourGrid::Prepare(double width, double height, double reach, std::size_t count)
{
    m_columns = CellsAlong(width, reach);
    m_rows = CellsAlong(height, reach);
    m_cellsPerX = static_cast<double>(m_columns) / width;
    m_cellsPerY = static_cast<double>(m_rows) / height;
    m_discs.assign(count + 1, {});
    m_heads.assign((m_columns + 2) * (m_rows + 2), 0);
}

void NeighbourGrid::Clear()
{
    std::fill(m_heads.begin(), m_heads.end(), 0U);
}

std::size_t NeighbourGrid::CellOf(double x, double y) const
{
    return CellAlong(y, m_cellsPerY, m_rows) * (m_columns + 2) + CellAlong(x, m_cellsPerX, m_columns);
}

void NeighbourGrid::Add(std::size_t index, double x, double y)
{
    std::uint32_t& head = m_heads[CellOf(x, y)];
    m_discs[index] = {x, y, head};
    head = static_cast<std::uint32_t>(index);
}

std::size_t NeighbourGrid::FirstNear(std::size_t after, double x, double y, double limit) const
{
    const std::size_t middle = CellOf(x, y);
    const std::size_t rowLength = m_columns + 2;
    const auto low = static_cast<std::uint32_t>(after);
    // Most of the nine cells are empty, in no order that a processor could foresee:
    // those with a disc to test are picked out without a branch.
    std::array<std::uint32_t, 9> heads{};
    std::size_t count = 0;
    for (const std::size_t row : {middle - rowLength, middle, middle + rowLength}) {
        for (const std::size_t cell : {row - 1, row, row + 1}) {
            const std::uint32_t head = m_heads[cell];
            heads[count] = head;
            count += static_cast<std::size_t>(head > low);
        }
    }
    constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();
    std::uint32_t first = none;
    for (std::size_t i = 0; i < count; ++i) {
        // The indices of a cell fall from link to link.
        for (std::uint32_t index = heads[i]; index > low; index = m_discs[index].next) {
            const double acrossX = m_discs[index].x - x;
            const double acrossY = m_discs[index].y - y;
            const bool isNear = acrossX * acrossX + acrossY * acrossY < limit;
            first = std::min(first, isNear ? index : none);
        }
    }
    return first == none ? 0 : first;
}

} // namespace stoikal
