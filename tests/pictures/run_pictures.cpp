#include "picture_fixture.h"

#include <QCheckBox>
#include <QMenu>
#include <QMenuBar>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QString kPropane = u"C3H8+O2=CO2+H2O/1,5,3,4"_s;
const QString kMethane = u"CH4+O2=CO2+H2O/1,2,1,2"_s;
const QString kAlumina = u"Al+O2=Al2O3/4,3,2"_s;
const QString kIron = u"Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1"_s;

class RunPictures : public PictureTest
{
protected:
    /// Types the coefficients and validates; the verdict stays to be seen.
    void Validate(const QStringList& coefficients)
    {
        Fill(Exercise(), "txtCoef", coefficients);
        Click(Button(Exercise(), "cmdOther"));
        Settle();
    }

    /// The verdict has been seen.
    void GoOn() { Tick(Control<QTimer>(Exercise(), "Timer1")); }

    /// The marks of a class that has played the file before.
    void WriteMarks(const QString& file, const QStringList& marks)
    {
        WriteTextFile(EquationFolder() + u"/HighScore.txt"_s, QStringList(u'#' + file) + marks);
    }
};

/// On a low screen, so that the atoms fill their windows.
class RunOnALowScreen : public RunPictures
{
protected:
    RunOnALowScreen() { desktop.screen.area = QRect(0, 0, 1024, 620); }
};

} // namespace

TEST_F(RunPictures, OfTheStart)
{
    KeepDesk(u"start"_s, {});
    QMenu& menu = Control<QMenu>(shell->MainWindow(), "Mnu_Compl");
    Control<QMenuBar>(shell->MainWindow(), "menuBar").setActiveAction(menu.menuAction());
    KeepDesk(u"menu"_s, {&menu});
    menu.close();
    KeepWhenItComes("frmAbout", "cmdOK");
    Choose("Mnu_About");
    WriteTextFile(EquationFolder() + u"/TipOfDayEqChm.txt"_s,
                  {u"Une case vide compte pour 1\u00A0: inutile de taper ce coefficient."_s});
    KeepWhenItComes("frmTip", "cmdOK");
    Choose("Mnu_Tip");
    Choose("Mnu_Pref");
    Keep("frmPref");
}

TEST_F(RunOnALowScreen, OfTheWindowsOfARun)
{
    KeepWhenItComes("frmName", "cmdOK", [](QWidget& window) {
        Fill(window, "txtIdent", {{}, u"DUPONT"_s, u"Paul"_s, u"3B"_s});
    });
    AnswerDialog(WriteEquations({kIron}));
    Choose("Mnu_Open(0)");
    Settle();
    Keep("frmCharge");
    Choose("Mnu_Chrono");
    ClockReaches(124);
    Keep("frmChrono");
    KeepWhenItComes("frmNote", "cmdStay");
    Answer({u"2"_s, u"1"_s, {}, u"2"_s, u"1"_s});
    Settle();
    OpenFile({kMethane}, u"Serie2.Equ"_s);
    Type(Box(1), u"2"_s);
    Keep("frmEquation");
    Choose("Mnu_Taille(3)");
    Keep("frmStoikal");
    Choose("Mnu_Taille(1)");
    KeepChild("frmReactif", 420, 150);
}

TEST_F(RunOnALowScreen, OfAnAnswer)
{
    WriteMarks(u"Combustions.Equ"_s,
               {u"MARTIN©20©95,4"_s, u"BERNARD©18©121,3"_s, u"PETIT©15©140,8"_s, u"ROBERT©12,5©163"_s,
                u"DURAND©10©98,7"_s});
    OpenFile({kPropane, kMethane, kAlumina}, u"Combustions.Equ"_s);
    Choose("Mnu_Taille(3)");
    Choose("Mnu_Chrono");
    shell->Stopwatch().Window().move(716, 236);
    ClockReaches(374);
    Fill(Exercise(), "txtCoef", {u"1"_s, u"5"_s, {}, u"3"_s, u"3"_s});
    KeepDesk(u"run"_s, {&shell->Stopwatch().Window(), &Exercise()});
    Choose("Mnu_Chrono");
    Validate({{}, {}, {}, {}, u"4"_s});
    Keep(Exercise(), u"run_right"_s);
    GoOn();
    Validate({u"1"_s, u"1"_s, {}, u"1"_s, u"2"_s});
    Keep(Exercise(), u"run_wrong"_s);
    GoOn();
    Validate({u"1"_s, u"2"_s, {}, u"1"_s, u"2"_s});
    GoOn();
    GiveThePassword();
    Choose("Mnu_Solution");
    Keep(Exercise(), u"run_solution"_s);
    script.On("frmNote", [this](QWidget& window) {
        Click(Button(window, "chkHighScore"));
        Keep(window, u"ten_best"_s);
        Click(Button(window, "cmdStay"));
    });
    Validate({});
}

TEST_F(RunOnALowScreen, OfTheCharges)
{
    OpenFile({u"Fe{2+}+Cl2=Fe{3+}+Cl{-}/2,1,2,2"_s, kIron}, u"Oxydoreduction.Equ"_s);
    Fill(Exercise(), "txtCoef", {u"1"_s, u"1"_s, {}, u"1"_s, u"2"_s});
    KeepDesk(u"run_charges"_s, {&Shown("frmCharge"), &Exercise()});
}

} // namespace stoikal
