#include "help_window_support.h"

#include <QImage>
#include <QScrollBar>
#include <QWheelEvent>

namespace stoikal {

using namespace Qt::StringLiterals;

using FrmHelp = HelpWindowTest;

TEST_F(FrmHelp, ShowsTheContentsAndTheFirstPageOfAFile)
{
    Open();

    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowTitle(), u"Aide de Stoikal"_s);
    EXPECT_EQ(Page().Title(), u"Bienvenue dans Stoikal"_s);
    EXPECT_TRUE(Control<QTreeWidget>(window, "tvwContents").isVisible());
    EXPECT_EQ(Control<QTreeWidget>(window, "tvwContents").currentItem()->text(0),
              u"Bienvenue dans Stoikal"_s);
    EXPECT_EQ(Notice(), QString());
}

TEST_F(FrmHelp, ShowsThePageOfATopicNumber)
{
    OpenTopic(1000);

    EXPECT_EQ(Page().Title(), u"Équilibrage automatique d’équations"_s);
    EXPECT_EQ(Control<QTreeWidget>(window, "tvwContents").currentItem()->text(0),
              u"Équilibrage automatique d’équations"_s);
}

TEST_F(FrmHelp, ShowsTheFirstPageForANumberThatTheFileDoesNotKnow)
{
    OpenTopic(4321);

    EXPECT_EQ(Page().Title(), u"Bienvenue dans Stoikal"_s);
    EXPECT_TRUE(Notice().contains("4321"_L1));
}

TEST_F(FrmHelp, FollowsTheTreeOfTheContents)
{
    Open();

    ClickNode(u"Le chronomètre"_s);

    EXPECT_EQ(Page().Title(), u"Le chronomètre"_s);
}

TEST_F(FrmHelp, StaysOnItsPageForAHeadingWithoutOne)
{
    Open();

    ClickNode(u"Les outils"_s);

    EXPECT_EQ(Page().Title(), u"Bienvenue dans Stoikal"_s);
}

TEST_F(FrmHelp, NarrowsTheIndexDownWithoutRegardToAccents)
{
    window.DisplayIndex(ShippedHelp("Stoikal.chm"), &home);
    auto& field = Control<QLineEdit>(window, "txtIndex");
    const auto all = Shown("lstIndex").size();

    Type(field, u"REACTIF LIM"_s);

    EXPECT_EQ(Shown("lstIndex"), (QStringList{u"réactif limitant"_s}));
    EXPECT_GT(all, 50);
    Press(field, Qt::Key_Return);
    EXPECT_EQ(Page().Title(), u"L’avancement en quelques mots"_s);
}

TEST_F(FrmHelp, SaysThatNoKeywordIsLeft)
{
    window.DisplayIndex(ShippedHelp("Stoikal.chm"), &home);
    auto& field = Control<QLineEdit>(window, "txtIndex");
    const auto& notice = Control<QLabel>(window, "lblNoKeyword");
    EXPECT_FALSE(notice.isVisible());

    Type(field, u"zzz"_s);

    EXPECT_TRUE(Shown("lstIndex").isEmpty());
    EXPECT_TRUE(notice.isVisible());
    EXPECT_EQ(notice.text(), u"Aucun mot-clé ne contient ces lettres. Essayez l'onglet Recherche."_s);
    field.clear();
    EXPECT_FALSE(notice.isVisible());
}

TEST_F(FrmHelp, NamesTheTargetsOfAKeywordThatHasSeveral)
{
    window.DisplayIndex(ShippedHelp("Stoikal.chm"), &home);
    Type(Control<QLineEdit>(window, "txtIndex"), u"coefficient"_s);

    ClickLine("lstIndex", u"coefficient – La fenêtre de l’équation"_s);

    EXPECT_EQ(Page().Title(), u"La fenêtre de l’équation"_s);
}

TEST_F(FrmHelp, FindsWordsInAllPagesAndMarksThem)
{
    Open();
    ShowTab(2);
    Type(Control<QLineEdit>(window, "txtSearch"), u"ellipse"_s);
    Click(Control<QAbstractButton>(window, "cmdSearch"));
    EXPECT_EQ(Control<QLabel>(window, "lblFound").text(), u"Aucune page ne contient tous ces mots."_s);

    Control<QLineEdit>(window, "txtSearch").clear();
    Type(Control<QLineEdit>(window, "txtSearch"), u"thermometre"_s);
    Press(Control<QLineEdit>(window, "txtSearch"), Qt::Key_Return);

    EXPECT_EQ(Control<QLabel>(window, "lblFound").text(), u"1 page trouvée"_s);
    ClickLine("lstFound", Shown("lstFound").value(0));
    EXPECT_EQ(Page().Title(), u"La réaction vue par ses particules"_s);
    ASSERT_EQ(Page().extraSelections().size(), 1);
    EXPECT_EQ(Page().extraSelections().first().cursor.selectedText(), u"thermomètre"_s);
}

TEST_F(FrmHelp, ShowsThePagesFoundByTitleAndTwoWholeLines)
{
    Open();
    ShowTab(2);
    Type(Control<QLineEdit>(window, "txtSearch"), u"thermometre"_s);
    Press(Control<QLineEdit>(window, "txtSearch"), Qt::Key_Return);
    auto& list = Control<QListWidget>(window, "lstFound");
    ASSERT_GT(list.count(), 0);
    list.clearSelection();
    list.setCurrentItem(nullptr);
    Settle();
    const QRect item = list.visualItemRect(list.item(0));
    const int line = list.fontMetrics().lineSpacing();
    const auto darkest = [&list](const QRect& part) {
        const QImage image = list.viewport()->grab(part).toImage();
        int lightness = 255;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                lightness = std::min(lightness, image.pixelColor(x, y).lightness());
        }
        return lightness;
    };
    // 6 pixels above, the title, 2 pixels, two lines, 6 pixels: 3 lines and 14.
    const QRect title(item.left(), item.top() + 6, item.width(), line);
    const QRect excerpt(item.left(), item.top() + 6 + line + 2, item.width(), 2 * line);

    EXPECT_EQ(item.height(), 3 * line + 14);
    const int paper = list.palette().color(QPalette::Base).lightness();
    EXPECT_LT(darkest(title), darkest(excerpt));
    EXPECT_LT(darkest(excerpt), paper - 40);
    EXPECT_EQ(darkest(QRect(item.left(), item.bottom() - 3, item.width(), 3)), paper);
}

TEST_F(FrmHelp, RequestsWordsWhenThereAreNone)
{
    Open();
    ShowTab(2);

    Click(Control<QAbstractButton>(window, "cmdSearch"));

    EXPECT_EQ(Control<QLabel>(window, "lblFound").text(), u"Tapez un ou plusieurs mots."_s);
}

TEST_F(FrmHelp, GoesBackAndForth)
{
    Open();
    EXPECT_FALSE(Tool("cmdBack").isEnabled());
    ClickNode(u"Ma note"_s);
    ClickNode(u"Préférences"_s);

    Click(Tool("cmdBack"));
    EXPECT_EQ(Page().Title(), u"Ma note"_s);
    Click(Tool("cmdBack"));
    EXPECT_EQ(Page().Title(), u"Bienvenue dans Stoikal"_s);
    EXPECT_FALSE(Tool("cmdBack").isEnabled());
    Press(window, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Page().Title(), u"Ma note"_s);
    Click(Tool("cmdHome"));
    EXPECT_EQ(Page().Title(), u"Bienvenue dans Stoikal"_s);
    EXPECT_FALSE(Tool("cmdForward").isEnabled());
}

TEST_F(FrmHelp, ComesBackToThePositionWhereAPageWasLeft)
{
    Open();
    ClickNode(u"Le format d’un fichier d’équations"_s);
    Page().verticalScrollBar()->setValue(150);
    ClickNode(u"Ma note"_s);

    Click(Tool("cmdBack"));

    EXPECT_EQ(Page().verticalScrollBar()->value(), 150);
}

TEST_F(FrmHelp, GoesBackIntoTheFileOpenBefore)
{
    Open();
    Open("Glossaire_Atomes.chm");
    EXPECT_EQ(window.windowTitle(), u"Glossaire des atomes"_s);

    Click(Tool("cmdBack"));

    EXPECT_EQ(window.windowTitle(), u"Aide de Stoikal"_s);
    EXPECT_EQ(Page().Title(), u"Bienvenue dans Stoikal"_s);
    EXPECT_EQ(Control<QTreeWidget>(window, "tvwContents").topLevelItem(1)->text(0), u"Pour commencer"_s);
}

TEST_F(FrmHelp, FollowsALinkToAnotherHelpFileBesideItsOwn)
{
    Open();

    Q_EMIT Page().anchorClicked(QUrl(u"ms-its:Glossaire_Atomes.chm::/fe.html"_s));

    EXPECT_EQ(window.windowTitle(), u"Glossaire des atomes"_s);
    EXPECT_EQ(Page().Title(), u"Fer (Fe)"_s);
}

TEST_F(FrmHelp, ReportsThatAnotherHelpFileIsNotThere)
{
    Open();

    Q_EMIT Page().anchorClicked(QUrl(u"ms-its:Absent.chm::/fe.html"_s));

    EXPECT_EQ(Notice(), u"Le fichier d'aide Absent.chm n'est pas installé."_s);
    EXPECT_EQ(Page().Title(), u"Bienvenue dans Stoikal"_s);
}

TEST_F(FrmHelp, DoesNotFollowALinkThatLeadsOutOfTheHelp)
{
    Open();

    Q_EMIT Page().anchorClicked(QUrl(u"https://example.org/"_s));

    EXPECT_EQ(Notice(), u"Ce lien mène hors de l'aide, il n'est pas suivi\u00A0: https://example.org/"_s);
    EXPECT_EQ(Page().Title(), u"Bienvenue dans Stoikal"_s);
}

TEST_F(FrmHelp, FindsATextOnThePage)
{
    OpenTopic(1900);
    Press(window, Qt::Key_F, Qt::ControlModifier);
    auto& field = Control<QLineEdit>(window, "txtFind");
    ASSERT_TRUE(field.isVisible());

    Type(field, u"ctrl"_s);

    // Ctrl + F; Ctrl + plus, Ctrl + moins, Ctrl + 0; Ctrl + P.
    EXPECT_EQ(Control<QLabel>(window, "lblCount").text(), u"5 occurrences"_s);
    const int first = Page().textCursor().selectionStart();
    Press(window, Qt::Key_F3);
    const int second = Page().textCursor().selectionStart();
    EXPECT_GT(second, first);
    Press(window, Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Page().textCursor().selectionStart(), first);
    Click(Tool("cmdFindPrevious"));
    EXPECT_GT(Page().textCursor().selectionStart(), second);
    Type(field, u"x"_s);
    EXPECT_EQ(Control<QLabel>(window, "lblCount").text(), u"Introuvable dans cette page"_s);
    Press(field, Qt::Key_Escape);
    EXPECT_FALSE(field.isVisible());
    EXPECT_TRUE(Page().extraSelections().isEmpty());
}

TEST_F(FrmHelp, EnlargesTheTextAndKeepsTheSize)
{
    OpenTopic(500);
    const double before = Page().document()->size().height();

    Click(Tool("cmdZoomIn"));
    Click(Tool("cmdZoomIn"));

    EXPECT_EQ(Control<QLabel>(window, "lblZoom").text(), u"120\u00A0%"_s);
    EXPECT_GT(Page().document()->size().height(), before);
    EXPECT_EQ(Page().Title(), u"La fenêtre de l’équation"_s);
    EXPECT_EQ(settings.Read(u"Help Window"_s, u"Zoom"_s), u"120"_s);
    Press(window, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(Control<QLabel>(window, "lblZoom").text(), u"100\u00A0%"_s);
}

TEST_F(FrmHelp, EnlargesAndReducesByTheWheelWithControl)
{
    Open();
    const auto turn = [this](int angle, Qt::KeyboardModifiers modifiers) {
        QWidget& paper = *Page().viewport();
        const QPointF middle = paper.rect().center();
        QWheelEvent event(middle, paper.mapToGlobal(middle), {}, {0, angle}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&paper, &event);
        Settle();
        return Control<QLabel>(window, "lblZoom").text();
    };

    // Without the key the page only rolls.
    EXPECT_EQ(turn(120, Qt::ControlModifier), u"110\u00A0%"_s);
    EXPECT_EQ(turn(-120, Qt::ControlModifier), u"100\u00A0%"_s);
    EXPECT_EQ(turn(-120, Qt::ControlModifier), u"90\u00A0%"_s);
    EXPECT_EQ(turn(120, Qt::NoModifier), u"90\u00A0%"_s);
}

TEST_F(FrmHelp, EnlargesUpToABound)
{
    Open();
    for (int i = 0; i < 20 && Tool("cmdZoomIn").isEnabled(); ++i)
        Click(Tool("cmdZoomIn"));

    EXPECT_EQ(Control<QLabel>(window, "lblZoom").text(), u"240\u00A0%"_s);
    EXPECT_FALSE(Tool("cmdZoomIn").isEnabled());
}

TEST_F(FrmHelp, PrintsThePageShown)
{
    OpenTopic(600);

    Press(window, Qt::Key_P, Qt::ControlModifier);

    EXPECT_EQ(printer.titles, (QStringList{u"Ma note"_s}));
    EXPECT_TRUE(printer.text.contains(u"Les dix meilleurs"_s));
}

TEST_F(FrmHelp, StoresItsPositionAndSizeInTwips)
{
    Open();
    window.setGeometry(40, 50, 700, 500);
    const QPoint position = window.pos();

    window.Close();

    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(settings.Read(u"Help Window"_s, u"Left"_s), QString::number(position.x() * 15));
    EXPECT_EQ(settings.Read(u"Help Window"_s, u"Width"_s), u"10500"_s); // 700 * 15
    EXPECT_EQ(settings.Read(u"Help Window"_s, u"Height"_s), u"7500"_s);
    frmHelp again({messages, printer, screen, settings}, &home);
    again.DisplayContents(ShippedHelp("Stoikal.chm"), &home);
    EXPECT_EQ(again.size(), QSize(700, 500));
    EXPECT_EQ(again.pos(), position);
}

TEST_F(FrmHelp, SizeLeftInPixelsByAnEarlierProgramIsReadAsPixels)
{
    ASSERT_TRUE(settings.Write({{u"Help Window"_s, u"Left"_s, u"600"_s},
                                {u"Help Window"_s, u"Top"_s, u"750"_s},
                                {u"Help Window"_s, u"Width"_s, u"700"_s},
                                {u"Help Window"_s, u"Height"_s, u"500"_s}}));

    Open();

    EXPECT_EQ(window.size(), QSize(700, 500));
    EXPECT_EQ(window.pos(), QPoint(40, 50));
    EXPECT_EQ(settings.Read(u"Help Window"_s, u"Width"_s), u"10500"_s); // 700 * 15
}

TEST_F(FrmHelp, FitsIntoASmallScreen)
{
    screen.area = QRect(0, 0, 800, 600);

    Open();

    EXPECT_LE(window.width(), 800);
    EXPECT_LE(window.height(), 600);
    EXPECT_TRUE(screen.area.contains(window.geometry()));
}

TEST_F(FrmHelp, ReportsThatAFileCannotBeOpenedAndStillShowsThePageBefore)
{
    Open();
    const QString broken = folder.filePath(u"Aide.chm"_s);
    QFile file(broken);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("ITSF, and nothing more");
    file.close();

    window.DisplayContents(broken, &home);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown.front().title, u"Aide"_s);
    EXPECT_EQ(messages.shown.front().text,
              u"Le fichier d'aide\n%1\nest endommagé ou n'est pas un fichier d'aide."_s.arg(broken));
    EXPECT_EQ(Page().Title(), u"Bienvenue dans Stoikal"_s);
    EXPECT_EQ(window.windowTitle(), u"Aide de Stoikal"_s);
}

TEST_F(FrmHelp, StaysHiddenWhenTheFirstFileCannotBeOpened)
{
    const QString broken = folder.filePath(u"Aide.chm"_s);
    QFile file(broken);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();

    window.DisplayTopic(broken, 500, &home);

    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FrmHelp, ShowsTheTitleOfAWindowType)
{
    window.DisplayContents(ShippedHelp("Stoikal.chm") + u">principale"_s, &home);

    EXPECT_EQ(window.windowTitle(), u"Aide de Stoikal"_s);
    EXPECT_EQ(Page().Title(), u"Bienvenue dans Stoikal"_s);
}

TEST_F(FrmHelp, GivesEveryControlANameToBeReadAloud)
{
    Open();

    for (const char* const name :
         {"cmdBack", "cmdForward", "cmdHome", "cmdFind", "cmdZoomOut", "cmdZoomIn", "cmdPrint",
          "cmdFindPrevious", "cmdFindNext", "cmdFindClose", "txtIndex", "lstIndex", "txtSearch", "cmdSearch",
          "lstFound", "tvwContents", "txtPage", "txtFind"})
        EXPECT_FALSE(Control<QWidget>(window, name).accessibleName().isEmpty()) << name;
}

} // namespace stoikal
