#include "balancing/matrix_reduction.h"

#include "base/fatal_fault.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>

using namespace Qt::StringLiterals;

namespace stoikal {
namespace {

using Rows = std::initializer_list<std::initializer_list<double>>;

/// These cells at the top left, zeros elsewhere.
BalanceMatrix Matrix(Rows rows)
{
    BalanceMatrix matrix;
    int row = 0;
    for (const auto& cells : rows) {
        int column = 0;
        for (const double cell : cells)
            matrix.At(row, column++) = cell;
        ++row;
    }
    return matrix;
}

/// Every cell different: 10 x row + column + 1.
BalanceMatrix Numbered()
{
    BalanceMatrix matrix;
    for (int row = 0; row < BalanceMatrix::kRows; ++row) {
        for (int column = 0; column < BalanceMatrix::kColumns; ++column)
            matrix.At(row, column) = 10 * row + column + 1;
    }
    return matrix;
}

void ExpectCells(const BalanceMatrix& matrix, Rows rows)
{
    EXPECT_EQ(matrix.cells, Matrix(rows).cells) << testing::PrintToString(matrix.cells);
}

QString CauseOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const FatalFault& fault) {
        return fault.Cause();
    }
    return u"no fault"_s;
}

} // namespace

TEST(BalanceMatrix, HasTenRowsOfSixColumnsOfZeros)
{
    const BalanceMatrix matrix;
    EXPECT_EQ(matrix.cells.size(), 10U);
    EXPECT_EQ(matrix.cells[0].size(), 6U);
    ExpectCells(matrix, {});
}

TEST(PreparePivots, LeavesAFullDiagonalAlone)
{
    BalanceMatrix matrix = Matrix({{2, 1, 5}, {4, 3, 6}});
    EXPECT_FALSE(PreparePivots(matrix, 1, 2));
    ExpectCells(matrix, {{2, 1, 5}, {4, 3, 6}});
}

TEST(PreparePivots, ExchangesRowsWithoutArithmetic)
{
    BalanceMatrix matrix = Matrix({{0, 3, 7}, {2, 5, 8}});
    EXPECT_FALSE(PreparePivots(matrix, 1, 2));
    ExpectCells(matrix, {{2, 5, 8}, {0, 3, 7}});
}

TEST(PreparePivots, TakesTheFirstRowBelowThatIsNotZero)
{
    BalanceMatrix matrix = Matrix({{0, 1, 1, 9}, {0, 2, 1, 8}, {5, 3, 1, 7}, {6, 4, 1, 6}});
    EXPECT_FALSE(PreparePivots(matrix, 3, 3));
    ExpectCells(matrix, {{5, 3, 1, 7}, {0, 2, 1, 8}, {0, 1, 1, 9}, {6, 4, 1, 6}});
}

TEST(PreparePivots, CountsATinyCellAsFilled)
{
    BalanceMatrix matrix = Matrix({{1e-300, 1}, {4, 1}});
    EXPECT_FALSE(PreparePivots(matrix, 1, 1));
    ExpectCells(matrix, {{1e-300, 1}, {4, 1}});
}

TEST(PreparePivots, LooksNoFurtherThanTheLastRowInUse)
{
    BalanceMatrix matrix = Matrix({{0, 1, 3}, {0, 2, 4}, {7, 7, 7}});
    EXPECT_FALSE(PreparePivots(matrix, 1, 2));
    ExpectCells(matrix, {{0, 1, 3}, {0, 2, 4}, {7, 7, 7}});
}

TEST(PreparePivots, NeverTakesARowFromAbove)
{
    // Column 1 is 0 in rows 1 and 2; the corner is filled, so row 0 stays.
    BalanceMatrix matrix = Matrix({{1, 5, 0, 1}, {1, 0, 1, 1}, {1, 0, 2, 1}});
    EXPECT_FALSE(PreparePivots(matrix, 2, 3));
    ExpectCells(matrix, {{1, 5, 0, 1}, {1, 0, 1, 1}, {1, 0, 2, 1}});
}

TEST(PreparePivots, FillsTheCornerFromTheNearestRowAboveThatTakesItsPlace)
{
    // Rows 1 and 0 could both give column 2 and take the last row's cell: row 1 is nearer.
    BalanceMatrix matrix = Matrix({{1, 1, 4, 7}, {1, 1, 5, 8}, {1, 1, 0, 9}});
    EXPECT_FALSE(PreparePivots(matrix, 2, 3));
    ExpectCells(matrix, {{1, 1, 4, 7}, {1, 1, 0, 9}, {1, 1, 5, 8}});
}

TEST(PreparePivots, FillsTheCornerOnlyByARowWhoseOwnPlaceIsFilledInReturn)
{
    // Row 1 has column 2, but the last row is 0 in column 1; row 0 serves.
    BalanceMatrix matrix = Matrix({{1, 1, 4, 7}, {1, 1, 5, 8}, {1, 0, 0, 9}});
    EXPECT_FALSE(PreparePivots(matrix, 2, 3));
    ExpectCells(matrix, {{1, 0, 0, 9}, {1, 1, 5, 8}, {1, 1, 4, 7}});
}

TEST(PreparePivots, IsSingularByTheCornerAlone)
{
    // A zero higher up does not count.
    BalanceMatrix zeroHigherUp = Matrix({{0, 3, 1}, {0, 5, 1}});
    EXPECT_FALSE(PreparePivots(zeroHigherUp, 1, 2));
    // Two equal rows do not count either.
    BalanceMatrix equalRows = Matrix({{1, 2, 1}, {1, 2, 1}});
    EXPECT_FALSE(PreparePivots(equalRows, 1, 2));
    BalanceMatrix zeroCorner = Matrix({{1, 2, 1}, {0, 0, 1}});
    EXPECT_TRUE(PreparePivots(zeroCorner, 1, 2));
    BalanceMatrix tinyCorner = Matrix({{1, 2, 1}, {0, 1e-300, 1}});
    EXPECT_FALSE(PreparePivots(tinyCorner, 1, 2));
}

TEST(PreparePivots, CallsARegularMatrixSingularWhenNoSingleExchangeFillsTheCorner)
{
    // The determinant is 1 (1 x 0 - 0 + 1 x (1 x 1 - 1 x 0)), yet row 1 has no
    // column 2, and the last row no column 0 to give for row 0.
    BalanceMatrix matrix = Matrix({{1, 0, 1, 5}, {1, 1, 0, 6}, {0, 1, 0, 7}});
    EXPECT_TRUE(PreparePivots(matrix, 2, 3));
    ExpectCells(matrix, {{1, 0, 1, 5}, {1, 1, 0, 6}, {0, 1, 0, 7}});
}

TEST(PreparePivots, WorksToTheSmallerOfBothLastIndices)
{
    // Four rows, two columns: the corner is row 1, column 1.
    BalanceMatrix tall = Matrix({{1, 2}, {0, 0}, {0, 0}, {3, 4}});
    EXPECT_FALSE(PreparePivots(tall, 3, 1));
    ExpectCells(tall, {{1, 2}, {3, 4}, {0, 0}, {0, 0}});
    // One row: the corner is row 0, column 0.
    BalanceMatrix flat = Matrix({{0, 2, 3}});
    EXPECT_TRUE(PreparePivots(flat, 0, 2));
}

TEST(PreparePivots, IsNotSingularWithoutARow)
{
    BalanceMatrix matrix = Matrix({{3, 4}});
    EXPECT_FALSE(PreparePivots(matrix, -1, 1));
    ExpectCells(matrix, {{3, 4}});
}

TEST(ReduceMatrix, DividesTheOneRow)
{
    BalanceMatrix matrix = Matrix({{2, 4}});
    ReduceMatrix(matrix, 0, 1);
    ExpectCells(matrix, {{1, 2}});
}

TEST(ReduceMatrix, LeavesTheUnknownsInTheLastColumn)
{
    // 2x + y = 5 and x - y = 1: x = 2, y = 1.
    BalanceMatrix matrix = Matrix({{2, 1, 5}, {1, -1, 1}});
    ReduceMatrix(matrix, 1, 2);
    ExpectCells(matrix, {{1, 0, 2}, {0, 1, 1}});
}

TEST(ReduceMatrix, ExchangesRowsForAVanishingPivot)
{
    // After step 0 the rows are (0, 0, 3, 6) and (0, 2, 0, 4): row 2 comes up.
    BalanceMatrix matrix = Matrix({{1, 1, 0, 3}, {1, 1, 3, 9}, {1, 3, 0, 7}});
    ReduceMatrix(matrix, 2, 3);
    // y = 2, x = 3 - 2 = 1, z = 6 / 3 = 2.
    ExpectCells(matrix, {{1, 0, 0, 1}, {0, 1, 0, 2}, {0, 0, 1, 2}});
}

TEST(ReduceMatrix, TakesAPivotOf5e9AsZeroAndDividesBy2e8)
{
    BalanceMatrix zero = Matrix({{5e-9, 4}});
    ReduceMatrix(zero, 0, 1);
    ExpectCells(zero, {{5e-9, 4}});

    BalanceMatrix atTheLimit = Matrix({{-1e-8, 4}});
    ReduceMatrix(atTheLimit, 0, 1);
    ExpectCells(atTheLimit, {{-1e-8, 4}});

    BalanceMatrix pivot = Matrix({{2e-8, 4}});
    ReduceMatrix(pivot, 0, 1);
    EXPECT_EQ(pivot.At(0, 0), 1);
    EXPECT_DOUBLE_EQ(pivot.At(0, 1), 2e8); // 4 / 2e-8
}

TEST(ReduceMatrix, KeepsATinyCellThatWentDownForAPivot)
{
    // 5e-9 comes up first, counts as zero and goes down again for the 1 of row 2.
    // It is then eliminated: (0, 1 - 4 x 5e-9, 3 - 7 x 5e-9), so the second
    // unknown is (3 - 3.5e-8) / (1 - 2e-8) = 3 + 2.5e-8, not 3.
    BalanceMatrix matrix = Matrix({{0, 0, 0}, {5e-9, 1, 3}, {1, 4, 7}});
    ReduceMatrix(matrix, 2, 2);
    EXPECT_EQ(matrix.At(1, 1), 1);
    EXPECT_NEAR(matrix.At(1, 2), 3 + 2.5e-8, 1e-13);
}

TEST(ReduceMatrix, EndsWhereOnlyTinyCellsAreLeft)
{
    // Two cells that both count as zero are not exchanged for ever.
    BalanceMatrix matrix = Matrix({{5e-9, 4}, {3e-9, 5}});
    ReduceMatrix(matrix, 1, 1);
    EXPECT_EQ(matrix.At(0, 1) + matrix.At(1, 1), 9) << "no row was worked on";
}

TEST(ReduceMatrix, FindsThePivotBehindTinyCells)
{
    BalanceMatrix matrix = Matrix({{5e-9, 0}, {3e-9, 0}, {4, 8}});
    ReduceMatrix(matrix, 2, 0);
    EXPECT_EQ(matrix.At(0, 0), 1);
}

TEST(ReduceMatrix, StoresWhatFallsTo1e8AsZero)
{
    // Row 1 less row 0 is (0, 5e-9, 2e-8, -5e-9).
    BalanceMatrix matrix = Matrix({{1, 5, 5, -5}, {1, 5 + 5e-9, 5 + 2e-8, -5 - 5e-9}});
    ReduceMatrix(matrix, 1, 3);
    // The pivot of column 1 has fallen to 0: the reduction ends after step 0.
    EXPECT_EQ(matrix.At(1, 1), 0);
    EXPECT_NEAR(matrix.At(1, 2), 2e-8, 1e-14);
    EXPECT_EQ(matrix.At(1, 3), 0);
}

TEST(ReduceMatrix, KeepsATinyCellOfTheDividedRow)
{
    // Only what an elimination leaves is cleaned, not what a division leaves.
    BalanceMatrix matrix = Matrix({{1e10, 1}});
    ReduceMatrix(matrix, 0, 1);
    EXPECT_DOUBLE_EQ(matrix.At(0, 1), 1e-10);
}

TEST(ReduceMatrix, StopsInSilenceHalfReduced)
{
    // Step 0: (1, 2, 3 | 4); rows 1 and 2 lose column 1 as well, so step 1 has no
    // pivot. Row 1 is (0, 0, 5 - 3, 9 - 4), row 2 (0, 0, 7 - 6, 8 - 8).
    BalanceMatrix matrix = Matrix({{2, 4, 6, 8}, {1, 2, 5, 9}, {2, 4, 7, 8}});
    ReduceMatrix(matrix, 2, 3);
    ExpectCells(matrix, {{1, 2, 3, 4}, {0, 0, 2, 5}, {0, 0, 1, 0}});
}

TEST(ReduceMatrix, KeepsTheFreeColumnsBehindTheDiagonal)
{
    // x + 2y + 4z = 6, y + z = 1: x = 4 - 2z, y = 1 - z.
    BalanceMatrix matrix = Matrix({{1, 2, 4, 6}, {0, 1, 1, 1}});
    ReduceMatrix(matrix, 1, 3);
    ExpectCells(matrix, {{1, 0, 2, 4}, {0, 1, 1, 1}});
}

TEST(ReduceMatrix, EndsAtTheRightHandColumnOfAConsistentSystem)
{
    // x = 3 and 2x = 6: nothing is left for the right-hand column to pivot on.
    BalanceMatrix matrix = Matrix({{1, 3}, {2, 6}});
    ReduceMatrix(matrix, 1, 1);
    ExpectCells(matrix, {{1, 3}, {0, 0}});
}

TEST(ReduceMatrix, PivotsOnTheRightHandColumnOfAContradictorySystem)
{
    // x = 3 and 2x = 7 leave 0 = 1: the 1 wipes the 3.
    BalanceMatrix matrix = Matrix({{1, 3}, {2, 7}});
    ReduceMatrix(matrix, 1, 1);
    ExpectCells(matrix, {{1, 0}, {0, 1}});
    // The same with the contradiction in the last of three rows.
    BalanceMatrix taller = Matrix({{1, 3}, {2, 6}, {1, 5}});
    ReduceMatrix(taller, 2, 1);
    ExpectCells(taller, {{1, 0}, {0, 1}, {0, 0}});
}

TEST(ReduceMatrix, LeavesCellsOutsideAlone)
{
    BalanceMatrix matrix = Matrix({{2, 4, 100}, {3, 5, 200}, {9, 9, 9}});
    ReduceMatrix(matrix, 1, 1);
    EXPECT_EQ(matrix.At(0, 2), 100);
    EXPECT_EQ(matrix.At(1, 2), 200);
    EXPECT_EQ(matrix.At(2, 0), 9);
}

TEST(ReduceMatrix, CarriesColumnsOutsideAlongInAnExchange)
{
    BalanceMatrix matrix = Matrix({{0, 4, 100}, {2, 6, 200}});
    ReduceMatrix(matrix, 1, 1);
    EXPECT_EQ(matrix.At(0, 2), 200);
    EXPECT_EQ(matrix.At(1, 2), 100);
}

TEST(ReduceMatrix, FaultsWhenADivisionOverflows)
{
    BalanceMatrix matrix = Matrix({{2e-8, 1e305}});
    EXPECT_THROW(ReduceMatrix(matrix, 0, 1), FatalFault);
}

TEST(ReduceMatrix, FaultsWhenAnEliminationOverflows)
{
    // 1e200 x 1e200 passes 1.8e308.
    BalanceMatrix matrix = Matrix({{1, 1e200}, {1e200, 1}});
    EXPECT_THROW(ReduceMatrix(matrix, 1, 1), FatalFault);
    // The last elimination, behind which nothing is divided any more.
    BalanceMatrix last = Matrix({{1, 1e200, 0}, {0, 1, 1e200}});
    EXPECT_THROW(ReduceMatrix(last, 1, 2), FatalFault);
}

TEST(SwapRows, ExchangesAllColumns)
{
    BalanceMatrix matrix = Numbered();
    SwapRows(matrix, 2, 9);
    for (int column = 0; column < 6; ++column) {
        EXPECT_EQ(matrix.At(2, column), 91 + column);
        EXPECT_EQ(matrix.At(9, column), 21 + column);
        EXPECT_EQ(matrix.At(5, column), 51 + column);
    }
}

TEST(SwapRows, FaultsOutsideTheTenRows)
{
    BalanceMatrix matrix = Numbered();
    const QString cause = u"MATH : MANIPULATION LIGNE : MATRICE PAS ASSEZ GRANDE (514)"_s;
    EXPECT_EQ(CauseOf([&] { SwapRows(matrix, 0, 10); }), cause);
    EXPECT_EQ(CauseOf([&] { SwapRows(matrix, 10, 0); }), cause);
    EXPECT_EQ(CauseOf([&] { SwapRows(matrix, -1, 0); }), cause);
    EXPECT_EQ(CauseOf([&] { SwapRows(matrix, 0, -1); }), cause);
    EXPECT_EQ(matrix.cells, Numbered().cells);
}

TEST(SwapColumns, ExchangesAllRows)
{
    BalanceMatrix matrix = Numbered();
    SwapColumns(matrix, 0, 5);
    for (int row = 0; row < 10; ++row) {
        EXPECT_EQ(matrix.At(row, 0), 10 * row + 6);
        EXPECT_EQ(matrix.At(row, 5), 10 * row + 1);
        EXPECT_EQ(matrix.At(row, 3), 10 * row + 4);
    }
}

TEST(SwapColumns, FaultsOutsideTheSixColumns)
{
    BalanceMatrix matrix = Numbered();
    const QString cause = u"MATH : MANIPULATION COLONNE : MATRICE PAS ASSEZ GRANDE (514)"_s;
    EXPECT_EQ(CauseOf([&] { SwapColumns(matrix, 0, 6); }), cause);
    EXPECT_EQ(CauseOf([&] { SwapColumns(matrix, 6, 0); }), cause);
    EXPECT_EQ(CauseOf([&] { SwapColumns(matrix, -1, 0); }), cause);
    EXPECT_EQ(CauseOf([&] { SwapColumns(matrix, 0, -1); }), cause);
    EXPECT_EQ(matrix.cells, Numbered().cells);
}

} // namespace stoikal
