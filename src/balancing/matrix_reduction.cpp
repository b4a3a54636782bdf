#include "balancing/matrix_reduction.h"

#include "base/fatal_fault.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace stoikal {
namespace {

/// What an elimination leaves of a zero stays below this.
constexpr double kTolerance = 1e-8;

/// The first row behind `row`, down to `lastRow`, whose cell in that column is
/// not exactly 0; -1 when there is none.
int FirstUsableRow(const BalanceMatrix& matrix, int row, int lastRow, int column)
{
    for (int k = row + 1; k <= lastRow; ++k) {
        if (matrix.At(k, column) != 0)
            return k;
    }
    return -1;
}

void CheckFinite(double cell)
{
    if (!std::isfinite(cell))
        throw FatalFault(QStringLiteral("un nombre dépasse la capacité permise pendant l'équilibrage."));
}

void DivideRow(BalanceMatrix& matrix, int row, int lastColumn, double divisor)
{
    for (int j = 0; j <= lastColumn; ++j) {
        matrix.At(row, j) /= divisor;
        CheckFinite(matrix.At(row, j));
    }
}

void SubtractRow(BalanceMatrix& matrix, int pivotRow, int row, int lastColumn)
{
    const double factor = -matrix.At(row, pivotRow);
    for (int j = 0; j <= lastColumn; ++j) {
        double& cell = matrix.At(row, j);
        cell = matrix.At(pivotRow, j) * factor + cell;
        CheckFinite(cell);
        if (std::fabs(cell) <= kTolerance)
            cell = 0;
    }
}

} // namespace

bool PreparePivots(BalanceMatrix& matrix, int lastRow, int lastColumn)
{
    const int n = std::min(lastRow, lastColumn);
    if (n < 0)
        return false;
    for (int i = 0; i <= n; ++i) {
        if (matrix.At(i, i) != 0)
            continue;
        if (const int k = FirstUsableRow(matrix, i, lastRow, i); k >= 0)
            SwapRows(matrix, i, k);
    }
    if (matrix.At(n, n) == 0) {
        for (int j = n - 1; j >= 0; --j) {
            if (matrix.At(j, n) != 0 && matrix.At(n, j) != 0) {
                SwapRows(matrix, n, j);
                break;
            }
        }
    }
    return matrix.At(n, n) == 0;
}

void ReduceMatrix(BalanceMatrix& matrix, int lastRow, int lastColumn)
{
    const int n = std::min(lastRow, lastColumn);
    for (int i = 0; i <= n; ++i) {
        while (std::fabs(matrix.At(i, i)) <= kTolerance) {
            const int k = FirstUsableRow(matrix, i, lastRow, i);
            if (k < 0)
                return;
            SwapRows(matrix, i, k);
            // Two rows with tiny cells would be exchanged for ever: the cell that
            // went down is not to come up again.
            if (std::fabs(matrix.At(i, i)) <= kTolerance)
                matrix.At(k, i) = 0;
        }
        DivideRow(matrix, i, lastColumn, matrix.At(i, i));
        for (int k = 0; k <= lastRow; ++k) {
            if (k != i)
                SubtractRow(matrix, i, k, lastColumn);
        }
    }
}

void SwapRows(BalanceMatrix& matrix, int rowA, int rowB)
{
    if (rowA < 0 || rowB < 0 || rowA >= BalanceMatrix::kRows || rowB >= BalanceMatrix::kRows)
        throw FatalFault(QStringLiteral("MATH : MANIPULATION LIGNE : MATRICE PAS ASSEZ GRANDE (514)"));
    std::swap(matrix.cells.at(static_cast<size_t>(rowA)), matrix.cells.at(static_cast<size_t>(rowB)));
}

void SwapColumns(BalanceMatrix& matrix, int columnA, int columnB)
{
    if (columnA < 0 || columnB < 0 || columnA >= BalanceMatrix::kColumns
        || columnB >= BalanceMatrix::kColumns)
        throw FatalFault(QStringLiteral("MATH : MANIPULATION COLONNE : MATRICE PAS ASSEZ GRANDE (514)"));
    for (auto& row : matrix.cells)
        std::swap(row.at(static_cast<size_t>(columnA)), row.at(static_cast<size_t>(columnB)));
}

} // namespace stoikal
