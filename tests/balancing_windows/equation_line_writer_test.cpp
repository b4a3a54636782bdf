#include "balancing/equation_line_writer.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace stoikal {

TEST(BalancedEquationLine, JoinsFormulasAndCoefficientsInTheOrderOfTheBoxes)
{
    EXPECT_EQ(BalancedEquationLine({u"H2"_s, u"O2"_s, {}, u"H2O"_s, {}, {}}, {2, 1, 0, 2, 0, 0}),
              u"H2+O2=H2O/2,1,2"_s);
}

TEST(BalancedEquationLine, LeavesOutEmptyPlacesWithTheirCoefficients)
{
    // The coefficients of empty places stay out, whatever they are.
    EXPECT_EQ(BalancedEquationLine({{{}, u"CaCO3"_s, {}, {}, u"CaO"_s, u"CO2"_s}}, {7, 1, 8, 9, 1, 1}),
              u"CaCO3=CaO+CO2/1,1,1"_s);
}

TEST(BalancedEquationLine, TakesAllSixPlaces)
{
    EXPECT_EQ(BalancedEquationLine({u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s, u"F"_s}, {1, 2, 3, 4, 5, 6}),
              u"A+B+C=D+E+F/1,2,3,4,5,6"_s);
}

TEST(BalancedEquationLine, KeepsChargesAsTheyWereTyped)
{
    EXPECT_EQ(
        BalancedEquationLine({u"Fe{3+}"_s, u"Cu"_s, {}, u"Fe{2+}"_s, u"Cu{2+}"_s, {}}, {2, 1, 0, 2, 1, 0}),
        u"Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1"_s);
}

TEST(BalancedEquationLine, WritesTheZeroesOfAFailure)
{
    EXPECT_EQ(BalancedEquationLine({u"H2"_s, {}, {}, u"O2"_s, {}, {}}, {0, 0, 0, 0, 0, 0}), u"H2=O2/0,0"_s);
}

TEST(BalancedEquationLine, WritesANumberWithAPointAndWithoutAnExponent)
{
    EXPECT_EQ(BalancedEquationLine({u"A"_s, {}, {}, u"B"_s, u"C"_s, {}}, {1, 0, 0, 0.5, 100000, 0}),
              u"A=B+C/1,0.5,100000"_s);
}

} // namespace stoikal
