#include "picture_fixture.h"

#include <QMdiSubWindow>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

using ToolPictures = PictureTest;

} // namespace

TEST_F(ToolPictures, OfTheBalancing)
{
    GiveThePassword();
    Choose("Mnu_Balance");
    QWidget& window = Shown("frmExpert");
    Fill(window, "txtMolecule", {u"Fe2O3"_s, u"CO"_s, {}, u"Fe"_s, u"CO2"_s});
    Click(Button(window, "cmdBalance"));
    KeepChild("frmExpert", 760, 340);
    Click(Button(window, "cmdNewMol"));
    Fill(window, "txtMolecule", {u"H2O"_s, {}, {}, u"O3"_s, u"H2O2"_s});
    Click(Button(window, "cmdBalance"));
    Keep(window, u"balancing_failure"_s);
}

TEST_F(ToolPictures, OfTheSearch)
{
    GiveThePassword();
    Choose("Mnu_Search");
    Fill(Shown("frmSearch"), "txtMolecule", {u"O2"_s});
    Click(Button(Shown("frmSearch"), "cmdSearch"));
    KeepChild("frmSearch", 760, 340);
}

TEST_F(ToolPictures, OfTheElements)
{
    GiveThePassword();
    Choose("Mnu_CalMol");
    Type(Control<QLineEdit>(Shown("frmCalMol"), "txtMolecule"), u"CuSO4,5H2O"_s);
    Keep("frmCalMol");
    Choose("Mnu_Tableau");
    Keep("frmTableauPeriodique");
    Click(Button(Shown("frmTableauPeriodique"), "cmdAtome(25)"));
    Keep("frmDataAtomes");
}

TEST_F(ToolPictures, OfTheHelp)
{
    Choose("Mnu_Help_Contents");
    Keep("frmHelp");
    Choose("Mnu_Glossaire");
    Keep(Shown("frmHelp"), u"glossary"_s);
}

} // namespace stoikal
