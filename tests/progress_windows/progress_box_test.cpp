#include "progress_windows/progress_bench.h"

#include <QClipboard>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The keys of the boxes, on a series whose molar masses are asked.
class ProgressKeys : public ProgressBench
{
protected:
    void SetUp() override { OpenSeries(kCarbon); }
};

} // namespace

TEST_F(ProgressKeys, PassDigitsTheCommaAndThePoint)
{
    Type(Cell("txtMasMol", 0), u"12,01.3"_s);

    EXPECT_EQ(Cell("txtMasMol", 0).text(), u"12,01.3"_s);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ProgressKeys, HaveNoLimitOfTwoCharacters)
{
    Type(Cell("txtMasMol", 0), QString(40, u'9'));

    EXPECT_EQ(Cell("txtMasMol", 0).text(), QString(40, u'9'));
    EXPECT_EQ(sound.beeps, 0);
}

TEST_F(ProgressKeys, RefuseAnythingElseWithAMessage)
{
    for (const QString& key : {u"a"_s, u"e"_s, u"-"_s, u"+"_s, u" "_s, u"é"_s, u"*"_s}) {
        messages.shown.clear();
        Type(Cell("txtMasMol", 0), key);

        EXPECT_EQ(Cell("txtMasMol", 0).text(), QString()) << key.toStdString();
        ASSERT_EQ(messages.shown.size(), 1U) << key.toStdString();
        EXPECT_EQ(messages.shown[0].title, u"Erreur sur saisie."_s);
        EXPECT_EQ(messages.shown[0].text, u"Veuillez saisir un chiffre."_s);
        EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    }
}

TEST_F(ProgressKeys, RefuseAnExponentAndKeepWhatStoodBefore)
{
    Type(Cell("txtMasMol", 0), u"1e5"_s);

    EXPECT_EQ(Cell("txtMasMol", 0).text(), u"15"_s);
    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(ProgressKeys, TakeTheLastCharacterAwayWhereverTheKeyWent)
{
    Type(Cell("txtMasMol", 0), u"123"_s);
    Press(Cell("txtMasMol", 0), Qt::Key_Home);
    Type(Cell("txtMasMol", 0), u"x"_s);

    // The key stands in front, and the last character goes.
    EXPECT_EQ(Cell("txtMasMol", 0).text(), u"x12"_s);
}

TEST_F(ProgressKeys, TellTheFirstRefusalOfAPasteOnly)
{
    QApplication::clipboard()->setText(u"1a2b,5"_s);
    Press(Cell("txtMasMol", 0), Qt::Key_V, Qt::ControlModifier);

    EXPECT_EQ(Cell("txtMasMol", 0).text(), u"12,5"_s);
    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(ProgressKeys, AreTheSameInEveryRow)
{
    PassMassesOfCarbon();
    for (const char* const array : {"txtMasse", "txtQmatf"}) {
        messages.shown.clear();
        Type(Cell(array, 0), u"1,5x"_s);
        EXPECT_EQ(Cell(array, 0).text(), u"1,5"_s) << array;
        EXPECT_EQ(messages.shown.size(), 1U) << array;
    }
    messages.shown.clear();
    Type(Cell("txtVolGaz", 1), u"x"_s);
    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(ProgressKeys, SelectTheWholeTextOnTheWayIn)
{
    Type(Cell("txtMasMol", 0), u"12"_s);
    Cell("txtMasMol", 1).setFocus();
    Cell("txtMasMol", 0).setFocus();

    EXPECT_EQ(Cell("txtMasMol", 0).selectedText(), u"12"_s);
}

TEST_F(ProgressKeys, ReplaceTheNumberThatWasClickedInto)
{
    Type(Cell("txtMasMol", 0), u"12"_s);
    ClickInto(Cell("txtMasMol", 1));

    ClickInto(Cell("txtMasMol", 0));
    EXPECT_EQ(Cell("txtMasMol", 0).selectedText(), u"12"_s);
    Type(Cell("txtMasMol", 0), u"3"_s);

    EXPECT_EQ(Cell("txtMasMol", 0).text(), u"3"_s);
}

TEST_F(ProgressKeys, ValidateByEnterOnTheButton)
{
    FillRow("txtMasMol", {u"12"_s, u"32"_s, {}, u"44"_s});
    ValidateMasses().setFocus();

    Press(ValidateMasses(), Qt::Key_Enter, Qt::KeypadModifier);

    EXPECT_EQ(Score().text(), u"5"_s);
}

TEST_F(ProgressKeys, AreNoAnswerToEnterAndEscape)
{
    Type(Cell("txtMasMol", 0), u"12"_s);
    Press(Cell("txtMasMol", 0), Qt::Key_Return);
    Press(Cell("txtMasMol", 0), Qt::Key_Escape);

    EXPECT_EQ(Cell("txtMasMol", 0).text(), u"12"_s);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(window->isVisible());
}

} // namespace stoikal
