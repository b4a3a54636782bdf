#include "simul_anim_fixture.h"

#include <QClipboard>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QString kNoDigit = u"Veuillez saisir un chiffre."_s;
const QString kNoDecimals = u"Les nombres décimaux ne sont pas autorisés."_s;
const QString kTooMany = u"Le nombre total de particules est limité à 1000."_s;

} // namespace

TEST_F(FrmSimulAnim, SelectsTheWholeNumberOfABoxThatGetsTheFocus)
{
    Box(1).setFocus();
    EXPECT_EQ(Box(1).selectedText(), u"150"_s);

    ClickInto(Box(2));
    EXPECT_EQ(Box(2).selectedText(), u"50"_s);
}

TEST_F(FrmSimulAnim, LetsASecondClickPlaceTheCursor)
{
    QTest::mouseClick(&Box(2), Qt::LeftButton);
    QTest::qWait(QApplication::doubleClickInterval() + 20);

    QTest::mouseClick(&Box(2), Qt::LeftButton);

    EXPECT_FALSE(Box(2).hasSelectedText());
}

TEST_F(FrmSimulAnim, RefusesALetterWithAMessageAndTakesItOut)
{
    Box(0).setFocus();
    Press(Box(0), Qt::Key_End);

    Type(Box(0), u"x"_s);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Erreur sur saisie."_s);
    EXPECT_EQ(messages.shown[0].text, kNoDigit);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_EQ(Box(0).text(), u"200"_s);
    EXPECT_EQ(Particles().InitialCount[0], 200);
}

TEST_F(FrmSimulAnim, RefusesADecimalSignWithItsOwnMessage)
{
    Box(0).setFocus();
    Press(Box(0), Qt::Key_End);

    Type(Box(0), u",."_s);

    ASSERT_EQ(messages.shown.size(), 2U);
    for (const Message& message : messages.shown) {
        EXPECT_EQ(message.title, u"Erreur sur saisie."_s);
        EXPECT_EQ(message.text, kNoDecimals);
        EXPECT_EQ(message.icon, QMessageBox::Critical);
    }
    EXPECT_EQ(Box(0).text(), u"200"_s);
}

TEST_F(FrmSimulAnim, LeavesA0WhereTheBadKeyWasAlone)
{
    TypeNumber(0, u"a"_s);

    EXPECT_EQ(Box(0).text(), u"0"_s);
    EXPECT_EQ(Particles().InitialCount[0], 0);
}

TEST_F(FrmSimulAnim, GoesOnTypingWhereTheBadKeyStood)
{
    Box(4).setFocus();
    Press(Box(4), Qt::Key_Home);
    Press(Box(4), Qt::Key_Right);

    Type(Box(4), u"x2"_s); // 5|0

    EXPECT_EQ(Box(4).text(), u"520"_s);
}

TEST_F(FrmSimulAnim, TellsOnlyTheFirstRefusalOfAPaste)
{
    QApplication::clipboard()->setText(u"1a2,3"_s);
    Box(3).setFocus();
    Box(3).selectAll();

    Press(Box(3), Qt::Key_V, Qt::ControlModifier);

    EXPECT_EQ(Box(3).text(), u"123"_s);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, kNoDigit);
}

TEST_F(FrmSimulAnim, DoesNotJudgeEnterAndEscape)
{
    Box(0).setFocus();

    Press(Box(0), Qt::Key_Return);
    Press(Box(0), Qt::Key_Escape);

    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(Box(0).text(), u"200"_s);
}

TEST_F(FrmSimulAnim, BeepsInAFullBoxAndLetsTheKeyIn)
{
    SetNumbers({u"1000"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s});
    Box(0).setFocus();
    Press(Box(0), Qt::Key_End);

    Type(Box(0), u"x"_s);

    EXPECT_EQ(sound.beeps, 1);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(Box(0).text(), u"1000x"_s);
    EXPECT_EQ(Particles().InitialCount[0], 1000);
}

TEST_F(FrmSimulAnim, JudgesAKeyThatReplacesASelectionAsOnTheShorterText)
{
    SetNumbers({u"1000"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s});

    TypeNumber(0, u"7"_s);

    EXPECT_EQ(sound.beeps, 0);
    EXPECT_EQ(Box(0).text(), u"7"_s);
}

TEST_F(FrmSimulAnim, CutsATotalAbove1000BackInTheBoxBeingTyped)
{
    // The others are 150 + 50 + 20 + 50 = 270.
    TypeNumber(0, u"1500"_s);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
    EXPECT_EQ(messages.shown[0].text, kTooMany);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Information);
    EXPECT_EQ(Box(0).text(), u"730"_s);
    EXPECT_EQ(Particles().InitialCount[0], 730);
    EXPECT_EQ(Particles().ParticleCount, 1000);
    EXPECT_EQ(Numbers("lblMol"), u"730 150 50 20 50"_s);
}

TEST_F(FrmSimulAnim, CutsATotalAbove1000BackTo1000WhenTheOthersAreZero)
{
    SetNumbers({u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s});

    TypeNumber(0, u"1500"_s);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(Box(0).text(), u"1000"_s);
}

TEST_F(FrmSimulAnim, Accepts1000ParticlesInAll)
{
    TypeNumber(0, u"730"_s);

    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(Particles().ParticleCount, 1000);
    EXPECT_EQ(Get<PictureSurface>("picMilieu").DiscCount(), 1000);
}

TEST_F(FrmSimulAnim, TakesAnEmptyBoxFor0)
{
    Box(4).setFocus();
    Box(4).selectAll();

    Press(Box(4), Qt::Key_Backspace);

    EXPECT_EQ(Box(4).text(), QString());
    EXPECT_EQ(Particles().InitialCount[4], 0);
    EXPECT_EQ(Numbers("lblMol"), u"200 150 50 20 0"_s);
}

TEST_F(FrmSimulAnim, HasNoParticleAndAScaleOf1WithAllNumbersAt0)
{
    SetNumbers({u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s});

    EXPECT_EQ(Particles().ParticleCount, 0);
    EXPECT_EQ(Get<PictureSurface>("picMilieu").DiscCount(), 0);
    // Level lines at 0 and 1, upright ones at every tenth.
    EXPECT_EQ(Plot().Drawn<PictureSurface::Line>().size(), 13U);
    ClickStart();
    Tick(3);
    EXPECT_EQ(Numbers("lblMol"), u"0 0 0 0 0"_s);
}

TEST_F(FrmSimulAnim, ANumberTypedStopsAndForgetsTheRun)
{
    ClickStart();
    Tick(30);

    TypeNumber(4, u"60"_s);

    ExpectStopped();
    EXPECT_EQ(Clock(), u"00:00:00"_s);
    EXPECT_EQ(window.Curves().Samples().SampleIndex(), 1);
    EXPECT_EQ(window.Curves().Samples().At(0).counts, KindNumbers({200, 150, 50, 20, 60}));
    EXPECT_EQ(Numbers("lblMol"), u"200 150 50 20 60"_s);
}

TEST_F(FrmSimulAnim, ANumberTypedSetsTheScaleOfTheNumbers)
{
    TypeNumber(2, u"300"_s); // max(150 + 300, 200 + 20) = 450.

    EXPECT_EQ(window.Curves().ParticleMax(), 450);
    // 450 / 20 = 22.5: 0 to 460 by 20, and eleven upright lines.
    EXPECT_EQ(Plot().Drawn<PictureSurface::Line>().size(), 24U + 11U);
}

TEST_F(FrmSimulAnim, IsStoppedAlreadyWhileItsMessageIsOpen)
{
    ClickStart();
    bool wasChecked = true;
    messages.whileOpen = [&](const Message&) { wasChecked = Start().isChecked(); };

    TypeNumber(0, u"999"_s);

    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_FALSE(wasChecked);
}

} // namespace stoikal
