#include "shell_fixture.h"

#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class FrmStoikal : public StartedShellTest
{
protected:
    /// The captions below the fixed entries of the view menu, as they stand when
    /// the menu is opened.
    QStringList ListedWindows()
    {
        auto& menu = Control<QMenu>(shell->MainWindow(), "Mnu_View");
        menu.popup(QPoint());
        Settle();
        QStringList captions;
        const auto actions = menu.actions();
        bool isBehindPreferences = false;
        for (const QAction* const action : actions) {
            if (isBehindPreferences)
                captions << (action->isSeparator() ? u"-"_s : action->text());
            if (action->objectName() == u"Mnu_Pref"_s)
                isBehindPreferences = true;
        }
        menu.hide();
        return captions;
    }

    void MoveMouseOver(QWidget& widget)
    {
        ExpectReachable(widget);
        QMouseEvent event(QEvent::MouseMove, QPointF(5, 5), widget.mapToGlobal(QPointF(5, 5)), Qt::NoButton,
                          Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
};

/// The calculator is an outside program: its mark says that it is there.
class Calculator : public FrmStoikal
{
};

class WebLink : public FrmStoikal
{
};

} // namespace

TEST_F(FrmStoikal, ListsNoWindowWithoutARun)
{
    EXPECT_EQ(ListedWindows(), QStringList());
}

TEST_F(FrmStoikal, ListsItsOpenChildWindows)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});

    EXPECT_EQ(ListedWindows(),
              QStringList({u"-"_s, u"&1 Atomes des réactifs"_s, u"&2 Atomes des produits"_s}));
    // The list is made anew each time.
    EXPECT_EQ(ListedWindows().size(), 3);
}

TEST_F(FrmStoikal, ListsNoHiddenChildWindow)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    shell->MainWindow().findChild<QWidget*>(u"frmReactif"_s)->parentWidget()->hide();

    EXPECT_EQ(ListedWindows(), QStringList({u"-"_s, u"&1 Atomes des produits"_s}));
}

TEST_F(FrmStoikal, LeadsToTheChildWindowChosen)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    auto& products = Control<QWidget>(shell->MainWindow(), "frmProduit");
    QMdiArea& area = shell->MainWindow().Area();
    area.setActiveSubWindow(area.subWindowList().constFirst());
    ASSERT_NE(area.activeSubWindow()->widget(), &products);
    ListedWindows();

    Choose("Mnu_Fenetre(2)");

    EXPECT_EQ(area.activeSubWindow()->widget(), &products);
}

TEST_F(FrmStoikal, ForgetsTheWindowsOfAClosedRun)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    ListedWindows();
    messages.answers = {QMessageBox::Yes};
    Choose("Mnu_Close");
    Settle();

    EXPECT_EQ(ListedWindows(), QStringList());
}

TEST_F(FrmStoikal, KeepsTheAtomWindowsOfARunOpen)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});

    for (QMdiSubWindow* const child : shell->MainWindow().Area().subWindowList()) {
        child->close();
        EXPECT_TRUE(child->isVisible());
    }

    EXPECT_NE(FindWindow("frmReactif"), nullptr);
    EXPECT_NE(FindWindow("frmProduit"), nullptr);
}

TEST_F(FrmStoikal, HasNoScrollBarsLeftForAHiddenChild)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    QWidget* const child = Control<QWidget>(shell->MainWindow(), "frmReactif").parentWidget();
    QMdiArea& area = shell->MainWindow().Area();
    // Dragged half out of the area, to the lower right.
    child->move(area.width() / 2, area.height() / 2);
    Settle();
    ASSERT_TRUE(area.horizontalScrollBar()->isVisible());
    ASSERT_TRUE(area.verticalScrollBar()->isVisible());

    child->hide();
    Settle();

    EXPECT_FALSE(area.horizontalScrollBar()->isVisible());
    EXPECT_FALSE(area.verticalScrollBar()->isVisible());
}

TEST_F(FrmStoikal, EndsTheProgramWhenItIsClosed)
{
    shell->MainWindow().close();

    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(shell->Journal().IsOpen());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmStoikal, EndsTheProgramByItsMenuWithoutAQuestion)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});

    Choose("Mnu_End");

    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(shell->Journal().IsOpen());
    EXPECT_FALSE(shell->Run().IsOpen());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmStoikal, EndsTheProgramOnlyOnce)
{
    shell->EndProgram();
    shell->EndProgram();
    shell->MainWindow().close();

    EXPECT_EQ(ends, 1);
}

TEST_F(FrmStoikal, ShowsWhatTheProgramIs)
{
    bool isSeen = false;
    script.On("frmAbout", [&isSeen](QWidget& about) {
        isSeen = true;
        EXPECT_EQ(about.windowTitle(), u"A propos de Stoikal"_s);
        EXPECT_EQ(Control<QLabel>(about, "lblTitle").text(), u"Stoikal"_s);
        EXPECT_EQ(Control<QLabel>(about, "lblVersion").text(), u"Version 4.0.0"_s);
        Click(Control<QPushButton>(about, "cmdOK"));
    });

    Choose("Mnu_About");

    EXPECT_TRUE(isSeen);
    EXPECT_EQ(FindWindow("frmAbout"), nullptr);
}

TEST_F(FrmStoikal, TellsAboutTheSystem)
{
    script.On("frmAbout", [](QWidget& about) {
        Click(Control<QPushButton>(about, "cmdSysInfo"));
        Press(about, Qt::Key_Escape);
    });

    Choose("Mnu_About");

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Information);
    EXPECT_TRUE(messages.shown[0].text.contains(QLatin1String(qVersion())));
}

TEST_F(Calculator, IsStartedAndMarked)
{
    Choose("Mnu_Calc");

    EXPECT_TRUE(desktop.programs.runs);
    EXPECT_TRUE(Entry("Mnu_Calc").isChecked());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(Calculator, IsReportedWhenItCannotBeStarted)
{
    desktop.programs.canStart = false;

    Choose("Mnu_Calc");

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, u"Erreur sur chemin d'accés"_s);
    EXPECT_FALSE(Entry("Mnu_Calc").isChecked());
}

TEST_F(Calculator, IsClosedByTheSameEntry)
{
    Choose("Mnu_Calc");

    Choose("Mnu_Calc");

    EXPECT_EQ(desktop.programs.closed, 1);
    EXPECT_FALSE(Entry("Mnu_Calc").isChecked());
}

TEST_F(Calculator, LosesItsMarkAtTheNextMouseMovementOnceItIsGone)
{
    Choose("Mnu_Calc");
    desktop.programs.runs = false;
    EXPECT_TRUE(Entry("Mnu_Calc").isChecked());

    MoveMouseOver(*shell->MainWindow().Area().viewport());

    EXPECT_FALSE(Entry("Mnu_Calc").isChecked());
}

TEST_F(Calculator, LosesItsMarkOverTheAtomsToo)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});

    for (const char* const name : {"frmReactif", "frmProduit"}) {
        Choose("Mnu_Calc");
        desktop.programs.runs = false;
        MoveMouseOver(Control<QWidget>(Control<QWidget>(shell->MainWindow(), name), "picAtomes"));
        EXPECT_FALSE(Entry("Mnu_Calc").isChecked()) << name;
    }
}

TEST_F(Calculator, KeepsItsMarkWhileItRuns)
{
    Choose("Mnu_Calc");

    MoveMouseOver(*shell->MainWindow().Area().viewport());

    EXPECT_TRUE(Entry("Mnu_Calc").isChecked());
    EXPECT_EQ(desktop.programs.closed, 0);
}

TEST_F(Calculator, IsLeftAloneWithoutItsMark)
{
    desktop.programs.runs = true;

    MoveMouseOver(*shell->MainWindow().Area().viewport());

    EXPECT_FALSE(Entry("Mnu_Calc").isChecked());
    EXPECT_EQ(desktop.programs.closed, 0);
}

TEST_F(WebLink, NeedsASite)
{
    Choose("Mnu_Web");

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
    EXPECT_EQ(messages.shown[0].text, u"Aucun site n'est configuré."_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Information);
    EXPECT_TRUE(desktop.browser.opened.isEmpty());
}

TEST_F(WebLink, NeedsAConnection)
{
    desktop.web.site = u"http://maker.example"_s;
    desktop.browser.online = false;

    Choose("Mnu_Web");

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
    EXPECT_EQ(messages.shown[0].text, u"Vous n'êtes pas actuellement connecté à Internet."_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(desktop.browser.opened.isEmpty());
}

TEST_F(WebLink, OpensTheSiteInTheBrowser)
{
    desktop.web.site = u"http://maker.example"_s;

    Choose("Mnu_Web");

    EXPECT_EQ(desktop.browser.opened, QStringList{u"http://maker.example"_s});
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(WebLink, NamesTheAddressWhenTheBrowserDoesNotOpen)
{
    desktop.web.site = u"http://maker.example"_s;
    desktop.browser.canOpen = false;

    Choose("Mnu_Web");

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(messages.shown[0].text.contains(u"http://maker.example"_s));
}

TEST_F(WebLink, WorksInTheAboutWindowToo)
{
    desktop.web.site = u"http://maker.example"_s;
    script.On("frmAbout", [](QWidget& about) {
        Click(Control<QPushButton>(about, "lblWeb"));
        about.close();
    });

    Choose("Mnu_About");

    EXPECT_EQ(desktop.browser.opened, QStringList{u"http://maker.example"_s});
}

} // namespace stoikal
