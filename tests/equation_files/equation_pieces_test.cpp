#include "equation_files/equation_pieces.h"

#include "base/fatal_fault.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;
using Species = std::array<QString, 6>;

TEST(CutEquationLine, CutsSpeciesCoefficientsAndData)
{
    const EquationPieces pieces = CutEquationLine(u"H2<g> + O2 = H2O / 2, 1, 2 # Q1,q2,Q0"_s);

    EXPECT_EQ(pieces.species, (Species{u"H2<g>"_s, u"O2"_s, u""_s, u"H2O"_s, u""_s, u""_s}));
    EXPECT_EQ(pieces.coefficients, u"2,1,2"_s);
    EXPECT_EQ(pieces.data, u"Q1,q2,Q0"_s);
}

TEST(CutEquationLine, TellsNoSlashFromASlashWithNothingBehind)
{
    EXPECT_FALSE(CutEquationLine(u"A=B"_s).coefficients.has_value());
    EXPECT_EQ(CutEquationLine(u"A=B/"_s).coefficients, QString());
    EXPECT_EQ(CutEquationLine(u"A=B/#Q1,Q2"_s).coefficients, QString());
    EXPECT_EQ(CutEquationLine(u"A=B/#Q1,Q2"_s).data, u"Q1,Q2"_s);
}

TEST(CutEquationLine, TakesDataIntoTheLastProductWithoutASlash)
{
    const EquationPieces pieces = CutEquationLine(u"A=B#Q1"_s);

    EXPECT_EQ(pieces.species[3], u"B#Q1"_s);
    EXPECT_EQ(pieces.data, u"Q1"_s);
}

TEST(CutEquationLine, PassesOverTheSignsOfCharges)
{
    EXPECT_EQ(CutEquationLine(u"Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1"_s).species,
              (Species{u"Fe{3+}"_s, u"Cu"_s, u""_s, u"Fe{2+}"_s, u"Cu{2+}"_s, u""_s}));
}

TEST(CutEquationLine, LeavesAFourthSpeciesInTheThird)
{
    EXPECT_EQ(CutEquationLine(u"A+B+C+D=E"_s).species[2], u"C+D"_s);
}

TEST(CutEquationLine, FaultsWhereNothingCanBeCut)
{
    EXPECT_THROW(CutEquationLine(u"A+B"_s), FatalFault);
    EXPECT_THROW(CutEquationLine(u"A/1=B"_s), FatalFault);
    EXPECT_THROW(CutEquationLine(u"A#=B/1,1"_s), FatalFault);
    EXPECT_THROW(CutEquationLine(u"NH4{+}=NH3+H{+}/1,1,1"_s), FatalFault);
}

TEST(TakeState, TakesTheStateFromEitherSideOfTheCharge)
{
    QString before = u"Cu<AQ>{2+}"_s;
    QString behind = u"Cu{2+}<s>"_s;
    QString none = u"Cu{2+}"_s;

    EXPECT_EQ(TakeState(before), u"aq"_s);
    EXPECT_EQ(before, u"Cu{2+}"_s);
    EXPECT_EQ(TakeState(behind), u"s"_s);
    EXPECT_EQ(behind, u"Cu{2+}"_s);
    EXPECT_EQ(TakeState(none), QString());
}

TEST(TakeState, FaultsAtAStateThatIsNotClosed)
{
    QString species = u"Cu<s"_s;
    EXPECT_THROW(TakeState(species), FatalFault);
}

} // namespace stoikal
