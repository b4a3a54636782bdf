#include "progress_windows/progress_bench.h"

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class ProgressSimulation : public ProgressBench
{
protected:
    /// The colour that most of the button's left part is drawn in.
    QColor ButtonColour() { return Drawn(ValidateTable()); }
    QColor OrdinaryColour()
    {
        QPushButton other(u"Valider tableau"_s);
        other.setFixedSize(ValidateTable().size());
        other.setEnabled(ValidateTable().isEnabled());
        return Drawn(other);
    }

private:
    static QColor Drawn(QWidget& button)
    {
        return QColor(button.grab().toImage().pixel(6, button.height() / 2));
    }
};

} // namespace

TEST_F(ProgressSimulation, ShowsTheWholeTableAtOnce)
{
    OpenSimulation(kCarbon);

    EXPECT_EQ(Instruction(), u"Faites varier les quantités de matière"_s);
    EXPECT_EQ(Row("txtMasMol"), u"12,0|32,0||44,0||"_s);
    EXPECT_EQ(Row("txtMasse"), u"36,0|64,0||88,0||"_s);
    EXPECT_EQ(Row("txtVolGaz"), u"|44,8||44,8||"_s);
    EXPECT_EQ(Row("txtQmat0"), u"3,0|2,0||0||"_s);
    EXPECT_EQ(Row("txtQmati"), u"3,0-1*xmax|2,0-1*xmax||1*xmax||"_s);
    EXPECT_EQ(Row("txtQmatf"), u"1,00|0||2,0||"_s);
}

TEST_F(ProgressSimulation, OpensTheInitialAmountsOfTheReactantsAlone)
{
    OpenSimulation(kCarbon);

    EXPECT_EQ(Open("txtQmat0"), u"0 1"_s);
    for (const char* const array : {"txtMasMol", "txtMasse", "txtVolGaz", "txtQmati", "txtQmatf"})
        EXPECT_EQ(Open(array), QString()) << array;
    EXPECT_FALSE(ValidateMasses().isEnabled());
    EXPECT_FALSE(ValidateTable().isEnabled());
    EXPECT_EQ(ButtonColour(), OrdinaryColour());
    EXPECT_TRUE(Next().isVisible());
    EXPECT_TRUE(Drawings().isVisible());
    EXPECT_TRUE(Drawings().isEnabled());
    EXPECT_TRUE(Cell("txtQmat0", 0).hasFocus());
}

TEST_F(ProgressSimulation, TurnsTheButtonRedWhenTheTableIsOutOfDate)
{
    OpenSimulation(kCarbon);

    FillRow("txtQmat0", {u"4"_s});

    EXPECT_EQ(ButtonColour(), QColor(255, 0, 0));
    EXPECT_TRUE(ValidateTable().isEnabled());
    EXPECT_EQ(Cell("txtQmati", 0).text(), u"4-1*xmax"_s);
    EXPECT_EQ(Row("txtQmatf"), u"1,00|0||2,0||"_s);
}

TEST_F(ProgressSimulation, ComputesTheAmountsTyped)
{
    OpenSimulation(kCarbon);
    const int before = tableChanges;
    FillRow("txtQmat0", {u"0,5"_s, u"1.25"_s});

    Click(ValidateTable());

    EXPECT_EQ(Row("txtQmat0"), u"0,50|1,3||0||"_s);
    // 1.25 - 0.5 = 0.75
    EXPECT_EQ(Row("txtQmatf"), u"0|0,75||0,50||"_s);
    // 0.5 x 12.0107, 1.25 x 31.9988, 0.5 x 44.0095
    EXPECT_EQ(Row("txtMasse"), u"6,0|40,0||22,0||"_s);
    // 1.25 x 22.4 = 28, 0.5 x 22.4 = 11.2
    EXPECT_EQ(Row("txtVolGaz"), u"|28,0||11,2||"_s);
    EXPECT_EQ(ButtonColour(), OrdinaryColour());
    EXPECT_EQ(Open("txtQmat0"), u"0 1"_s);
    EXPECT_EQ(Open("txtMasse"), QString());
    EXPECT_TRUE(Next().isVisible());
    EXPECT_EQ(tableChanges, before + 1);
    EXPECT_DOUBLE_EQ(pane->Table().Xmax, 0.5);
    EXPECT_EQ(run.State().Score, 0);
}

TEST_F(ProgressSimulation, ShowsOneMoleWhenAllAmountsAreZero)
{
    OpenSimulation(kCarbon);
    FillRow("txtQmat0", {u"0"_s, u"0"_s});

    Click(ValidateTable());

    EXPECT_EQ(Row("txtQmat0"), u"1,00|1,00||0||"_s);
    EXPECT_EQ(Row("txtQmatf"), u"0|0||1,00||"_s);
}

TEST_F(ProgressSimulation, TakesAnEmptyBoxAsZero)
{
    OpenSimulation(kCarbon);
    Cell("txtQmat0", 0).setFocus();
    Press(Cell("txtQmat0", 0), Qt::Key_Delete);
    EXPECT_EQ(Cell("txtQmati", 0).text(), u"ni(0)-1*xmax"_s);

    Click(ValidateTable());

    // In proportion to the 2 mol of O2.
    EXPECT_EQ(Row("txtQmat0"), u"2,0|2,0||0||"_s);
}

TEST_F(ProgressSimulation, ReadsUpToTheSecondComma)
{
    OpenSimulation(kCarbon);
    FillRow("txtQmat0", {u"1,5,7"_s});

    Click(ValidateTable());

    EXPECT_EQ(Row("txtQmat0"), u"1,5|2,0||0||"_s);
}

TEST_F(ProgressSimulation, RefusesAnAmountOfFortyDigitsAndKeepsItAll)
{
    OpenSimulation(kCarbon);
    FillRow("txtQmat0", {QString(40, u'9')});
    const int before = tableChanges;

    Click(ValidateTable());

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Erreur sur saisie."_s);
    EXPECT_EQ(messages.shown[0].text,
              u"La quantité de matière de C est trop grande\u00A0: 1000000 mol au plus."_s);
    EXPECT_EQ(Cell("txtQmat0", 0).text(), QString(40, u'9'));
    EXPECT_EQ(Row("txtQmatf"), u"1,00|0||2,0||"_s);
    EXPECT_EQ(ButtonColour(), QColor(255, 0, 0));
    EXPECT_EQ(tableChanges, before);
}

TEST_F(ProgressSimulation, ShowsALineWithoutDataEmptyUntilAnAmountIsTyped)
{
    OpenSimulation("'Voir #2\nC+O2=CO2/1,1,1\n");
    EXPECT_EQ(Row("txtQmat0"), u"0|0||0||"_s);
    EXPECT_EQ(Row("txtMasse"), u"|||||"_s);
    EXPECT_FALSE(Drawings().isEnabled());

    FillRow("txtQmat0", {u"2"_s});
    Click(ValidateTable());

    EXPECT_EQ(Row("txtQmatf"), u"0|0||2,0||"_s);
    EXPECT_TRUE(Drawings().isEnabled());
}

TEST_F(ProgressSimulation, FollowsANewMolarVolumeAtOnce)
{
    OpenSimulation(kCarbon);
    const int before = tableChanges;

    SetMolarVolume(u"24"_s);
    pane->FollowMolarVolume();

    EXPECT_EQ(Row("txtVolGaz"), u"|48,0||48,0||"_s);
    EXPECT_EQ(Row("txtQmat0"), u"3,0|2,0||0||"_s);
    EXPECT_EQ(tableChanges, before + 1);
}

TEST_F(ProgressSimulation, LeavesTheTableWhenTheMolarVolumeIsTheSame)
{
    OpenSimulation(kCarbon);
    FillRow("txtQmat0", {u"4"_s});
    const int before = tableChanges;

    SetMolarVolume(u"22.4"_s);
    pane->FollowMolarVolume();

    EXPECT_EQ(ButtonColour(), QColor(255, 0, 0));
    EXPECT_EQ(tableChanges, before);
}

TEST_F(ProgressSimulation, KeepsARefusedAmountWhenTheMolarVolumeChanges)
{
    OpenSimulation(kCarbon);
    FillRow("txtQmat0", {QString(40, u'9')});

    SetMolarVolume(u"24"_s);
    pane->FollowMolarVolume();

    EXPECT_EQ(Cell("txtQmat0", 0).text(), QString(40, u'9'));
    EXPECT_DOUBLE_EQ(pane->Table().Volume[1], 48);
}

TEST_F(ProgressSimulation, LeadsOnToTheNextEquation)
{
    OpenSimulation(kCarbon + "N2<g>+H2<g>=NH3<g>/1,3,2#Q1,Q2.4\n");
    FillRow("txtQmat0", {u"7"_s});
    Click(Drawings());

    Click(Next());

    EXPECT_EQ(Row("txtQmat0"), u"1,00|2,4||0||"_s);
    EXPECT_EQ(ButtonColour(), OrdinaryColour());
    EXPECT_FALSE(ValidateTable().isEnabled());
    EXPECT_FALSE(Drawings().isChecked());
    // The button leads on and on.
    EXPECT_TRUE(Next().hasFocus());
    EXPECT_EQ(drawingsToggled, QList<int>({1, 0}));
    Click(Next());
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(equationsDone, 0);
}

} // namespace stoikal
