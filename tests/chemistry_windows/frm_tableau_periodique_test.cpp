#include "chemistry/windows/frm_tableau_periodique.h"
#include "forms/window_events.h"

#include "base/twips.h"
#include "chemistry/windows/element_button.h"
#include "support/window_driver.h"

#include <QGroupBox>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The window by itself, as large as it needs to be for cells as wide as they may be.
class FrmTableau : public testing::Test
{
protected:
    FrmTableau() { Resize(1000, 900); }

    void Resize(int width, int height)
    {
        window.resize(width, height);
        window.show();
        window.activateWindow();
        Settle();
    }

    ElementButton& Cell(int index)
    {
        return Control<ElementButton>(window, qPrintable(ArrayName("cmdAtome", index)));
    }
    ElementButton& Cell(const char* symbol) { return Cell(ElementIndex(QString::fromLatin1(symbol))); }
    QLabel& Label(const char* name) { return Control<QLabel>(window, name); }
    QWidget& Frame() { return Control<QWidget>(window, "fraTableau"); }
    QGroupBox& Legend() { return Control<QGroupBox>(window, "fraLegende"); }

    QColor Caption(int index) { return Cell(index).palette().color(QPalette::ButtonText); }

    /// The element under the keyboard.
    QString Focused()
    {
        const auto* const cell = qobject_cast<QPushButton*>(QApplication::focusWidget());
        return cell == nullptr ? u"(rien)"_s : cell->text();
    }

    /// Everything is in its place, whole, and nothing covers anything.
    void ExpectNothingCut(const QString& where)
    {
        const std::string at = where.toStdString();
        EXPECT_TRUE(window.rect().contains(Frame().geometry())) << at;
        EXPECT_TRUE(window.rect().contains(Legend().geometry())) << at;
        EXPECT_FALSE(Frame().geometry().intersects(Legend().geometry())) << at;
        for (int index = 0; index < kElementCount; ++index) {
            EXPECT_TRUE(Frame().rect().contains(Cell(index).geometry())) << at << " cell " << index;
            EXPECT_GE(Cell(index).width(), 20) << at;
        }
        for (int sample = 0; sample < 8; ++sample) {
            const QLabel& label = Label(qPrintable(u"Label%1"_s.arg(sample + 1)));
            EXPECT_TRUE(Legend().rect().contains(label.geometry())) << at << " sample " << sample;
            EXPECT_TRUE(Legend().rect().contains(Cell(kElementCount + sample).geometry())) << at;
            EXPECT_GE(label.width(), label.sizeHint().width()) << at << " sample " << sample;
        }
        for (const char* const name : {"lblTitre", "lblAc(0)", "lblAc(1)", "lblLig(0)", "lblCol(17)"}) {
            const QLabel& label = Label(name);
            EXPECT_TRUE(Frame().rect().contains(label.geometry())) << at << ' ' << name;
            EXPECT_GE(label.width(), label.sizeHint().width()) << at << ' ' << name;
            for (int index = 0; index < kElementCount; ++index)
                EXPECT_FALSE(label.geometry().intersects(Cell(index).geometry()))
                    << at << ' ' << name << " over " << index;
        }
    }

    frmTableauPeriodique window{nullptr};
};

/// The window as a child of a main area.
class FrmTableauInArea : public testing::Test
{
protected:
    FrmTableauInArea()
    {
        area.resize(1024, 700);
        area.show();
        child = area.addSubWindow(window);
        child->showMaximized();
        Settle();
    }

    double CellPoints() { return Control<ElementButton>(*window, "cmdAtome(25)").font().pointSizeF(); }
    double HeadPoints() { return Control<QLabel>(*window, "lblCol(3)").font().pointSizeF(); }

    QMdiArea area;
    frmTableauPeriodique* window = new frmTableauPeriodique(nullptr);
    QMdiSubWindow* child = nullptr;
};

} // namespace

TEST_F(FrmTableau, HasItsTitles)
{
    EXPECT_EQ(window.windowTitle(), u"Tableau périodique"_s);
    EXPECT_EQ(Label("lblTitre").text(), u"Classification périodique des éléments"_s);
    EXPECT_EQ(Label("lblAc(0)").text(), u" lanthanides"_s);
    EXPECT_EQ(Label("lblAc(1)").text(), u" actinides"_s);
    EXPECT_EQ(Label("lblCol(0)").text(), u"1"_s);
    EXPECT_EQ(Label("lblCol(17)").text(), u"18"_s);
    EXPECT_EQ(Label("lblLig(6)").text(), u"7"_s);
}

TEST_F(FrmTableau, HasACellForEachElement)
{
    for (int index = 0; index < kElementCount; ++index) {
        EXPECT_EQ(Cell(index).text(), ElementSymbol(index));
        EXPECT_EQ(Cell(index).cursor().shape(), Qt::PointingHandCursor);
        EXPECT_TRUE(Cell(index).isEnabled());
    }
}

TEST_F(FrmTableau, NamesTheElementUnderTheMouse)
{
    QTest::mouseMove(&Cell("Fe"), QPoint(9, 9));
    QTest::mouseMove(&Cell("Fe"), QPoint(10, 10));
    Settle();
    EXPECT_EQ(Cell("Fe").toolTip(), u"Fer (26)"_s);

    QTest::mouseMove(&Cell("Uuo"), QPoint(9, 9));
    QTest::mouseMove(&Cell("Uuo"), QPoint(10, 10));
    Settle();
    EXPECT_EQ(Cell("Uuo").toolTip(), u"Ununoctium (118)"_s);
}

TEST_F(FrmTableau, ColoursTheCaptionsByState)
{
    for (int index = 0; index < kElementCount; ++index)
        EXPECT_EQ(Caption(index), StateColour(StateOf(index))) << index;
    EXPECT_EQ(Caption(79), QColor(0, 0, 255)); // Mercury.
    EXPECT_EQ(Caption(42), QColor(0, 200, 250)); // Technetium.
}

TEST_F(FrmTableau, ShowsEachStateInTheLegend)
{
    EXPECT_EQ(Legend().title(), u"Légende : "_s);
    const QStringList words{
        u"Non-métaux"_s,     u"Métaux"_s, u"Semi-conducteurs"_s,    u"Solide"_s,
        u"Liquide (30°C)"_s, u"Gazeux"_s, u"obtenu par synthèse"_s, u"non encore synthétisé"_s};
    for (int sample = 0; sample < 8; ++sample)
        EXPECT_EQ(Label(qPrintable(u"Label%1"_s.arg(sample + 1))).text(), words.at(sample));
    EXPECT_EQ(Caption(121), QColor(0, 0, 0));
    EXPECT_EQ(Caption(122), QColor(0, 0, 255));
    EXPECT_EQ(Caption(123), QColor(255, 0, 0));
    EXPECT_EQ(Caption(124), QColor(0, 200, 250));
    EXPECT_EQ(Caption(125), QColor(255, 0, 255));
}

TEST_F(FrmTableau, NeverTellsAStateByItsColourAlone)
{
    // The samples differ by their face or by a mark, as the cells do.
    EXPECT_TRUE(Cell(122).font().underline());
    EXPECT_TRUE(Cell(123).font().italic());
    EXPECT_TRUE(Cell("Hg").font().underline());
    EXPECT_TRUE(Cell("Ne").font().italic());
    EXPECT_FALSE(Cell("Fe").font().underline() || Cell("Fe").font().italic());
    EXPECT_EQ(Cell("Hg").accessibleName(), u"Mercure (80), métal, liquide à 30\u00A0°C"_s);
    EXPECT_EQ(Cell("Ne").accessibleName(), u"Néon (10), non-métal, gazeux"_s);
    EXPECT_EQ(Cell("Si").accessibleName(), u"Silicium (14), semi-conducteur, solide"_s);
    EXPECT_EQ(Cell("Pu").accessibleName(), u"Plutonium (94), métal, obtenu par synthèse"_s);
    for (int sample = 0; sample < 8; ++sample) {
        EXPECT_EQ(Cell(kElementCount + sample).accessibleName(),
                  Label(qPrintable(u"Label%1"_s.arg(sample + 1))).text());
    }
}

TEST_F(FrmTableau, LaysTheGridOutByItsWidth)
{
    // (15000 - 720) / 18 = 793.33 twips, 52.9 pixels; the first cell stands at 16.
    const QWidget& head = Label("lblCol(0)");
    EXPECT_EQ(Frame().width(), 1000 - 24);
    EXPECT_EQ(Cell("H").pos(), QPoint(16, head.geometry().bottom() + 1 + 3));
    EXPECT_NEAR(Cell("H").width(), 53, 1);
    EXPECT_NEAR(Cell("H").height(), 53, 1);
    EXPECT_NEAR(Cell("He").x(), 16 + 17 * 52.889, 1); // 915.1
    EXPECT_NEAR(Cell("Ce").y() - Cell("H").y(), 7.1 * 52.889, 1);
    EXPECT_NEAR(Cell("Th").y() - Cell("H").y(), 8.1 * 52.889, 1);
    EXPECT_EQ(Cell("La").x(), Cell("Ce").x());
}

TEST_F(FrmTableau, CentresItsHeads)
{
    const auto centre = [](const QWidget& widget) { return widget.x() + widget.width() / 2.0; };
    for (int column = 0; column < 18; ++column) {
        const QWidget& head = Label(qPrintable(ArrayName("lblCol", column)));
        const QWidget& cell = Cell(18 + column); // The fourth row has one in each column.
        EXPECT_NEAR(centre(head), centre(cell), 1.5) << column;
    }
    const char* const firsts[]{"H", "Li", "Na", "K", "Rb", "Cs", "Fr"};
    for (int row = 0; row < 7; ++row) {
        const QWidget& head = Label(qPrintable(ArrayName("lblLig", row)));
        const QWidget& cell = Cell(firsts[row]);
        EXPECT_NEAR(head.geometry().center().y(), cell.geometry().center().y(), 1.5);
        EXPECT_EQ(head.geometry().right() + 1, 12); // 60 twips left of 16
    }
    for (int row = 0; row < 2; ++row) {
        const QWidget& head = Label(qPrintable(ArrayName("lblAc", row)));
        const QWidget& cell = Cell(row == 0 ? 57 : 89);
        EXPECT_EQ(head.geometry().right() + 1, cell.x() - 7); // 100 twips
        EXPECT_NEAR(head.geometry().center().y(), cell.geometry().center().y(), 1.5);
    }
    // Between the right side of the first column and the left one of the thirteenth.
    EXPECT_NEAR(centre(Label("lblTitre")), (Cell("H").geometry().right() + 1 + Cell("B").x()) / 2.0, 1.5);
}

TEST_F(FrmTableau, HalvesItsCellsWithItsWidth)
{
    const double whole = Cell("He").x() - Cell("H").x();

    // 720 twips are 48 pixels: (1000 - 48) / 2 + 48 = 524.
    Resize(524, 900);

    EXPECT_NEAR(Cell("He").x() - Cell("H").x(), whole / 2, 1);
    EXPECT_NEAR(Cell("Th").y() - Cell("H").y(), 8.1 * 52.889 / 2, 1);
}

TEST_F(FrmTableau, CutsNothingOnTheUsualScreens)
{
    // What a menu bar and a task bar leave; at 150 and 200 % a screen has fewer of our pixels.
    for (const QSize& size : {QSize(1024, 680), QSize(1366, 690), QSize(1920, 1000), QSize(1280, 660),
                              QSize(683, 430), QSize(590, 430), QSize(910, 440), QSize(3840, 2080)}) {
        Resize(size.width(), size.height());
        ExpectNothingCut(u"%1 x %2"_s.arg(size.width()).arg(size.height()));
    }
}

TEST_F(FrmTableau, WritesAllSymbolsOfSmallCellsInOneSmallerSize)
{
    Resize(910, 440); // 1366 x 768 at 150 %

    const double points = Cell("Mn").font().pointSizeF();
    EXPECT_LT(points, 14);
    EXPECT_GE(points, 9);
    EXPECT_EQ(Cell("H").font().pointSizeF(), points);
    EXPECT_LE(Cell("Mn").fontMetrics().horizontalAdvance(u"Mn"_s), Cell("Mn").width() - 4);
}

TEST_F(FrmTableau, FollowsTheArrowsByPosition)
{
    Cell("H").setFocus();

    Press(Cell("H"), Qt::Key_Right);
    EXPECT_EQ(Focused(), u"He"_s);
    Press(Cell("He"), Qt::Key_Down);
    EXPECT_EQ(Focused(), u"Ne"_s);
    Press(Cell("Ne"), Qt::Key_Left);
    EXPECT_EQ(Focused(), u"F"_s);
    Press(Cell("F"), Qt::Key_Up);
    EXPECT_EQ(Focused(), u"He"_s); // Nothing above in the column: the nearest cell higher up.
}

TEST_F(FrmTableau, GoesFromTheGridToTheRowsBelowByTheArrows)
{
    Cell("Ac").setFocus();

    Press(Cell("Ac"), Qt::Key_Down);
    EXPECT_EQ(Focused(), u"Ce"_s);
    Press(Cell("Ce"), Qt::Key_Down);
    EXPECT_EQ(Focused(), u"Th"_s);
    Press(Cell("Th"), Qt::Key_Down);
    EXPECT_EQ(Focused(), u"Th"_s);
}

TEST_F(FrmTableau, AsksForAnElementByAClick)
{
    QSignalSpy chosen(&window, &frmTableauPeriodique::ElementChosen);

    Click(Cell("Fe"));

    ASSERT_EQ(chosen.size(), 1);
    EXPECT_EQ(chosen[0][0].toInt(), 25);
}

TEST_F(FrmTableau, AsksForAnElementByEnter)
{
    QSignalSpy chosen(&window, &frmTableauPeriodique::ElementChosen);
    Cell("H").setFocus();

    Press(Cell("H"), Qt::Key_Down);
    Press(Cell("Li"), Qt::Key_Return);

    ASSERT_EQ(chosen.size(), 1);
    EXPECT_EQ(chosen[0][0].toInt(), 2);
}

TEST_F(FrmTableau, KeepsTheLegendOutOfTheWayOfTheKeyboard)
{
    QSignalSpy chosen(&window, &frmTableauPeriodique::ElementChosen);

    for (int sample = 0; sample < 8; ++sample) {
        EXPECT_EQ(Cell(kElementCount + sample).focusPolicy(), Qt::NoFocus);
        Click(Cell(kElementCount + sample));
    }

    EXPECT_EQ(chosen.size(), 0);
}

TEST_F(FrmTableau, AsksForHelpByF1OnACell)
{
    const WindowEvents events;
    QSignalSpy asked(&events, &WindowEvents::HelpRequested);

    Press(Cell("Fe"), Qt::Key_F1);

    EXPECT_EQ(asked.size(), 1);
}

TEST_F(FrmTableau, TellsOfTheMouseOverItsFrameAndItsCells)
{
    const WindowEvents events;
    QSignalSpy moved(&events, &WindowEvents::PointerMoved);

    QTest::mouseMove(&Frame(), QPoint(Frame().width() / 2, Cell("H").y() + 4));
    QTest::mouseMove(&Frame(), QPoint(Frame().width() / 2 + 1, Cell("H").y() + 4));
    Settle();
    EXPECT_GE(moved.size(), 1);

    moved.clear();
    QTest::mouseMove(&window, QPoint(2, window.height() - 2));
    QTest::mouseMove(&window, QPoint(3, window.height() - 2));
    Settle();
    EXPECT_GE(moved.size(), 1);
}

TEST_F(FrmTableauInArea, ShowsLargeLettersWhenItIsMaximised)
{
    EXPECT_TRUE(child->isMaximized());
    EXPECT_EQ(CellPoints(), 14);
    EXPECT_EQ(HeadPoints(), 14);
}

TEST_F(FrmTableauInArea, HasOneSmallSize)
{
    child->showNormal();
    Settle();

    EXPECT_EQ(child->size(), QSize(507, 433)); // 7600 and 6500 twips
    EXPECT_EQ(CellPoints(), 7);
    EXPECT_EQ(HeadPoints(), 8);
}

TEST_F(FrmTableauInArea, ComesBackToItsSmallSizeWhenItIsDragged)
{
    child->showNormal();
    Settle();

    child->resize(700, 300);
    Settle();

    EXPECT_EQ(child->size(), QSize(507, 433));
}

TEST_F(FrmTableauInArea, CutsNothingInItsSmallSize)
{
    child->showNormal();
    Settle();

    const QWidget& frame = Control<QWidget>(*window, "fraTableau");
    const QWidget& legend = Control<QWidget>(*window, "fraLegende");
    EXPECT_TRUE(window->rect().contains(frame.geometry()));
    EXPECT_TRUE(window->rect().contains(legend.geometry()));
    for (int sample = 0; sample < 8; ++sample) {
        const QLabel& label = Control<QLabel>(*window, qPrintable(u"Label%1"_s.arg(sample + 1)));
        EXPECT_TRUE(legend.rect().contains(label.geometry())) << sample;
        EXPECT_GE(label.width(), label.sizeHint().width()) << sample;
    }
    const QLabel& title = Control<QLabel>(*window, "lblTitre");
    EXPECT_GE(title.width(), title.sizeHint().width());
    EXPECT_LT(title.geometry().right(), Control<QWidget>(*window, "cmdAtome(4)").x());
    EXPECT_GT(title.x(), Control<QWidget>(*window, "cmdAtome(3)").geometry().right());
}

TEST_F(FrmTableauInArea, GrowsAgain)
{
    child->showNormal();
    Settle();
    child->showMaximized();
    Settle();

    EXPECT_EQ(CellPoints(), 14);
    EXPECT_EQ(child->width(), area.viewport()->width());
}

} // namespace stoikal
