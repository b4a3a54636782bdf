#pragma once

#include <array>
#include <cstddef>

namespace stoikal {

/// A dense matrix of 64-bit floats, first index the row. The right-hand side of
/// a system is the last column in use. The size is fixed: nothing allocates.
struct BalanceMatrix {
    static constexpr int kRows = 10;
    static constexpr int kColumns = 6;

    std::array<std::array<double, kColumns>, kRows> cells{};

    double& At(int row, int column)
    {
        return cells.at(static_cast<size_t>(row)).at(static_cast<size_t>(column));
    }
    double At(int row, int column) const
    {
        return cells.at(static_cast<size_t>(row)).at(static_cast<size_t>(column));
    }
};

/// Exchanges rows so that the diagonal, as far as the smaller of both last
/// indices, holds no zero that a row below could fill. No arithmetic.
/// \returns whether the last corner of the diagonal is still exactly 0 (the
/// matrix is then singular; a zero higher up does not count).
bool PreparePivots(BalanceMatrix& matrix, int lastRow, int lastColumn);

/// Gauss-Jordan elimination to the identity on the left; to be called behind
/// `PreparePivots`. The value of the unknown of column k then stands in row k of
/// the last column. A cell of at most 1e-8 counts as zero; where no pivot is
/// left the reduction stops in silence, half done. A number that overflows is a
/// FatalFault.
void ReduceMatrix(BalanceMatrix& matrix, int lastRow, int lastColumn);

/// Exchanges two rows over all columns. A row outside is a FatalFault.
void SwapRows(BalanceMatrix& matrix, int rowA, int rowB);

/// Exchanges two columns over all rows. A column outside is a FatalFault.
void SwapColumns(BalanceMatrix& matrix, int columnA, int columnB);

} // namespace stoikal
