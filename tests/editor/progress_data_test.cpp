#include "editor/progress_data.h"

#include "editor/equation_file_io.h"
#include "editor/number_list.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

std::vector<WorkEquation> Equations(const char* lines)
{
    return ReadEquations(lines, {}).equations;
}

} // namespace

TEST(DatumKey, DigitsAndOneDecimalSignPass)
{
    EXPECT_EQ(DatumKeyRefusal(u'0', u""), std::nullopt);
    EXPECT_EQ(DatumKeyRefusal(u'9', u"1,5"), std::nullopt);
    EXPECT_EQ(DatumKeyRefusal(u',', u"1"), std::nullopt);
    EXPECT_EQ(DatumKeyRefusal(u'.', u""), std::nullopt);
}

TEST(DatumKey, AnyOtherCharacterIsRefusedWithItsReason)
{
    EXPECT_EQ(DatumKeyRefusal(u'-', u""), u"Une donnée ne peut pas être négative."_s);
    EXPECT_EQ(DatumKeyRefusal(u'x', u"1"), u"Veuillez saisir un chiffre."_s);
    EXPECT_EQ(DatumKeyRefusal(u' ', u"1"), u"Veuillez saisir un chiffre."_s);
    EXPECT_EQ(DatumKeyRefusal(u',', u"1.5"), u"Ce nombre a déjà une virgule ou un point."_s);
    EXPECT_EQ(DatumKeyRefusal(u'.', u"1,"), u"Ce nombre a déjà une virgule ou un point."_s);
}

TEST(FirstNegativeDatum, IsThatOfASpeciesThatIsThere)
{
    EXPECT_EQ(FirstNegativeDatum(Equations("H2+O2=H2O/2,1,2#Q1,M-0.5,V-2")[0]),
              std::optional<std::size_t>(1));
    EXPECT_EQ(FirstNegativeDatum(Equations("H2+O2=H2O/2,1,2#Q1,M0,V2")[0]), std::nullopt);
    EXPECT_EQ(FirstNegativeDatum(Equations("H2+O2=H2O/2,1,2")[0]), std::nullopt);
    WorkEquation emptied = Equations("H2+O2=H2O/2,1,2#Q1,M-0.5,V2")[0];
    emptied.Molecule[1].clear();
    EXPECT_EQ(FirstNegativeDatum(emptied), std::nullopt);
}

TEST(EquationsWithoutDatum, AreThoseWhoseDataAreAllZero)
{
    EXPECT_EQ(EquationsWithoutDatum(Equations("H2+O2=H2O/2,1,2#Q1,Q0,Q0\r\n"
                                              "H2+O2=H2O/2,1,2#Q0,M0.0,V\r\n"
                                              "H2+O2=H2O/2,1,2\r\n"
                                              "H2+O2=H2O/2,1,2#Q0,Q0,Q.5\r\n")),
              std::vector<int>({2, 3}));
}

TEST(NumberList, NamesFiveAndSaysThatThereAreMore)
{
    EXPECT_EQ(NumberList({2}), u"2"_s);
    EXPECT_EQ(NumberList({1, 2, 3, 4, 9}), u"1, 2, 3, 4, 9"_s);
    EXPECT_EQ(NumberList({1, 2, 3, 4, 9, 10}), u"1, 2, 3, 4, 9, …"_s);
}

} // namespace stoikal
