#include "shell_fixture.h"

#include "help/windows/frm_help.h"
#include "help/windows/help_page.h"
#include "shell/help_topics.h"
#include "shell/windows/frm_about.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTabWidget>
#include <map>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A started session whose program folder holds the help files that ship.
class HelpControllerTest : public ShellTest
{
protected:
    void SetUp() override
    {
        for (const char* const name : {"Stoikal.chm", "Glossaire_Atomes.chm", "Glossaire_Scientifiques.chm"})
            QFile::copy(QStringLiteral(STOIKAL_HELP_DIR) + u'/' + QLatin1String(name),
                        desktop.folders.program + u'/' + QLatin1String(name));
        Start();
    }

    QWidget& Help()
    {
        QWidget* const window = FindWindow("frmHelp");
        if (window == nullptr)
            throw std::runtime_error("no help is shown");
        return *window;
    }

    QString PageTitle() { return Control<HelpPage>(Help(), "txtPage").Title(); }
};

} // namespace

TEST_F(HelpControllerTest, MenuOpensTheContentsTheIndexAndBothGlossaries)
{
    Choose("Mnu_Help_Contents");
    EXPECT_EQ(Help().windowTitle(), u"Aide de Stoikal"_s);
    EXPECT_EQ(Control<QTabWidget>(Help(), "tabHelp").currentIndex(), 0);
    Choose("Mnu_Help_Index");
    EXPECT_EQ(Control<QTabWidget>(Help(), "tabHelp").currentIndex(), 1);
    Choose("Mnu_Glossaire");
    EXPECT_EQ(Help().windowTitle(), u"Glossaire des atomes"_s);
    EXPECT_EQ(Control<QTabWidget>(Help(), "tabHelp").currentIndex(), 0);
    Choose("Mnu_Gloss_sc");
    EXPECT_EQ(Help().windowTitle(), u"Glossaire des scientifiques"_s);
}

TEST_F(HelpControllerTest, OneWindowServesForAll)
{
    Choose("Mnu_Help_Contents");
    const QWidget* const first = &Help();

    shell->Help().ShowTopic(help_topics::kChrono);
    Choose("Mnu_Glossaire");

    EXPECT_EQ(&Help(), first);
}

TEST_F(HelpControllerTest, F1InTheMainWindowOpensTheContents)
{
    Press(shell->MainWindow(), Qt::Key_F1);

    EXPECT_EQ(PageTitle(), u"Bienvenue dans Stoikal"_s);
}

TEST_F(HelpControllerTest, EveryTopicNumberHasItsPage)
{
    const std::map<int, QString> titles{{help_topics::kAbout, u"À propos de Stoikal"_s},
                                        {help_topics::kCharge, u"Total des charges"_s},
                                        {help_topics::kChrono, u"Le chronomètre"_s},
                                        {help_topics::kPassWord, u"Le mot de passe du professeur"_s},
                                        {help_topics::kEquation, u"La fenêtre de l’équation"_s},
                                        {help_topics::kNote, u"Ma note"_s},
                                        {help_topics::kPref, u"Préférences"_s},
                                        {help_topics::kAtoms, u"Les atomes des réactifs et des produits"_s},
                                        {help_topics::kTip, u"L’astuce du jour"_s},
                                        {help_topics::kExpert, u"Équilibrage automatique d’équations"_s},
                                        {help_topics::kSearch, u"Recherche d’équations"_s},
                                        {help_topics::kTableau, u"Le tableau périodique"_s},
                                        {help_topics::kDataAtomes, u"Les données d’un élément"_s},
                                        {help_topics::kMassMol, u"Masses molaires et volume molaire"_s},
                                        {help_topics::kCalMol, u"Calcul de masse molaire"_s},
                                        {help_topics::kHistoMol, u"Courbes d’évolution des espèces"_s},
                                        {help_topics::kEditor, u"Créer ou modifier un fichier d’équations"_s},
                                        {help_topics::kSimulAnim, u"La réaction vue par ses particules"_s},
                                        {help_topics::kHelp, u"Se servir de l’aide"_s}};
    for (const auto& [topic, title] : titles) {
        shell->Help().ShowTopic(topic);
        EXPECT_EQ(PageTitle(), title) << topic;
    }
}

TEST_F(HelpControllerTest, F1InTheExerciseOpensItsPageAndTheRunGoesOn)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});

    Press(Exercise(), Qt::Key_F1);

    EXPECT_EQ(PageTitle(), u"La fenêtre de l’équation"_s);
    EXPECT_TRUE(Exercise().isVisible());
}

TEST_F(HelpControllerTest, F1OfBothAtomWindowsOpensTheSamePage)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    for (const char* const name : {"frmReactif", "frmProduit"}) {
        Choose("Mnu_Help_Contents");

        Press(*FindWindow(name), Qt::Key_F1);

        EXPECT_EQ(PageTitle(), u"Les atomes des réactifs et des produits"_s) << name;
    }
}

TEST_F(HelpControllerTest, F1IsAboutTheChildInFrontWhenOnlyItsFrameHasTheKeys)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    QWidget* const frame = FindWindow("frmProduit")->parentWidget();
    Choose("Mnu_Help_Contents");
    ASSERT_EQ(PageTitle(), u"Bienvenue dans Stoikal"_s);

    shell->MainWindow().Area().setActiveSubWindow(dynamic_cast<QMdiSubWindow*>(frame));
    Press(*frame, Qt::Key_F1);

    EXPECT_EQ(PageTitle(), u"Les atomes des réactifs et des produits"_s);
}

TEST_F(HelpControllerTest, F1InAModalWindowOpensAHelpThatCanBeUsed)
{
    script.On("frmAbout", [this](QWidget& about) {
        Press(about, Qt::Key_F1);
        Settle();
        EXPECT_EQ(PageTitle(), u"À propos de Stoikal"_s);
        EXPECT_NO_THROW(Click(Control<QAbstractButton>(Help(), "cmdHome")));
        EXPECT_EQ(PageTitle(), u"Bienvenue dans Stoikal"_s);
        Click(Control<QAbstractButton>(about, "cmdOK"));
    });

    Choose("Mnu_About");
    Settle();

    EXPECT_EQ(PageTitle(), u"Bienvenue dans Stoikal"_s);
}

TEST_F(HelpControllerTest, ClosedHelpLeavesTheKeysToTheWindowThatAsked)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    QWidget* const window = Exercise().window();
    window->activateWindow();
    Control<QWidget>(Exercise(), "txtCoef(1)").setFocus();
    Settle();

    Press(Exercise(), Qt::Key_F1);
    Settle();
    ASSERT_EQ(QApplication::activeWindow(), &Help());
    shell->MainWindow().raise();
    Help().close();
    Settle();

    EXPECT_EQ(QApplication::activeWindow(), window);
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"txtCoef(1)"_s);
}

TEST_F(HelpControllerTest, F1InTheHelpTellsHowToUseIt)
{
    Choose("Mnu_Help_Contents");

    Press(Help(), Qt::Key_F1);

    EXPECT_EQ(PageTitle(), u"Se servir de l’aide"_s);
}

TEST_F(HelpControllerTest, TellsThatTheManualIsMissingAndTheWindowGoesOn)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    const QString path = desktop.folders.program + u"/Stoikal.chm"_s;
    QFile::remove(path);
    messages.shown.clear();

    Press(Exercise(), Qt::Key_F1);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown.front().title, u"HTML Help Class"_s);
    EXPECT_EQ(
        messages.shown.front().text,
        u"The file %1 does not exist.\nPlease make sure the correct path and file name have been specified."_s
            .arg(path));
    EXPECT_EQ(FindWindow("frmHelp"), nullptr);
    Type(Box(0), u"2"_s);
    EXPECT_EQ(Box(0).text(), u"2"_s);
}

TEST_F(HelpControllerTest, TheCrossClosesTheHelp)
{
    Choose("Mnu_Help_Contents");

    Help().close();

    EXPECT_EQ(FindWindow("frmHelp"), nullptr);
    Choose("Mnu_Help_Contents");
    EXPECT_EQ(PageTitle(), u"Bienvenue dans Stoikal"_s);
}

TEST_F(HelpControllerTest, TheEndOfTheProgramClosesTheHelp)
{
    Choose("Mnu_Help_Contents");

    Choose("Mnu_End");

    EXPECT_EQ(FindWindow("frmHelp"), nullptr);
    EXPECT_EQ(ends, 1);
}

} // namespace stoikal
