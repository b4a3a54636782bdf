#include "chemistry/periodic_layout.h"

#include "support/qt_printers.h"

#include <QList>
#include <QSet>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// Cells of 400 twips: (7920 - 360 - 360) / 18. The heads are 300 high, so that
/// the first row stands at 345.
GridLayout Layout()
{
    return LayOutGrid({7920, 300, 0});
}

struct Place {
    float left;
    float top;
};

Place PlaceOf(const GridLayout& layout, int index)
{
    return {layout.left.at(static_cast<size_t>(index)), layout.cellTop.at(static_cast<size_t>(index))};
}

/// Where a column (1 to 18) and a row (1 to 7, or 8.1 and 9.1 for the two below) stand.
void ExpectAt(const char* symbol, int column, double row)
{
    const Place place = PlaceOf(Layout(), ElementIndex(QString::fromLatin1(symbol)));
    EXPECT_NEAR(place.left, 240 + 400 * (column - 1), 0.01) << symbol;
    EXPECT_NEAR(place.top, 345 + 400 * (row - 1), 0.01) << symbol;
}

QString Neighbour(const char* symbol, int dx, int dy)
{
    return ElementSymbol(NeighbourOf(Layout(), ElementIndex(QString::fromLatin1(symbol)), dx, dy));
}

/// The indices of a state.
template <typename Condition>
QList<int> Where(Condition holds)
{
    QList<int> indices;
    for (int index = 0; index < kElementCount; ++index) {
        if (holds(index))
            indices << index;
    }
    return indices;
}

QList<int> InState(ElementState state)
{
    return Where([state](int index) { return StateOf(index) == state; });
}

} // namespace

TEST(PeriodicLayout, DividesTheWidthIntoEighteenCells)
{
    const GridLayout layout = Layout();

    EXPECT_FLOAT_EQ(layout.side, 400);
    EXPECT_FLOAT_EQ(layout.frameWidth, 7560); // 7920 - 360
    EXPECT_FLOAT_EQ(layout.top, 345); // 300 + 45
}

TEST(PeriodicLayout, PutsHydrogenAndHeliumAtTheEndsOfTheFirstRow)
{
    ExpectAt("H", 1, 1);
    ExpectAt("He", 18, 1);
}

TEST(PeriodicLayout, BeginsARowAtEachAlkaliMetal)
{
    ExpectAt("Li", 1, 2);
    ExpectAt("Na", 1, 3);
    ExpectAt("K", 1, 4);
    ExpectAt("Rb", 1, 5);
    ExpectAt("Cs", 1, 6);
    ExpectAt("Fr", 1, 7);
}

TEST(PeriodicLayout, JumpsOverTheTransitionMetalsInTheShortRows)
{
    ExpectAt("Be", 2, 2);
    ExpectAt("B", 13, 2);
    ExpectAt("Ne", 18, 2);
    ExpectAt("Mg", 2, 3);
    ExpectAt("Al", 13, 3);
    ExpectAt("Ar", 18, 3);
}

TEST(PeriodicLayout, FillsTheLongRows)
{
    ExpectAt("Sc", 3, 4);
    ExpectAt("Fe", 8, 4);
    ExpectAt("Kr", 18, 4);
    ExpectAt("Xe", 18, 5);
    ExpectAt("Rn", 18, 6);
    ExpectAt("Uuo", 18, 7);
}

TEST(PeriodicLayout, KeepsLanthanumAndActiniumInTheGrid)
{
    ExpectAt("La", 3, 6);
    ExpectAt("Hf", 4, 6);
    ExpectAt("Ac", 3, 7);
    ExpectAt("Rf", 4, 7);
}

TEST(PeriodicLayout, SetsTheTwoRowsBelowATenthOfACellApart)
{
    ExpectAt("Ce", 3, 8.1);
    ExpectAt("Lu", 16, 8.1);
    ExpectAt("Th", 3, 9.1);
    ExpectAt("Lr", 16, 9.1);
}

TEST(PeriodicLayout, EndsTheFrameBelowTheLastRow)
{
    // The actinides end at 345 + 8.1 * 400 + 400 = 3985.
    EXPECT_NEAR(Layout().frameHeight, 3985 + 200, 0.01);
}

TEST(PeriodicLayout, KeepsItsProportionsAtHalfTheWidth)
{
    const GridLayout whole = Layout();
    const GridLayout half = LayOutGrid({4320, 300, 0}); // 720 + 18 * 200

    EXPECT_FLOAT_EQ(half.side, 200);
    for (int index = 0; index < kElementCount; ++index) {
        EXPECT_NEAR(PlaceOf(half, index).left - 240, (PlaceOf(whole, index).left - 240) / 2, 0.01) << index;
        EXPECT_NEAR(PlaceOf(half, index).top - 345, (PlaceOf(whole, index).top - 345) / 2, 0.01) << index;
    }
}

TEST(PeriodicLayout, MakesSmallerCellsInALowWindow)
{
    // 345 + 9.1 * 200 + 200 = 2365
    const GridLayout layout = LayOutGrid({7920, 300, 2365});

    EXPECT_NEAR(layout.side, 200, 0.01);
    EXPECT_NEAR(layout.frameHeight, 2365, 0.05);
    EXPECT_NEAR(layout.frameWidth, 3960, 0.05); // 18 * 200 + 360
}

TEST(PeriodicLayout, MakesNoLargerCellsInAHighWindow)
{
    EXPECT_FLOAT_EQ(LayOutGrid({7920, 300, 9000}).side, 400);
}

TEST(PeriodicLayout, LaysNoTwoCellsOnOneAnother)
{
    const GridLayout layout = Layout();

    for (int a = 0; a < kElementCount; ++a) {
        for (int b = a + 1; b < kElementCount; ++b) {
            const bool isBeside
                = std::abs(PlaceOf(layout, a).left - PlaceOf(layout, b).left) > layout.side - 1;
            const bool isBelow = std::abs(PlaceOf(layout, a).top - PlaceOf(layout, b).top) > layout.side - 1;
            EXPECT_TRUE(isBeside || isBelow) << a << " and " << b;
        }
    }
}

TEST(NeighbourOf, LeadsToTheNextCellOfTheRow)
{
    EXPECT_EQ(Neighbour("Fe", 1, 0), u"Co"_s);
    EXPECT_EQ(Neighbour("Fe", -1, 0), u"Mn"_s);
    EXPECT_EQ(Neighbour("Ce", 1, 0), u"Pr"_s);
}

TEST(NeighbourOf, JumpsOverAGapOfTheRow)
{
    EXPECT_EQ(Neighbour("H", 1, 0), u"He"_s);
    EXPECT_EQ(Neighbour("He", -1, 0), u"H"_s);
    EXPECT_EQ(Neighbour("Be", 1, 0), u"B"_s);
    EXPECT_EQ(Neighbour("Al", -1, 0), u"Mg"_s);
    // By position, not by number.
    EXPECT_EQ(Neighbour("La", 1, 0), u"Hf"_s);
}

TEST(NeighbourOf, LeadsAlongTheColumn)
{
    EXPECT_EQ(Neighbour("H", 0, 1), u"Li"_s);
    EXPECT_EQ(Neighbour("Kr", 0, -1), u"Ar"_s);
    EXPECT_EQ(Neighbour("Sc", 0, 1), u"Y"_s);
    EXPECT_EQ(Neighbour("Ac", 0, 1), u"Ce"_s);
    EXPECT_EQ(Neighbour("Ce", 0, -1), u"Ac"_s);
    EXPECT_EQ(Neighbour("Ce", 0, 1), u"Th"_s);
    EXPECT_EQ(Neighbour("Rf", 0, 1), u"Pr"_s);
}

TEST(NeighbourOf, StaysAtTheEdge)
{
    EXPECT_EQ(Neighbour("H", -1, 0), u"H"_s);
    EXPECT_EQ(Neighbour("H", 0, -1), u"H"_s);
    EXPECT_EQ(Neighbour("Uuo", 1, 0), u"Uuo"_s);
    EXPECT_EQ(Neighbour("Th", 0, 1), u"Th"_s);
}

TEST(NeighbourOf, LeadsEverywhere)
{
    const GridLayout layout = Layout();
    QSet<int> reached{0};
    QList<int> next{0};

    while (!next.isEmpty()) {
        const int index = next.takeFirst();
        for (const auto& [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
            const int neighbour = NeighbourOf(layout, index, dx, dy);
            if (!reached.contains(neighbour)) {
                reached << neighbour;
                next << neighbour;
            }
        }
    }

    EXPECT_EQ(reached.size(), kElementCount);
}

TEST(ElementStates, AreThoseOfTheTable)
{
    EXPECT_EQ(InState(ElementState::Liquid), (QList<int>{30, 34, 54, 79, 86}));
    EXPECT_EQ(InState(ElementState::Gas), (QList<int>{0, 1, 6, 7, 8, 9, 16, 17, 35, 53, 85}));
    QList<int> synthetic{42, 60};
    for (int index = 92; index <= 117; ++index)
        synthetic << index;
    EXPECT_EQ(InState(ElementState::Synthetic), synthetic);
    EXPECT_EQ(InState(ElementState::NotYetSynthesised), QList<int>());
    EXPECT_EQ(InState(ElementState::Solid).size(), 118 - 5 - 11 - 28);
}

TEST(ElementFamilies, TellMetalsFromTheOthers)
{
    for (const char* const symbol : {"H", "He", "C", "N", "O", "F", "P", "S", "Cl", "Br", "I", "Xe", "Rn"})
        EXPECT_EQ(FamilyOf(ElementIndex(QString::fromLatin1(symbol))), ElementFamily::NonMetal) << symbol;
    for (const char* const symbol : {"B", "Si", "Ge", "As", "Sb", "Te"})
        EXPECT_EQ(FamilyOf(ElementIndex(QString::fromLatin1(symbol))), ElementFamily::SemiConductor)
            << symbol;
    for (const char* const symbol : {"Li", "Al", "Fe", "Ga", "Sn", "Hg", "Pb", "La", "U", "Uuo"})
        EXPECT_EQ(FamilyOf(ElementIndex(QString::fromLatin1(symbol))), ElementFamily::Metal) << symbol;
}

} // namespace stoikal
