#include "forms/species_label.h"
#include "progress_windows/progress_bench.h"

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QByteArray
    kMany("Fe{2+}<aq>+MnO4{-}<aq>+H{+}<aq>=Fe{3+}<aq>+Mn{2+}<aq>+H2O<l>/5,1,8,5,1,4#Q0.01,Q0.003,Q0.1\n");
const char* const kRows[]{"txtMasMol", "txtMasse", "txtVolGaz", "txtQmat0", "txtQmati", "txtQmatf"};

class ProgressLayout : public ProgressBench
{
protected:
    /// Where a control stands in the window.
    QRect Place(const QWidget& widget)
    {
        return QRect(widget.mapTo(window.get(), QPoint(0, 0)), widget.size());
    }
    QRect Place(const char* name) { return Place(Control<QWidget>(*window, name)); }
};

} // namespace

TEST_F(ProgressLayout, IsHighEnoughForTheTable)
{
    OpenSeries(kCarbon);

    EXPECT_GE(window->height(), 442); // 6630 twips
    EXPECT_EQ(Box(0).x(), 104); // 1560 twips
    EXPECT_GE(Place("cmdValidMVQ").y(), 372); // 5580 twips
    EXPECT_EQ(Place("cmdValidMVQ").y(), Place("cmdNext").y());
    EXPECT_EQ(Place("cmdValidMVQ").y(), Place("chkHistoMol").y());
}

TEST_F(ProgressLayout, CentresItsButtonsRightOfTheTitles)
{
    for (const QByteArray& file : {QByteArray(kCarbon), kMany}) {
        OpenSeries(file);
        const int middle = (96 + window->width()) / 2; // right of 1440 twips
        EXPECT_NEAR(Place("cmdValidMassMol").center().x(), middle, 1);
        EXPECT_NEAR(Place("cmdValidMVQ").center().x(), middle, 1);
        EXPECT_EQ(Place("cmdNext").left() - Place("cmdValidMVQ").right() - 1, 4); // 60 twips
    }
}

TEST_F(ProgressLayout, CentresTheInstructionBetweenTheScoreAndTheWindowsEdge)
{
    OpenSeries(kCarbon);
    const QRect score = Place("lblScore");
    const QRect instruction = Place("lblInstruction");

    EXPECT_NEAR(instruction.center().x(), (score.right() + window->width()) / 2, 1);
}

TEST_F(ProgressLayout, FitsASmallScreenWithSixSpecies)
{
    OpenSeries(kMany);

    EXPECT_LE(window->width(), 1024);
    EXPECT_LE(window->height(), 600);
}

TEST_F(ProgressLayout, StandsSpeciesCloserWhereTheScreenIsNarrow)
{
    places.LargeurUtile = 60000;
    OpenSeries(kMany);
    const int wide = window->width();
    places.LargeurUtile = FromPixels(wide - 1);
    OpenSeries(kMany);

    EXPECT_LT(window->width(), wide);
    for (int slot = 0; slot < 6; ++slot) {
        EXPECT_GE(Species(slot).width(), dynamic_cast<SpeciesLabel&>(Species(slot)).DrawnWidth()) << slot;
        EXPECT_GE(Cell("txtQmati", slot).width(), Species(slot).width()) << slot;
    }
}

TEST_F(ProgressLayout, StandsEachColumnUnderItsCoefficient)
{
    OpenSeries(kMany);
    for (int slot = 0; slot < 6; ++slot) {
        int bottom = Place(Box(slot)).bottom();
        for (const char* const row : kRows) {
            const QRect cell = Place(Cell(row, slot));
            EXPECT_EQ(cell.left(), Place(Box(slot)).left()) << row << slot;
            EXPECT_GT(cell.top(), bottom) << row << slot;
            bottom = cell.bottom();
        }
        EXPECT_GT(Place("cmdValidMVQ").top(), bottom);
    }
}

TEST_F(ProgressLayout, LeavesRoomBetweenTheColumns)
{
    OpenSeries("C+O+H=C+O+H/1,1,1,1,1,1#Q1\n");

    for (const int slot : {0, 1, 2, 3, 4})
        EXPECT_LT(Place(Cell("txtQmati", slot)).right(), Place(Cell("txtQmati", slot + 1)).left()) << slot;
    const int text = QFontMetrics(Cell("txtQmati", 0).font()).horizontalAdvance(u"ni(0)-1*xmax"_s);
    EXPECT_GT(Cell("txtQmati", 0).width(), text + 8);
}

TEST_F(ProgressLayout, HidesTheColumnsOfEmptySlots)
{
    OpenSeries(kCarbon);

    for (const char* const row : kRows) {
        for (const int slot : {0, 1, 3})
            EXPECT_TRUE(Cell(row, slot).isVisible()) << row << slot;
        for (const int slot : {2, 4, 5})
            EXPECT_FALSE(Cell(row, slot).isVisible()) << row << slot;
    }
}

TEST_F(ProgressLayout, ShowsEachTitleWhole)
{
    OpenSeries(kCarbon);
    const QStringList titles{
        u"Masse molaire (en g/mol)"_s, u"Masse (en g)"_s,    u"Volume (en L)"_s, u"Etat initial (mol)"_s,
        u"Etat intermédiaire (mol)"_s, u"Etat final (mol)"_s};
    for (int row = 0; row < 6; ++row) {
        const auto& title = Control<QLabel>(*window, qPrintable(ArrayName("lblEtat", row)));
        EXPECT_EQ(title.text(), titles[row]);
        const QRect needed = title.fontMetrics().boundingRect(QRect(0, 0, title.width(), 1000),
                                                              Qt::TextWordWrap, title.text());
        EXPECT_LE(needed.width(), title.width()) << row;
        EXPECT_LE(needed.height(), title.height()) << row;
        EXPECT_LT(Place(title).right(), Place(Box(0)).left()) << row;
        EXPECT_NEAR(Place(title).center().y(), Place(Cell(kRows[row], 0)).center().y(), 2) << row;
    }
}

TEST_F(ProgressLayout, CutsTheRulesShortOfTheBandsEnd)
{
    OpenSeries(kMany);
    for (int i = 1; i <= 7; ++i) {
        const QRect rule = Place(qPrintable(ArrayName("linHoriz", i)));
        const int bandEnd = std::max(Place(Species(5)).right(), Place(Cell("txtQmati", 5)).right());
        EXPECT_NEAR(rule.right(), bandEnd - 7, 1) << i; // 100 twips
        EXPECT_EQ(rule.height(), 1) << i;
    }
}

TEST_F(ProgressLayout, RulesTheTableUnderTheMiddleOfTheArrow)
{
    OpenSeries(kCarbon);
    const int middle = Place("imgFleche").center().x();

    for (const char* const rule : {"Line4", "Line5"}) {
        EXPECT_EQ(Place(rule).left(), middle) << rule;
        EXPECT_EQ(Place(rule).width(), 1) << rule;
    }
    EXPECT_LT(Place("Line1").right(), Place(Box(0)).left());
    EXPECT_LT(Place("Line2").right(), Place(Box(0)).left());
}

TEST_F(ProgressLayout, CentresTheButtonsRightOfTheTitles)
{
    OpenSimulation(kCarbon);
    const double middle = (Place(Box(0)).left() - 8 + window->width()) / 2.0;

    EXPECT_NEAR(Place("cmdValidMassMol").center().x(), middle, 2);
    EXPECT_NEAR(Place("cmdValidMVQ").center().x(), middle, 2);
    // 60 twips
    EXPECT_EQ(Place("cmdNext").left() - Place("cmdValidMVQ").right() - 1, 4);
    EXPECT_LT(Place("cmdNext").right(), window->width());
    EXPECT_LT(Place("chkHistoMol").right(), Place("cmdValidMVQ").left());
}

TEST_F(ProgressLayout, HasRoomForItsButtonsBesideAShortEquation)
{
    OpenSimulation("A=B/1,1#Q1\n");

    EXPECT_LT(Place("cmdNext").right(), window->width());
    EXPECT_LT(Place("chkHistoMol").right(), Place("cmdValidMVQ").left());
    EXPECT_LT(Place("chkDataMol").right(), Place("cmdValidMassMol").left());
}

TEST_F(ProgressLayout, SaysTheVerdictBelowTheButtons)
{
    OpenSeries(kCarbon);
    PassMassesOfCarbon();

    const auto& verdict = Control<QLabel>(*window, "lblVerdict");
    EXPECT_EQ(verdict.text(), u"Bonne réponse\u00A0: 5 points de plus."_s);
    EXPECT_GE(Place(verdict).top(), Place("cmdValidMVQ").bottom());
    EXPECT_LE(Place(verdict).bottom(), window->height());
}

TEST_F(ProgressLayout, IsAbsentFromABalancingFile)
{
    OpenProgress("H2+O2=H2O/2,1,2\n", RunKind::Balancing);

    EXPECT_FALSE(pane->isVisible());
    EXPECT_EQ(window->height(), 135); // 2025 twips
    EXPECT_EQ(Box(0).x(), 7); // 100 twips
}

TEST_F(ProgressLayout, IsWalkedInTheOrderOfTheEye)
{
    OpenSimulation(kCarbon);
    QStringList walked;
    QWidget* at = &Cell("txtMasMol", 0);
    for (int i = 0; i < 200 && at != &Next(); ++i) {
        if (at->focusPolicy() & Qt::TabFocus && at->isVisible())
            walked << at->objectName();
        at = at->nextInFocusChain();
    }

    EXPECT_EQ(walked.join(u' '),
              u"txtMasMol(0) txtMasMol(1) txtMasMol(3) chkDataMol cmdValidMassMol "
              "txtMasse(0) txtMasse(1) txtMasse(3) txtVolGaz(0) txtVolGaz(1) txtVolGaz(3) "
              "txtQmat0(0) txtQmat0(1) txtQmat0(3) txtQmati(0) txtQmati(1) txtQmati(3) "
              "txtQmatf(0) txtQmatf(1) txtQmatf(3) chkHistoMol cmdValidMVQ"_s);
}

TEST_F(ProgressLayout, NamesItsBoxesForReaders)
{
    OpenSeries(kCarbon);

    EXPECT_EQ(Cell("txtMasMol", 1).accessibleName(), u"Masse molaire (en g/mol) de O2"_s);
    EXPECT_EQ(Cell("txtQmatf", 3).accessibleName(), u"Etat final (mol) de CO2"_s);
    EXPECT_EQ(ValidateMasses().accessibleName(), u"Valider masses molaires"_s);
    EXPECT_EQ(
        Data().toolTip(),
        u"Pour ouvrir/fermer la fenêtre de données des masses molaires atomiques et du volume molaire"_s);
    EXPECT_EQ(Drawings().text(), u"Animations"_s);
    EXPECT_EQ(Drawings().toolTip(), u"Pour accéder à la fenêtre de simulation"_s);
}

TEST_F(ProgressLayout, MakesALongIntermediateTextSmallerUntilItFits)
{
    OpenSimulation(kCarbon);
    ProgressBox& box = Cell("txtQmati", 0);
    const double usual = box.font().pointSizeF();
    const int height = box.height();

    FillRow("txtQmat0", {u"0,0198812"_s});

    EXPECT_EQ(box.text(), u"0,0198812-1*xmax"_s);
    EXPECT_LT(box.font().pointSizeF(), usual);
    EXPECT_LT(QFontMetrics(box.font()).horizontalAdvance(box.text()), box.width() - 6);
    EXPECT_EQ(box.toolTip(), QString());
    EXPECT_EQ(box.height(), height);

    FillRow("txtQmat0", {u"2"_s});

    EXPECT_EQ(box.font().pointSizeF(), usual);
}

TEST_F(ProgressLayout, TellsInATipWhatNoTypeMakesFit)
{
    OpenSimulation(kCarbon);
    const QString amount(30, u'1');

    FillRow("txtQmat0", {amount});

    EXPECT_EQ(Cell("txtQmati", 0).toolTip(), amount + u"-1*xmax"_s);
}

} // namespace stoikal
