// Draws the pictures of the manual from the program's own windows, into the
// folder that the variable STOIKAL_PICTURES names: scripts/render_help_pictures.py.
#include "shell_fixture.h"

#include <QCheckBox>
#include <QMdiSubWindow>
#include <QPainter>
#include <QPixmap>
#include <QSlider>
#include <cmath>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidest = 640;

class HelpPictures : public ShellTest
{
protected:
    void SetUp() override
    {
        if (m_target.isEmpty())
            GTEST_SKIP() << "STOIKAL_PICTURES names no folder";
        desktop.folders.program = QStringLiteral(STOIKAL_HELP_DIR);
        leavesTheTip = false;
        passesAsTeacher = false;
        WriteSettings({u"[Options]"_s, u"Show Tips at Startup=0"_s});
        Start();
    }

    void Keep(QWidget& window, const QString& name)
    {
        Settle();
        QPixmap picture = window.grab();
        // What a window of another shape cuts off is white paper on the page.
        if (!window.mask().isEmpty()) {
            QPainter painter(&picture);
            painter.setClipRegion(QRegion(window.rect()) - window.mask());
            painter.fillRect(window.rect(), Qt::white);
        }
        if (picture.width() > kWidest)
            picture = picture.scaledToWidth(kWidest, Qt::SmoothTransformation);
        if (!picture.save(m_target + u'/' + name + u".png"_s))
            ADD_FAILURE() << "cannot write " << name.toStdString();
    }

    void Keep(const char* name)
    {
        Settle();
        QWidget* const window = FindWindow(name);
        if (window == nullptr)
            throw std::runtime_error(std::string("not shown: ") + name);
        Keep(*window, QLatin1String(name));
    }

    /// A window of the main area, at a size that can be read on a page.
    void KeepChild(const char* name, int width, int height)
    {
        QWidget& child = *FindWindow(name);
        child.parentWidget()->showNormal();
        child.parentWidget()->resize(width, height);
        Keep(name);
    }

    /// The modal window of that name, once it comes, is drawn and left by a button.
    void KeepWhenItComes(const char* name, const char* button, const ModalScript::Step& fill = {})
    {
        script.On(name, [this, name, button, fill](QWidget& window) {
            if (fill)
                fill(window);
            Keep(window, QLatin1String(name));
            Click(Control<QAbstractButton>(window, button));
        });
    }

    /// Nobody set a password yet: an empty one opens what is protected.
    void GiveThePassword()
    {
        script.On("frmMotPasse", [](QWidget& window) { Click(Control<QAbstractButton>(window, "cmdOK")); });
    }

    void Fill(QWidget& window, const char* array, const QStringList& texts)
    {
        for (int i = 0; i < texts.size(); ++i) {
            if (!texts.at(i).isEmpty())
                Type(Control<QLineEdit>(window, qPrintable(ArrayName(array, i))), texts.at(i));
        }
    }

private:
    const QString m_target = qEnvironmentVariable("STOIKAL_PICTURES");
};

} // namespace

TEST_F(HelpPictures, OfTheStart)
{
    KeepWhenItComes("frmAbout", "cmdOK");
    Choose("Mnu_About");
    WriteTextFile(EquationFolder() + u"/TipOfDayEqChm.txt"_s,
                  {u"Une case vide compte pour 1\u00A0: inutile de taper ce coefficient."_s});
    KeepWhenItComes("frmTip", "cmdOK");
    Choose("Mnu_Tip");
    Choose("Mnu_Pref");
    Keep("frmPref");
}

TEST_F(HelpPictures, OfARun)
{
    KeepWhenItComes("frmName", "cmdOK", [](QWidget& window) {
        Type(Control<QLineEdit>(window, "txtIdent(1)"), u"DUPONT"_s);
        Type(Control<QLineEdit>(window, "txtIdent(2)"), u"Paul"_s);
        Type(Control<QLineEdit>(window, "txtIdent(3)"), u"3B"_s);
    });
    AnswerDialog(WriteEquations({u"Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1"_s}));
    Choose("Mnu_Open(0)");
    Settle();
    Keep("frmCharge");
    Choose("Mnu_Chrono");
    ClockReaches(124);
    Keep("frmChrono");
    KeepWhenItComes("frmNote", "cmdStay");
    Answer({u"2"_s, u"1"_s, {}, u"2"_s, u"1"_s});
    Settle();
    OpenFile({u"CH4+O2=CO2+H2O/1,2,1,2"_s}, u"Serie2.Equ"_s);
    Type(Box(1), u"2"_s);
    Keep("frmEquation");
    Choose("Mnu_Taille(3)");
    Keep("frmStoikal");
    Choose("Mnu_Taille(1)");
    KeepChild("frmReactif", 420, 150);
}

TEST_F(HelpPictures, OfTheStudyOfProgress)
{
    AnswerDialog(WriteEquations({u"CH4<g>+O2<g>=CO2<g>+H2O<l>/1,2,1,2#Q0.5,Q1.2,Q0,Q0"_s}, u"Gaz.Avt"_s));
    IdentifyWhenAsked();
    KeepWhenItComes("frmChoixSimul", "cmdChoix",
                    [](QWidget& window) { Click(Control<QAbstractButton>(window, "optSimul(1)")); });
    Choose("Mnu_Open(1)");
    Settle();
    Keep(Exercise(), u"progress"_s);
    Choose("Mnu_MassMol");
    Keep("frmMassMol");
    Click(Control<QAbstractButton>(Exercise(), "chkHistoMol"));
    Settle();
    QWidget& drawings = *FindWindow("frmHistoMol");
    auto& slider = Control<QSlider>(drawings, "sldAnim");
    slider.setValue(slider.maximum() * 2 / 3);
    Keep("frmHistoMol");
}

TEST_F(HelpPictures, OfTheTools)
{
    GiveThePassword();
    Choose("Mnu_Balance");
    Fill(*FindWindow("frmExpert"), "txtMolecule", {u"Fe2O3"_s, u"CO"_s, {}, u"Fe"_s, u"CO2"_s});
    Click(Control<QAbstractButton>(*FindWindow("frmExpert"), "cmdBalance"));
    KeepChild("frmExpert", 760, 340);
    WriteEquations({u"H2+O2=H2O/2,1,2"_s, u"CH4+O2=CO2+H2O/1,2,1,2"_s});
    GiveThePassword();
    Choose("Mnu_Search");
    Fill(*FindWindow("frmSearch"), "txtMolecule", {u"O2"_s});
    Click(Control<QAbstractButton>(*FindWindow("frmSearch"), "cmdSearch"));
    KeepChild("frmSearch", 760, 340);
    GiveThePassword();
    Choose("Mnu_CalMol");
    Type(Control<QLineEdit>(*FindWindow("frmCalMol"), "txtMolecule"), u"CuSO4,5H2O"_s);
    Keep("frmCalMol");
    Choose("Mnu_Tableau");
    Keep("frmTableauPeriodique");
    Click(Control<QAbstractButton>(*FindWindow("frmTableauPeriodique"), "cmdAtome(25)"));
    Keep("frmDataAtomes");
}

TEST_F(HelpPictures, OfTheParticles)
{
    // Evenly spread numbers, the same in every picture.
    double last = 0;
    desktop.randomness.draw = [last]() mutable { return last = std::fmod(last * 16807 + 0.37, 1.0); };
    Choose("Mnu_SimulAnim");
    QWidget& window = *FindWindow("frmSimulAnim");
    Settle();
    Click(Control<QAbstractButton>(window, "chkStart"));
    for (int i = 0; i < 300; ++i) {
        desktop.clock.counter += 1;
        Tick(Control<QTimer>(window, "tmrAnim"));
    }
    Keep("frmSimulAnim");
}

TEST_F(HelpPictures, OfTheTeachersSide)
{
    KeepWhenItComes("frmPassWord", "cmdCancel");
    Choose("Mnu_Password");
    KeepWhenItComes("frmMotPasse", "cmdOK");
    script.On("frmNewFile", [this](QWidget& window) {
        Type(Control<QLineEdit>(window, "txtNameFile"), u"Combustions"_s);
        Fill(window, "txtMolecule", {u"CH4"_s, u"O2"_s, {}, u"CO2"_s, u"H2O"_s});
        Keep(window, u"frmNewFile"_s);
        Click(Control<QAbstractButton>(window, "chkPreview"));
        Settle();
        Keep(*FindWindow("frmPreview"), u"frmPreview"_s);
        Click(Control<QAbstractButton>(window, "cmdCancel"));
    });
    Choose("Mnu_Create");
    WriteEquations({u"H2+O2=H2O/2,1,2"_s}, u"Essai.Equ"_s);
    WriteEquations({u"C+O2=CO2/1,1,1"_s}, u"Carbone.Equ"_s);
    GiveThePassword();
    script.On("frmCorbeille", [this](QWidget& window) {
        Keep(window, u"frmCorbeille"_s);
        window.close();
    });
    Choose("Mnu_Kill");
}

} // namespace stoikal
