#include "shell_fixture.h"

#include "shell/help_topics.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QWindow>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The windows about elements and masses that stand beside a run.
class ChemistryTools : public StartedShellTest
{
protected:
    void SetUp() override
    {
        StartedShellTest::SetUp();
        shell->MainWindow().activateWindow();
        Settle();
        QObject::connect(&shell->Events(), &WindowEvents::HelpRequested,
                         [this](const QString& name) { topics << help_topics::TopicOf(name).value_or(-1); });
    }

    void ChooseAndSettle(const char* entry)
    {
        Choose(entry);
        Settle();
    }

    /// Opened or not, shown or hidden.
    int Count(const char* name)
    {
        return static_cast<int>(shell->MainWindow().findChildren<QWidget*>(QLatin1String(name)).size());
    }

    QWidget& Window(const char* name) { return Control<QWidget>(shell->MainWindow(), name); }
    QAbstractButton& Cell(int index)
    {
        return Control<QAbstractButton>(Window("frmTableauPeriodique"),
                                        qPrintable(ArrayName("cmdAtome", index)));
    }
    QString ElementShown() { return Control<QLabel>(Window("frmDataAtomes"), "lblData(0)").text(); }
    QLineEdit& Formula() { return Control<QLineEdit>(Window("frmCalMol"), "txtMolecule"); }
    QString Mass() { return Control<QLabel>(Window("frmCalMol"), "lblCalMol").text(); }

    void ChooseElement(int index)
    {
        Click(Cell(index));
        Settle();
    }

    void CloseByTitleBar(const char* name)
    {
        Window(name).close();
        Settle();
    }

    void StorePlace(const QString& section, const QString& left, const QString& top)
    {
        EXPECT_TRUE(shell->UserSettings().Write(section, u"Left"_s, left));
        EXPECT_TRUE(shell->UserSettings().Write(section, u"Top"_s, top));
    }

    /// The mouse moves over a window while the calculator is gone.
    void ExpectTheClosedCalculatorToBeNoticedBy(QWindow* handle)
    {
        ASSERT_NE(handle, nullptr);
        ASSERT_TRUE(Entry("Mnu_Calc").isChecked());
        QTest::mouseMove(handle, QPoint(2, 2));
        QTest::mouseMove(handle, QPoint(3, 3));
        Settle();
        EXPECT_FALSE(Entry("Mnu_Calc").isChecked());
    }

    QList<int> topics;
};

} // namespace

TEST_F(ChemistryTools, KeepTheElementInFocusWhenTheTableIsMadeSmall)
{
    ChooseAndSettle("Mnu_Tableau");
    ASSERT_EQ(QApplication::focusWidget(), &Cell(0));

    Window("frmTableauPeriodique").parentWidget()->showNormal();
    Settle();

    EXPECT_EQ(QApplication::focusWidget(), &Cell(0));
}

TEST_F(ChemistryTools, TheTableOpensMaximisedAndIsMarked)
{
    ChooseAndSettle("Mnu_Tableau");

    QWidget& table = Window("frmTableauPeriodique");
    EXPECT_TRUE(table.isVisible());
    EXPECT_TRUE(shell->MainWindow().Area().isAncestorOf(&table));
    EXPECT_TRUE(table.parentWidget()->isMaximized());
    EXPECT_TRUE(Entry("Mnu_Tableau").isChecked());
    EXPECT_TRUE(Cell(0).hasFocus());
}

TEST_F(ChemistryTools, TheTableClosesByItsEntryAndByItsTitleBar)
{
    ChooseAndSettle("Mnu_Tableau");
    ChooseAndSettle("Mnu_Tableau");
    EXPECT_EQ(Count("frmTableauPeriodique"), 0);
    EXPECT_FALSE(Entry("Mnu_Tableau").isChecked());

    ChooseAndSettle("Mnu_Tableau");
    Window("frmTableauPeriodique").parentWidget()->close();
    Settle();
    EXPECT_EQ(Count("frmTableauPeriodique"), 0);
    EXPECT_FALSE(Entry("Mnu_Tableau").isChecked());
}

TEST_F(ChemistryTools, TheTableIsHiddenByARunAndKeepsItsMark)
{
    ChooseAndSettle("Mnu_Tableau");

    OpenFile({u"H2+O2=H2O/2,1,2"_s});

    EXPECT_EQ(Count("frmTableauPeriodique"), 1);
    EXPECT_FALSE(Window("frmTableauPeriodique").isVisible());
    EXPECT_TRUE(Entry("Mnu_Tableau").isChecked());
    ChooseAndSettle("Mnu_Tableau");
    EXPECT_EQ(Count("frmTableauPeriodique"), 0);
    EXPECT_FALSE(Entry("Mnu_Tableau").isChecked());
}

TEST_F(ChemistryTools, TheTableLooksForAClosedCalculator)
{
    Choose("Mnu_Calc");
    desktop.programs.runs = false;
    ChooseAndSettle("Mnu_Tableau");
    ASSERT_TRUE(Entry("Mnu_Calc").isChecked());

    QWidget& frame = Control<QWidget>(Window("frmTableauPeriodique"), "fraTableau");
    QTest::mouseMove(&frame, QPoint(frame.width() / 2, 60));
    QTest::mouseMove(&frame, QPoint(frame.width() / 2 + 1, 60));
    Settle();

    EXPECT_FALSE(Entry("Mnu_Calc").isChecked());
}

TEST_F(ChemistryTools, TheTableOpensTheDataOfAnElement)
{
    ChooseAndSettle("Mnu_Tableau");

    ChooseElement(25);

    EXPECT_TRUE(Window("frmDataAtomes").isVisible());
    EXPECT_TRUE(Window("frmDataAtomes").isActiveWindow());
    EXPECT_EQ(ElementShown(), u"Fer"_s);
}

TEST_F(ChemistryTools, TheTableOpensTheDataByTheKeyboardAlone)
{
    ChooseAndSettle("Mnu_Tableau");

    Press(Cell(0), Qt::Key_Right);
    Press(Cell(1), Qt::Key_Down);
    Press(Cell(9), Qt::Key_Return);
    Settle();

    EXPECT_EQ(ElementShown(), u"Néon"_s);
}

TEST_F(ChemistryTools, AnotherElementReplacesTheOneShown)
{
    ChooseAndSettle("Mnu_Tableau");
    ChooseElement(25);

    ChooseElement(7);

    EXPECT_EQ(Count("frmDataAtomes"), 1);
    EXPECT_EQ(ElementShown(), u"Oxygène"_s);
}

TEST_F(ChemistryTools, TheDataOutliveTheTable)
{
    ChooseAndSettle("Mnu_Tableau");
    ChooseElement(25);

    ChooseAndSettle("Mnu_Tableau");

    EXPECT_EQ(Count("frmTableauPeriodique"), 0);
    EXPECT_TRUE(Window("frmDataAtomes").isVisible());
}

TEST_F(ChemistryTools, TheDataGoByTheirTitleBarAndKeepTheirPlace)
{
    ChooseAndSettle("Mnu_Tableau");
    ChooseElement(25);
    Window("frmDataAtomes").move(123, 45);

    CloseByTitleBar("frmDataAtomes");

    EXPECT_EQ(Count("frmDataAtomes"), 0);
    EXPECT_EQ(Setting("DataAtomes Window", "Left"), u"1845"_s); // 123 * 15
    EXPECT_EQ(Setting("DataAtomes Window", "Top"), u"675"_s); // 45 * 15
    ChooseElement(7);
    EXPECT_EQ(Window("frmDataAtomes").pos(), QPoint(123, 45));
}

TEST_F(ChemistryTools, TheNextElementOpensWhereTheLastOneStood)
{
    ChooseAndSettle("Mnu_Tableau");
    ChooseElement(25);
    Window("frmDataAtomes").move(123, 45);

    ChooseElement(7);

    EXPECT_EQ(Window("frmDataAtomes").pos(), QPoint(123, 45));
}

TEST_F(ChemistryTools, TheDataComeBackIntoSightFromAScreenThatIsGone)
{
    StorePlace(u"DataAtomes Window"_s, u"57600"_s, u"-4500"_s);
    ChooseAndSettle("Mnu_Tableau");

    ChooseElement(25);

    const QWidget& data = Window("frmDataAtomes");
    EXPECT_EQ(data.y(), 0);
    EXPECT_EQ(data.frameGeometry().right(), 1023);
}

TEST_F(ChemistryTools, ClosingAFileTakesTheDataAway)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    ChooseAndSettle("Mnu_Tableau");
    ChooseElement(25);
    messages.answers = {QMessageBox::No};

    ChooseAndSettle("Mnu_Close");

    EXPECT_EQ(Count("frmDataAtomes"), 0);
}

TEST_F(ChemistryTools, TheMassCalculatorOpensOnItsBoxAndIsMarked)
{
    ChooseAndSettle("Mnu_CalMol");

    EXPECT_TRUE(Window("frmCalMol").isVisible());
    EXPECT_TRUE(Window("frmCalMol").isActiveWindow());
    EXPECT_TRUE(Formula().hasFocus());
    EXPECT_TRUE(Entry("Mnu_CalMol").isChecked());
    Type(Formula(), u"H2O"_s);
    EXPECT_EQ(Mass(), u"18,0153 g/mol"_s); // 18.01528
}

TEST_F(ChemistryTools, TheMassCalculatorClosesByItsEntryAndByItsTitleBar)
{
    ChooseAndSettle("Mnu_CalMol");
    ChooseAndSettle("Mnu_CalMol");
    EXPECT_EQ(Count("frmCalMol"), 0);
    EXPECT_FALSE(Entry("Mnu_CalMol").isChecked());

    ChooseAndSettle("Mnu_CalMol");
    CloseByTitleBar("frmCalMol");
    EXPECT_EQ(Count("frmCalMol"), 0);
    EXPECT_FALSE(Entry("Mnu_CalMol").isChecked());
}

TEST_F(ChemistryTools, TheMassCalculatorComesBackEmptyToItsPlace)
{
    ChooseAndSettle("Mnu_CalMol");
    Type(Formula(), u"H2O"_s);
    Window("frmCalMol").move(60, 80);
    ChooseAndSettle("Mnu_CalMol");
    EXPECT_EQ(Setting("CalMol Window", "Left"), u"900"_s); // 60 * 15
    EXPECT_EQ(Setting("CalMol Window", "Top"), u"1200"_s); // 80 * 15

    ChooseAndSettle("Mnu_CalMol");

    EXPECT_EQ(Window("frmCalMol").pos(), QPoint(60, 80));
    EXPECT_EQ(Formula().text(), QString());
    EXPECT_EQ(Mass(), u"- g/mol"_s);
}

TEST_F(ChemistryTools, TheMassCalculatorComesBackIntoSightFromAScreenThatIsGone)
{
    StorePlace(u"CalMol Window"_s, u"-30000"_s, u"30000"_s);

    ChooseAndSettle("Mnu_CalMol");

    const QWidget& calculator = Window("frmCalMol");
    EXPECT_EQ(calculator.x(), 0);
    EXPECT_EQ(calculator.frameGeometry().bottom(), 767);
}

TEST_F(ChemistryTools, TheMassCalculatorFloatsOverARun)
{
    ChooseAndSettle("Mnu_CalMol");

    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    EXPECT_TRUE(Window("frmCalMol").isVisible());
    EXPECT_TRUE(Entry("Mnu_CalMol").isChecked());

    messages.answers = {QMessageBox::Yes};
    ChooseAndSettle("Mnu_Close");
    EXPECT_TRUE(Window("frmCalMol").isVisible());
}

TEST_F(ChemistryTools, TheExerciseNeverCoversABoxOfTheMassCalculator)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    ChooseAndSettle("Mnu_CalMol");
    std::vector<bool> exerciseShown;
    messages.whileOpen
        = [this, &exerciseShown](const Message&) { exerciseShown.push_back(Exercise().isVisible()); };

    Type(Formula(), u"Xy"_s); // An unknown symbol,
    Type(Formula(), u"!"_s); // a refused key and the symbol again,
    Formula().clear();
    Type(Formula(), u"H32768"_s); // and a fault.
    Settle();

    EXPECT_EQ(exerciseShown, (std::vector<bool>{false, false, false, false}));
    EXPECT_TRUE(messages.shown[0].text.startsWith(u"Le symbole 'Xy'"_s));
    EXPECT_TRUE(messages.shown[1].text.startsWith(u"Le caractère saisie (!)"_s));
    EXPECT_TRUE(messages.shown[2].text.startsWith(u"Le symbole 'Xy'"_s));
    EXPECT_TRUE(messages.shown[3].text.startsWith(u"Erreur d'exécution"_s));
    EXPECT_TRUE(Exercise().isVisible());
    EXPECT_TRUE(Window("frmCalMol").isActiveWindow());
    EXPECT_TRUE(Formula().hasFocus());
    EXPECT_EQ(ends, 0);
}

TEST_F(ChemistryTools, TheExerciseComesBackWithoutTakingTheKeyboardFromTheMassCalculator)
{
    /// How a window asks to be shown.
    struct Showing : QObject {
        int times = 0;
        int withoutActivating = 0;
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            if (event->type() == QEvent::Show) {
                ++times;
                if (static_cast<QWidget*>(watched)->testAttribute(Qt::WA_ShowWithoutActivating))
                    ++withoutActivating;
            }
            return false;
        }
    };
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    ChooseAndSettle("Mnu_CalMol");
    Showing showing;
    Exercise().installEventFilter(&showing);

    Type(Formula(), u"Xy"_s);
    Settle();

    EXPECT_EQ(showing.times, 1);
    EXPECT_EQ(showing.withoutActivating, 1);
    EXPECT_FALSE(Exercise().testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_TRUE(Formula().hasFocus());
}

TEST_F(ChemistryTools, TheMassCalculatorTellsAnUnknownSymbolWithoutARun)
{
    ChooseAndSettle("Mnu_CalMol");

    Type(Formula(), u"Xy"_s);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Symbole d'atome inconnu"_s);
    EXPECT_EQ(FindWindow("frmEquation"), nullptr);
}

TEST_F(ChemistryTools, TheMassCalculatorLooksForAClosedCalculator)
{
    Choose("Mnu_Calc");
    desktop.programs.runs = false;
    ChooseAndSettle("Mnu_CalMol");

    ExpectTheClosedCalculatorToBeNoticedBy(Window("frmCalMol").windowHandle());
}

TEST_F(ChemistryTools, AskForTheirOwnHelpPages)
{
    ChooseAndSettle("Mnu_Tableau");
    Press(Cell(25), Qt::Key_F1);
    ChooseElement(25);
    Press(Window("frmDataAtomes"), Qt::Key_F1);
    ChooseAndSettle("Mnu_CalMol");
    Press(Formula(), Qt::Key_F1);

    EXPECT_EQ(topics, (QList<int>{1200, 1300, 1500}));
}

} // namespace stoikal
