#include "exercise/windows/frm_note.h"
#include "forms/window_events.h"

#include "base/places.h"
#include "forms/picture_surface.h"
#include "support/fake_platform.h"
#include "support/window_driver.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QColor kRed(255, 0, 0);

/// The mark's window after a run over chimie.Equ.
class FrmNote : public testing::Test
{
protected:
    FrmNote()
    {
        places.LargeurUtile = 15310; // 1024 * 15 - 50
        places.HauteurUtile = 10770; // 768 * 15 - 750
    }

    void Open(std::optional<frmNote::Earned> earned)
    {
        window = std::make_unique<frmNote>(places, u',', u"chimie.Equ"_s, earned, nullptr);
        window->Place(screen);
        window->show();
        Settle();
    }

    QLabel& Label(const char* name) { return Control<QLabel>(*window, name); }
    QPushButton& Button(const char* name) { return Control<QPushButton>(*window, name); }
    QCheckBox& Best() { return Control<QCheckBox>(*window, "chkHighScore"); }
    PictureSurface& Table() { return Control<PictureSurface>(*window, "picHighSCore"); }

    QString MarkText(double mark)
    {
        Open(frmNote::Earned{mark, 12.3});
        return Label("lblNote").text();
    }

    /// Where ink of a colour stands in a row of the table (the rows are 1 / 13 of
    /// its height), between two columns in percent of its width. Null: nowhere.
    QRect Ink(int row, const QColor& colour, double fromPercent = 0, double toPercent = 100)
    {
        const int top = row * Table().height() / 13;
        const int bottom = (row + 1) * Table().height() / 13;
        const int left = static_cast<int>(fromPercent * Table().width() / 100);
        const int right = static_cast<int>(toPercent * Table().width() / 100);
        QRect found;
        for (int y = top; y < bottom; ++y) {
            for (int x = left; x < right; ++x) {
                if (Table().ColourAt({x, y}) == colour)
                    found |= QRect(x, y, 1, 1);
            }
        }
        return found;
    }

    double Percent(int x) { return 100.0 * x / Table().width(); }

    Places places;
    FakeScreen screen;
    std::unique_ptr<frmNote> window;
};

const std::vector<HighScore> kSection{{u"martin"_s, 18.0F, 74.23F}, {u"Dupont"_s, 12.5F, 80.1F}};

} // namespace

TEST_F(FrmNote, TellsThatTheFileIsAtItsEnd)
{
    Open(frmNote::Earned{10, 12.3});

    EXPECT_EQ(window->windowTitle(), u"Stoikal"_s);
    EXPECT_EQ(Label("lblInfo").text(), u"Il n'y a plus d'équations dans le fichier chimie.Equ"_s);
}

TEST_F(FrmNote, TellsTheMarkAndTheTime)
{
    Open(frmNote::Earned{10, 12.3});

    EXPECT_EQ(Label("lblNote").text(), u"Votre note est de : 10/20"_s);
    EXPECT_EQ(Label("lblTemps").text(), u"Temps mis : 12,3 s"_s);
    EXPECT_TRUE(Label("lblNote").isVisible());
    EXPECT_TRUE(Label("lblTemps").isVisible());
}

TEST_F(FrmNote, ShowsAMarkWithoutAFractionWithoutDecimals)
{
    EXPECT_EQ(MarkText(20), u"Votre note est de : 20/20"_s);
    EXPECT_EQ(MarkText(0), u"Votre note est de : 0/20"_s);
}

TEST_F(FrmNote, ShowsAnyOtherMarkWithOneDecimalAtMost)
{
    EXPECT_EQ(MarkText(140.0 / 15), u"Votre note est de : 9,3/20"_s); // 7 of 15: 9.33
    EXPECT_EQ(MarkText(12.5), u"Votre note est de : 12,5/20"_s);
    EXPECT_EQ(MarkText(19.96), u"Votre note est de : 20/20"_s);
}

TEST_F(FrmNote, ShowsTheTimeWithOneDecimal)
{
    Open(frmNote::Earned{10, 65});
    EXPECT_EQ(Label("lblTemps").text(), u"Temps mis : 65,0 s"_s);
}

TEST_F(FrmNote, OffersThreeWaysOn)
{
    Open(frmNote::Earned{10, 12.3});

    EXPECT_EQ(Control<QGroupBox>(*window, "fraChoix").title(), u"Voulez-vous .... "_s);
    EXPECT_EQ(Button("cmdAgain").text(), u"Recommencer"_s);
    EXPECT_EQ(Button("cmdStay").text(), u"Accueil"_s);
    EXPECT_EQ(Button("cmdEnd").text(), u"Quitter"_s);
    QStringList questions;
    for (const QLabel* const label : Control<QGroupBox>(*window, "fraChoix").findChildren<QLabel*>())
        questions << label->text();
    EXPECT_EQ(questions,
              (QStringList{u"... recommencer une nouvelle série d'équations ?"_s,
                           u"... revenir à la page d'accueil ?"_s, u"... quitter Stoikal ?"_s}));
}

TEST_F(FrmNote, TellsWhichWayWasChosen)
{
    Open(frmNote::Earned{10, 12.3});
    Click(Button("cmdAgain"));
    EXPECT_EQ(window->result(), frmNote::Again);
    EXPECT_FALSE(window->isVisible());

    Open(frmNote::Earned{10, 12.3});
    Click(Button("cmdStay"));
    EXPECT_EQ(window->result(), frmNote::Stay);

    Open(frmNote::Earned{10, 12.3});
    Click(Button("cmdEnd"));
    EXPECT_EQ(window->result(), frmNote::End);
}

TEST_F(FrmNote, ClosesByItsTitleBarToTheStartPage)
{
    Open(frmNote::Earned{10, 12.3});
    window->close();

    EXPECT_EQ(window->result(), frmNote::Stay);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(FrmNote, ChoosesNothingByEscapeOrEnter)
{
    Open(frmNote::Earned{10, 12.3});
    Press(*window, Qt::Key_Escape);
    Press(*window, Qt::Key_Return);
    Press(Best(), Qt::Key_Enter);

    EXPECT_TRUE(window->isVisible());
    for (const char* const name : {"cmdAgain", "cmdStay", "cmdEnd"}) {
        EXPECT_FALSE(Button(name).isDefault()) << name;
        EXPECT_FALSE(Button(name).autoDefault()) << name;
    }
}

TEST_F(FrmNote, IsModal)
{
    Open(frmNote::Earned{10, 12.3});
    EXPECT_TRUE(window->isModal());
}

TEST_F(FrmNote, HidesTheMarkInFreeSimulation)
{
    Open(std::nullopt);

    EXPECT_FALSE(Label("lblNote").isVisible());
    EXPECT_FALSE(Label("lblTemps").isVisible());
    EXPECT_TRUE(Best().isVisible());
    EXPECT_FALSE(Best().isEnabled());
    EXPECT_EQ(Label("lblInfo").text(), u"Il n'y a plus d'équations dans le fichier chimie.Equ"_s);
}

TEST_F(FrmNote, OpensWithoutTheTable)
{
    Open(frmNote::Earned{10, 12.3});

    EXPECT_EQ(window->height(), 340); // 5100 twips
    EXPECT_FALSE(Best().isChecked());
    EXPECT_TRUE(Best().isEnabled());
    EXPECT_EQ(Best().text(), u"Les 10 meilleurs scores"_s);
    EXPECT_FALSE(Table().isVisible());
    EXPECT_EQ(window->y(), 189); // (10770 - 5100) / 2 = 2835 twips
}

TEST_F(FrmNote, GrowsForTheTableAndShrinksAgain)
{
    Open(frmNote::Earned{10, 12.3});
    Click(Best());
    Settle();

    EXPECT_EQ(window->height(), 587); // 8800 twips
    EXPECT_TRUE(Table().isVisible());
    EXPECT_EQ(Table().y(), 340); // below 5100 twips
    EXPECT_NEAR(window->y(), (10770 - 8800) / 2 / 15.0, 1.0);

    Click(Best());
    Settle();
    EXPECT_EQ(window->height(), 340);
    EXPECT_FALSE(Table().isVisible());
    EXPECT_EQ(window->y(), 189);
}

TEST_F(FrmNote, LeavesTheTableItsRowsOnALowScreen)
{
    // 768 pixels at a scale of 150 %.
    screen.area = QRect(0, 0, 1024, 512);
    Open(frmNote::Earned{10, 12.3});
    const QSize choices = Control<QGroupBox>(*window, "fraChoix").size();
    Click(Best());
    Settle();

    EXPECT_LE(window->height(), 512 - 32); // a title bar of 32
    // 480 less 340 above the table would leave its 13 rows 10 pixels each.
    EXPECT_GE(Table().height(), 13 * 15);
    EXPECT_EQ(Control<QGroupBox>(*window, "fraChoix").size(), choices);
    EXPECT_LT(Label("lblInfo").geometry().bottom(), Label("lblNote").y());
    EXPECT_LE(Best().mapTo(window.get(), Best().rect().bottomLeft()).y(), Table().y());

    Click(Best());
    Settle();
    EXPECT_EQ(window->height(), 340);
}

TEST_F(FrmNote, StacksItsTexts)
{
    Open(frmNote::Earned{10, 12.3});
    const QRect time = Label("lblTemps").geometry();
    const int choices = Control<QGroupBox>(*window, "fraChoix").y();

    EXPECT_LT(Label("lblInfo").geometry().bottom(), Label("lblNote").y());
    EXPECT_EQ(time.y() - Label("lblNote").geometry().bottom() - 1, 7); // 100 twips
    EXPECT_EQ(choices - time.bottom() - 1, 7);
    EXPECT_GT(Best().y(), Control<QGroupBox>(*window, "fraChoix").geometry().bottom());
}

TEST_F(FrmNote, TellsWhatTheTableShows)
{
    Open(frmNote::Earned{10, 12.3});

    EXPECT_EQ(Best().toolTip(), u"Pour afficher les 10 meilleurs scores pour le fichier en cours."_s);
    EXPECT_EQ(
        Table().toolTip(),
        u"Si vous êtes classés parmi les 10 meilleurs scores, votre résultat doit apparaître en rouge."_s);
}

TEST_F(FrmNote, PrintsTheResultOfThePupilInRed)
{
    Open(frmNote::Earned{12.5, 80.1});
    window->ShowHighScores(kSection, {u"DUPONT"_s, 12.5, 80.1});
    Click(Best());
    Settle();

    EXPECT_FALSE(Ink(0, Qt::black).isNull()); // the headings
    EXPECT_FALSE(Ink(1, Qt::black).isNull()); // the rule
    EXPECT_FALSE(Ink(2, Qt::black).isNull()); // martin
    EXPECT_TRUE(Ink(2, kRed).isNull());
    EXPECT_FALSE(Ink(3, kRed).isNull()); // the pupil
    EXPECT_TRUE(Ink(3, Qt::black).isNull());
    EXPECT_TRUE(Ink(4, Qt::black).isNull()); // no third record
}

TEST_F(FrmNote, PrintsTheHeadingsInTheTopmostRow)
{
    Open(frmNote::Earned{12.5, 80.1});
    window->ShowHighScores(kSection, {u"DUPONT"_s, 12.5, 80.1});

    for (const auto& text : Table().Drawn<PictureSurface::Text>()) {
        if (text.text == u"Nom élèves"_s || text.text == u"Note (/20)"_s || text.text == u"Temps (en s)"_s) {
            EXPECT_EQ(text.place.y(), 0) << text.text.toStdString();
        }
    }
}

TEST_F(FrmNote, PutsTheTableAwayAtEachActivation)
{
    Open(frmNote::Earned{12.5, 80.1});
    Click(Best());
    ASSERT_TRUE(Table().isVisible());

    QEvent back(QEvent::WindowActivate);
    QApplication::sendEvent(window.get(), &back);

    EXPECT_FALSE(Best().isChecked());
    EXPECT_FALSE(Table().isVisible());
    EXPECT_EQ(window->height(), 340);
}

TEST_F(FrmNote, PrintsNoResultInRedWhenThePupilIsNotAmongTheBest)
{
    Open(frmNote::Earned{12.5, 80.1});
    window->ShowHighScores(kSection, {u"Durand"_s, 12.5, 80.1});

    for (int row = 0; row < 13; ++row)
        EXPECT_TRUE(Ink(row, kRed).isNull()) << row;
    EXPECT_FALSE(Ink(3, Qt::black).isNull());
}

TEST_F(FrmNote, PrintsTheSameResultInRedTwice)
{
    Open(frmNote::Earned{18, 74.23});
    window->ShowHighScores({{u"Dupont"_s, 18.0F, 74.23F}, {u"Dupont"_s, 18.0F, 74.23F}},
                           {u"Dupont"_s, 18, 74.23});

    EXPECT_FALSE(Ink(2, kRed).isNull());
    EXPECT_FALSE(Ink(3, kRed).isNull());
}

TEST_F(FrmNote, PrintsTenRecordsBelowTheHeadings)
{
    Open(frmNote::Earned{12.5, 80.1});
    window->ShowHighScores(std::vector<HighScore>(10, {u"Martin"_s, 18.0F, 74.23F}), {u"Dupont"_s, 1, 1});

    for (int row = 2; row < 12; ++row)
        EXPECT_FALSE(Ink(row, Qt::black).isNull()) << row;
    EXPECT_TRUE(Ink(12, Qt::black).isNull());
}

TEST_F(FrmNote, PrintsItsColumnsAtTheirPlaces)
{
    Open(frmNote::Earned{12.5, 80.1});
    window->ShowHighScores(kSection, {u"DUPONT"_s, 12.5, 80.1});
    Click(Best());
    Settle();

    // Headings begin at 5, 40 and 75 of 100, give or take a letter's margin.
    EXPECT_NEAR(Percent(Ink(0, Qt::black, 0, 35).left()), 5, 1.0);
    EXPECT_NEAR(Percent(Ink(0, Qt::black, 35, 70).left()), 40, 1.0);
    EXPECT_NEAR(Percent(Ink(0, Qt::black, 70, 100).left()), 75, 1.0);
    // The name begins at 2; the mark ends at 52, the time at 90.
    for (const auto& [row, colour] : {std::pair(2, QColor(Qt::black)), std::pair(3, kRed)}) {
        EXPECT_NEAR(Percent(Ink(row, colour, 0, 35).left()), 2, 1.0) << row;
        EXPECT_NEAR(Percent(Ink(row, colour, 35, 65).right()), 52, 1.0) << row;
        EXPECT_NEAR(Percent(Ink(row, colour, 65, 100).right()), 90, 1.0) << row;
    }
}

TEST_F(FrmNote, DrawsAShorterTableOverALongerOne)
{
    Open(frmNote::Earned{12.5, 80.1});
    window->ShowHighScores(kSection, {u"DUPONT"_s, 12.5, 80.1});
    window->ShowHighScores({kSection.front()}, {u"DUPONT"_s, 12.5, 80.1});

    EXPECT_FALSE(Ink(2, Qt::black).isNull());
    EXPECT_TRUE(Ink(3, kRed).isNull());
}

TEST_F(FrmNote, TellsTheTableInWordsForReaders)
{
    Open(frmNote::Earned{12.5, 80.1});
    window->ShowHighScores(kSection, {u"DUPONT"_s, 12.5, 80.1});

    EXPECT_EQ(Table().accessibleDescription(),
              u"Martin : 18,00 sur 20 en 74,23 secondes ; Dupont : 12,50 sur 20 en 80,10 secondes"_s);
}

TEST_F(FrmNote, AsksForHelpAtF1)
{
    const WindowEvents events;
    Open(frmNote::Earned{10, 12.3});
    int asked = 0;
    QObject::connect(&events, &WindowEvents::HelpRequested, window.get(), [&asked] { ++asked; });
    Press(Best(), Qt::Key_F1);

    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(window->isVisible());
}

} // namespace stoikal
