#include "editor_windows/editor_bench.h"

#include <QTextBlock>
#include <QTimer>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class FrmPreview : public EditorTest
{
protected:
    QString Setting(const char* key) { return settings.Read(u"Preview Window"_s, QLatin1String(key)); }
};

} // namespace

TEST_F(FrmPreview, IsShownBesideTheEditorAndListsTheEquations)
{
    OpenFile("' Tête\r\nH2<g>+O2=H2O/2,1,2\r\nC+O2=CO2/1,1,1\r\n");

    Click(Button("chkPreview"));

    ASSERT_NE(Preview(), nullptr);
    EXPECT_EQ(Preview()->windowTitle(), u"Prévisualisation fichier d'équations"_s);
    EXPECT_EQ(Control<QLabel>(*Preview(), "lblListing").text(), u"Liste des équations saisies :"_s);
    EXPECT_EQ(PreviewText(), u"Tête\n\n1) 2 H2 (g) + O2 -----> 2 H2O\n2) C + O2 -----> CO2\n"_s);
    EXPECT_FALSE(Preview()->isModal());
}

TEST_F(FrmPreview, StoresTheEquationWhenItOpens)
{
    OpenFile("H2+O2=H2O/2,1,2\r\n");
    Write({u"H2"_s, u"Cl2"_s, {}, u"HCl"_s});

    Click(Button("chkPreview"));

    EXPECT_EQ(Kept(1, "Coeff4"), u"2"_s);
    EXPECT_EQ(PreviewText(), u"\n\n1) H2 + Cl2 -----> 2 HCl\n"_s);
}

TEST_F(FrmPreview, FollowsEveryStore)
{
    OpenFile("H2+O2=H2O/2,1,2\r\nC+O2=CO2/1,1,1\r\n");
    Click(Button("chkPreview"));
    Write({u"H2"_s, u"Cl2"_s, {}, u"HCl"_s});

    MoveTo(2);
    EXPECT_EQ(PreviewText(), u"\n\n1) H2 + Cl2 -----> 2 HCl\n2) C + O2 -----> CO2\n"_s);

    Click(Button("cmdSupEqu"));
    EXPECT_EQ(PreviewText(), u"\n\n1) H2 + Cl2 -----> 2 HCl\n"_s);
}

TEST_F(FrmPreview, NamesTheCauseOfAFailure)
{
    OpenFile("H2+O2=H2O/2,1,2\r\n");
    Write({u"H2"_s, {}, {}, u"O2"_s});

    Click(Button("chkPreview"));

    EXPECT_TRUE(MarkIsShown());
    EXPECT_EQ(
        PreviewText(),
        u"\n\n1) 0 H2 -----> 0 O2\n"
        "               ECHEC : il n'y a pas les mêmes types d'atomes dans les réactifs et les produits : "
        "l'atome H présent dans les réactifs n'est pas présent dans les produits.\n\n"_s);
}

TEST_F(FrmPreview, CauseOfTheFailureStandsInSight)
{
    QByteArray lines;
    for (int number = 1; number <= 30; ++number)
        lines += number == 20 ? "H2=O2\r\n" : "C+O2=CO2/1,1,1\r\n";
    OpenFile(lines);
    MoveTo(20);
    Click(Button("chkPreview"));
    Click(Button("chkPreview"));
    EXPECT_TRUE(settings.Write(u"Preview Window"_s, u"Height"_s, u"2250"_s));
    Click(Button("chkPreview"));

    MoveTo(21);
    MoveTo(20);

    auto& text = Control<QPlainTextEdit>(*Preview(), "txtResult");
    const QTextCursor cause = text.document()->find(u"ECHEC"_s);
    ASSERT_FALSE(cause.isNull());
    EXPECT_TRUE(text.viewport()->rect().contains(text.cursorRect(cause)));
    EXPECT_TRUE(text.textCursor().block().text().startsWith(u"20) "_s));
}

TEST_F(FrmPreview, RefreshingAsksNoQuestion)
{
    OpenFile("H2+O2=H2O/2,1,2\r\nXx+O2=XxO\r\n");

    Click(Button("chkPreview"));

    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(PreviewText().contains(u"2) Xx + O2 -----> XxO\n     Les coefficients manquent"_s));
}

TEST_F(FrmPreview, ShowsCommentsOfEquationsByTheirMark)
{
    OpenFile("H2+O2=H2O/2,1,2\r\n' Charbon\r\nC+O2=CO2/1,1,1\r\n");
    Click(Button("chkPreview"));
    EXPECT_TRUE(PreviewText().contains(u"2) Charbon\n     C + O2 -----> CO2\n"_s));

    Tab(2);
    Click(Button("chkComment(1)"));
    MoveTo(2);

    EXPECT_FALSE(PreviewText().contains(u"Charbon"_s));
}

TEST_F(FrmPreview, OpensOnAHalfWrittenEquation)
{
    OpenNew();

    Click(Button("chkPreview"));

    ASSERT_NE(Preview(), nullptr);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_FALSE(MarkIsShown());
}

TEST_F(FrmPreview, UntickingUnloadsIt)
{
    OpenNew();
    Click(Button("chkPreview"));

    Click(Button("chkPreview"));
    Settle();

    EXPECT_EQ(Preview(), nullptr);
    EXPECT_EQ(editor->findChild<QWidget*>(u"frmPreview"_s), nullptr);
}

TEST_F(FrmPreview, MayBeGoneAgainBeforeItsEquationIsStored)
{
    // Two atoms for four molecules: two coefficients are tried out.
    OpenNew();
    Write({u"H2"_s, u"O2"_s, u"H2O2"_s, u"H2O"_s});
    QTimer::singleShot(0, editor.get(), [this] { Button("chkPreview").setChecked(false); });

    Click(Button("chkPreview"));
    Settle();

    EXPECT_FALSE(Button("chkPreview").isChecked());
    EXPECT_EQ(Preview(), nullptr);
    EXPECT_EQ(Kept(1, "ECHEC"), u"0"_s);
}

TEST_F(FrmPreview, ClosingItUnticksTheMark)
{
    OpenNew();
    Click(Button("chkPreview"));

    Preview()->close();
    Settle();

    EXPECT_FALSE(Button("chkPreview").isChecked());
    EXPECT_EQ(Preview(), nullptr);
}

TEST_F(FrmPreview, GoesWithTheEditor)
{
    OpenNew();
    Click(Button("chkPreview"));

    Click(Button("cmdCancel"));
    Settle();

    EXPECT_EQ(Preview(), nullptr);
}

TEST_F(FrmPreview, PlaceAndSizeAreKeptInTwips)
{
    OpenNew();
    Click(Button("chkPreview"));
    Preview()->move(40, 50);
    Preview()->resize(400, 300);

    Click(Button("chkPreview"));

    // 15 twips to a pixel.
    EXPECT_EQ(Setting("Left"), u"600"_s);
    EXPECT_EQ(Setting("Top"), u"750"_s);
    EXPECT_EQ(Setting("Width"), u"6000"_s);
    EXPECT_EQ(Setting("Height"), u"4500"_s);
    Click(Button("chkPreview"));
    EXPECT_EQ(Preview()->pos(), QPoint(40, 50));
    EXPECT_EQ(Preview()->size(), QSize(400, 300));
}

TEST_F(FrmPreview, IsBroughtBackIntoTheScreen)
{
    EXPECT_TRUE(settings.Write(u"Preview Window"_s, u"Left"_s, u"90000"_s));
    EXPECT_TRUE(settings.Write(u"Preview Window"_s, u"Top"_s, u"-900"_s));
    EXPECT_TRUE(settings.Write(u"Preview Window"_s, u"Width"_s, u"6000"_s));
    EXPECT_TRUE(settings.Write(u"Preview Window"_s, u"Height"_s, u"4500"_s));
    OpenNew();

    Click(Button("chkPreview"));

    EXPECT_EQ(Preview()->size(), QSize(400, 300));
    // At the upper right of 1024 pixels, with its frame.
    EXPECT_EQ(Preview()->frameGeometry().topRight(), QPoint(1023, 0));
}

TEST_F(FrmPreview, WithoutAKeptPlaceItHidesNothingOfTheEditor)
{
    OpenNew();

    Click(Button("chkPreview"));

    EXPECT_FALSE(Preview()->frameGeometry().intersects(editor->frameGeometry()));
    EXPECT_TRUE(screen.area.contains(Preview()->frameGeometry()));
}

TEST_F(FrmPreview, TextFollowsTheSizeOfTheWindow)
{
    OpenNew();
    Click(Button("chkPreview"));
    QWidget& text = Control<QWidget>(*Preview(), "txtResult");
    Preview()->resize(400, 300);
    Settle();
    const QSize before = text.size();

    Preview()->resize(500, 420);
    Settle();

    EXPECT_EQ(text.size(), before + QSize(100, 120));
}

TEST_F(FrmPreview, HelpKeyAsksForTheEditorsPage)
{
    OpenNew();
    Click(Button("chkPreview"));

    // A child of the modal editor is open to the keyboard, though it is a window of its own.
    QTest::keyClick(Preview(), Qt::Key_F1);

    EXPECT_EQ(helps, 1);
}

} // namespace stoikal
