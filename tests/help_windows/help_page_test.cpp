#include "help/help_file.h"
#include "help_window_support.h"

#include <QImage>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class HelpPageTest : public testing::Test
{
protected:
    HelpPageTest()
    {
        const auto opened = HelpFile::Open(ShippedHelp("Glossaire_Atomes.chm"));
        if (!opened)
            throw std::runtime_error(opened.Reason().toStdString());
        page.SetFile(*opened);
        page.resize(500, 400);
        page.show();
        QObject::connect(&page, &HelpPage::PageRequested, [this](const PageAddress& address) {
            requested << address.path + u'#' + address.anchor;
        });
        QObject::connect(&page, &HelpPage::LinkRefused, [this](const QString& link) { refused << link; });
    }

    HelpPage page{nullptr};
    QStringList requested;
    QStringList refused;
};

} // namespace

TEST_F(HelpPageTest, ShowsAPageOfItsFile)
{
    page.ShowPage({{}, u"/o.html"_s, {}});

    EXPECT_EQ(page.Title(), u"Oxygène (O)"_s);
    EXPECT_TRUE(page.toPlainText().contains(u"Lavoisier"_s));
}

TEST_F(HelpPageTest, ReportsWhyAPageCannotBeShown)
{
    page.ShowPage({{}, u"/nulle_part.html"_s, {}});

    EXPECT_TRUE(page.toPlainText().contains(u"Page illisible"_s));
    EXPECT_TRUE(
        page.toPlainText().contains(u"La page /nulle_part.html n'existe pas dans ce fichier d'aide."_s));
}

TEST_F(HelpPageTest, RequestsThePageOfALink)
{
    page.ShowPage({{}, u"/o.html"_s, {}});
    const QTextCursor cursor = page.document()->find(u"Fluor"_s);
    ASSERT_FALSE(cursor.isNull());
    ASSERT_EQ(cursor.charFormat().anchorHref(), u"f.html"_s);

    Q_EMIT page.anchorClicked(page.source().resolved(QUrl(cursor.charFormat().anchorHref())));

    EXPECT_EQ(requested, (QStringList{u"/f.html#"_s}));
    EXPECT_EQ(page.Title(), u"Oxygène (O)"_s);
}

TEST_F(HelpPageTest, LoadsNothingFromOutside)
{
    page.ShowPage({{}, u"/o.html"_s, {}});
    const QTextDocument& document = *page.document();

    for (const char* const address :
         {"file:///etc/passwd", "http://localhost/a.png", "aide://other/o.html", "qrc:/icons/print.png"}) {
        for (const int type :
             {QTextDocument::ImageResource, QTextDocument::StyleSheetResource, QTextDocument::HtmlResource}) {
            const QVariant loaded = document.resource(type, QUrl(QLatin1String(address)));
            EXPECT_TRUE(loaded.toByteArray().isEmpty() && loaded.value<QImage>().isNull()) << address;
        }
    }
}

TEST_F(HelpPageTest, FollowsNoLinkOfItself)
{
    page.ShowPage({{}, u"/o.html"_s, {}});

    page.setSource(QUrl(u"file:///etc/passwd"_s));
    Q_EMIT page.anchorClicked(QUrl(u"javascript:alert(1)"_s));
    Q_EMIT page.anchorClicked(QUrl(u"aide://other/o.html"_s));

    EXPECT_EQ(page.Title(), u"Oxygène (O)"_s);
    EXPECT_EQ(refused, (QStringList{u"javascript:alert(1)"_s, u"aide://other/o.html"_s}));
    EXPECT_TRUE(requested.isEmpty());
}

TEST_F(HelpPageTest, AppliesTheStyleSheetOfTheFile)
{
    page.ShowPage({{}, u"/o.html"_s, {}});

    // The sheet gives headings 19 points; a page without it has another size.
    QTextCursor heading = page.document()->find(u"Oxygène"_s);
    EXPECT_EQ(heading.charFormat().fontPointSize(), 19);
    page.SetZoom(200);
    heading = page.document()->find(u"Oxygène"_s);
    EXPECT_EQ(heading.charFormat().fontPointSize(), 38);
}

TEST_F(HelpPageTest, FindsATextWhateverItsCaseAndAccents)
{
    page.ShowPage({{}, u"/o.html"_s, {}});

    EXPECT_GT(page.FindText(u"OXYGENE"_s, false, true), 1);
    EXPECT_EQ(page.textCursor().selectedText(), u"Oxygène"_s);
    EXPECT_EQ(page.FindText(u"introuvable"_s, false, true), 0);
    EXPECT_EQ(page.FindText({}, false, true), 0);
    EXPECT_TRUE(page.extraSelections().isEmpty());
}

TEST_F(HelpPageTest, FindsWhatAKeyboardTypesInATypesetPage)
{
    page.ShowPage({{}, u"/he.html"_s, {}});

    // The page has a no-break space, a minus sign and a typographic apostrophe.
    EXPECT_EQ(page.FindText(u"à -269 °C"_s, false, true), 1);
    EXPECT_EQ(page.FindText(u"l'imagerie"_s, false, true), 0);
    EXPECT_EQ(page.FindText(u"d'imagerie"_s, false, true), 1);
}

TEST_F(HelpPageTest, MarksAShortWordOnlyWhereItStandsAlone)
{
    const auto marked = [this] {
        QStringList words;
        const auto marks = page.extraSelections();
        for (const auto& mark : marks) {
            QTextCursor word(page.document());
            word.setPosition(mark.cursor.selectionStart());
            word.select(QTextCursor::WordUnderCursor);
            words << word.selectedText();
        }
        words.removeDuplicates();
        return words;
    };
    page.ShowPage({{}, u"/o.html"_s, {}});
    ASSERT_TRUE(page.toPlainText().contains(u"oxydes"_s));

    page.MarkWords({u"de"_s});
    EXPECT_EQ(marked(), (QStringList{u"de"_s}));
    // A part of a word is shown where it is nowhere a word of its own.
    page.MarkWords({u"xyg"_s});
    EXPECT_GT(page.extraSelections().size(), 1);
    page.MarkWords({u"oxyg"_s});
    EXPECT_GT(page.extraSelections().size(), 1);
}

TEST_F(HelpPageTest, StaysOnWhitePaperOnADarkDesktop)
{
    EXPECT_EQ(page.palette().color(QPalette::Base), QColor(Qt::white));
}

} // namespace stoikal
