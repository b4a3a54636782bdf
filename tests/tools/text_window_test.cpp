#include "tools/windows/text_window.h"

#include "support/fake_messages.h"
#include "support/fake_platform.h"
#include "support/file_bytes.h"
#include "support/window_driver.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextBlock>
#include <gtest/gtest.h>
#include <memory>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class TextWindowTest : public testing::Test
{
protected:
    void Put(const QByteArray& bytes) { WriteBytes(path, bytes); }

    std::string Bytes() const { return BytesOfFile(path).toStdString(); }

    bool Open(TextWindow::Use use)
    {
        window = std::make_unique<TextWindow>(path, u"Texte"_s, use, TextWindow::Doors{messages, programs},
                                              nullptr);
        const bool isLoaded = window->Load();
        window->show();
        window->activateWindow();
        Settle();
        return isLoaded;
    }

    QPlainTextEdit& Sheet() { return Control<QPlainTextEdit>(*window, "txtTexte"); }
    QPushButton& Button(const char* name) { return Control<QPushButton>(*window, name); }
    QLineEdit& Words() { return Control<QLineEdit>(*window, "txtFind"); }
    QString State() { return Control<QLabel>(*window, "lblState").text(); }
    QString Found() { return Sheet().textCursor().selectedText(); }
    int FoundAt() { return Sheet().textCursor().selectionStart(); }

    /// The window loses the keyboard to another one and gets it back.
    void GoAwayAndComeBack()
    {
        QWidget other;
        other.show();
        other.activateWindow();
        Settle();
        window->activateWindow();
        Settle();
    }

    QTemporaryDir folder;
    QString path = folder.filePath(u"TipOfDayEqChm.txt"_s);
    FakeMessages messages;
    FakePrograms programs;
    std::unique_ptr<TextWindow> window;
};

} // namespace

TEST_F(TextWindowTest, ShowsTheLinesInTheirOwnEncoding)
{
    Put("\xC9l\xE8ve\r\n\xC5\x81ukasz\r\n");

    ASSERT_TRUE(Open(TextWindow::Use::Read));

    EXPECT_EQ(Sheet().toPlainText(), u"Élève\nŁukasz\n"_s);
}

TEST_F(TextWindowTest, IsNotModal)
{
    Put("a\r\n");
    Open(TextWindow::Use::Read);

    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_FALSE(window->isModal());
}

TEST_F(TextWindowTest, BeginsAtTheEndWhereTheNewestStands)
{
    Put("a\r\nb\r\n");
    Open(TextWindow::Use::Read);

    // "a", a line end, "b", a line end.
    EXPECT_EQ(Sheet().textCursor().position(), 4);
}

TEST_F(TextWindowTest, OfLongResultsTheEndIsShownAndSaidToBeTheEnd)
{
    Put(QByteArray("  N°1 : \r\n").repeated(200'000) + "la fin\r\n");

    ASSERT_TRUE(Open(TextWindow::Use::Read));

    EXPECT_EQ(State(), u"Seule la fin du fichier est montrée."_s);
    EXPECT_EQ(Sheet().document()->lastBlock().previous().text(), u"la fin"_s);
    // The empty block is behind the end of the last line.
    EXPECT_EQ(Sheet().document()->blockCount(), 20'001);
}

TEST_F(TextWindowTest, ResultsCanOnlyBeRead)
{
    Put("a\r\n");
    Open(TextWindow::Use::Read);

    Type(Sheet(), u"x"_s);

    EXPECT_EQ(Sheet().toPlainText(), u"a\n"_s);
    EXPECT_FALSE(Button("cmdSave").isVisible());
    EXPECT_TRUE(Button("cmdReload").isVisible());
}

TEST_F(TextWindowTest, TellsAFileThatCannotBeRead)
{
    ASSERT_TRUE(QDir().mkdir(path));

    EXPECT_FALSE(Open(TextWindow::Use::Read));

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_EQ(messages.shown[0].text,
              u"Le fichier ne peut pas être lu :\n%1\n(c'est un dossier)"_s.arg(path));
}

TEST_F(TextWindowTest, SavesWhatWasAdded)
{
    Put("\xE9t\xE9\r\n");
    Open(TextWindow::Use::Edit);
    EXPECT_FALSE(Button("cmdSave").isEnabled());

    Type(Sheet(), u"nouvelle"_s);
    EXPECT_TRUE(Button("cmdSave").isEnabled());
    EXPECT_TRUE(window->isWindowModified());
    Click(Button("cmdSave"));

    EXPECT_EQ(Bytes(), "\xE9t\xE9\r\nnouvelle\r\n");
    EXPECT_FALSE(window->IsModified());
    EXPECT_EQ(State(), u"Le texte est enregistré."_s);
}

TEST_F(TextWindowTest, SavesByItsKey)
{
    Put("");
    Open(TextWindow::Use::Edit);
    Type(Sheet(), u"a"_s);

    Press(Sheet(), Qt::Key_S, Qt::ControlModifier);

    EXPECT_EQ(Bytes(), "a\r\n");
}

TEST_F(TextWindowTest, SaysThatAFileIsEmpty)
{
    Put("");
    ASSERT_TRUE(Open(TextWindow::Use::Read));
    EXPECT_EQ(State(), u"Le fichier est vide."_s);

    Put("DUPONT\r\n");
    Click(Button("cmdReload"));
    EXPECT_EQ(State(), QString());
}

TEST_F(TextWindowTest, KeepsNoBreakSpacesAndEmptyLines)
{
    // A no-break space is A0 in the page.
    Put("vrai\xA0!\r\n\r\nfin\r\n\r\n");
    Open(TextWindow::Use::Edit);

    Type(Sheet(), u"x"_s);
    Click(Button("cmdSave"));

    EXPECT_EQ(Bytes(), "vrai\xA0!\r\n\r\nfin\r\n\r\nx\r\n");
}

TEST_F(TextWindowTest, AnUnchangedEndMakesNoEmptyLine)
{
    Put("a\r\n");
    Open(TextWindow::Use::Edit);

    Type(Sheet(), u"b"_s);
    Press(Sheet(), Qt::Key_Return);
    Click(Button("cmdSave"));

    EXPECT_EQ(Bytes(), "a\r\nb\r\n");
}

TEST_F(TextWindowTest, MakesAMissingFileWhenItIsSaved)
{
    ASSERT_TRUE(Open(TextWindow::Use::Edit));
    EXPECT_EQ(Bytes(), "(no file)");

    Type(Sheet(), u"a"_s);
    Click(Button("cmdSave"));

    EXPECT_EQ(Bytes(), "a\r\n");
}

TEST_F(TextWindowTest, TellsWhenItCannotBeSavedAndKeepsTheText)
{
    path = folder.filePath(u"absent/tips.txt"_s);
    Open(TextWindow::Use::Edit);
    Type(Sheet(), u"a"_s);

    Click(Button("cmdSave"));

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(messages.shown[0].text.startsWith(u"Le texte n'a pas pu être enregistré :\n"_s + path));
    EXPECT_EQ(Sheet().toPlainText(), u"a"_s);
    EXPECT_TRUE(window->IsModified());
}

TEST_F(TextWindowTest, AsksBeforeItReplacesTheTextOfAnotherProgram)
{
    Put("a\r\n");
    Open(TextWindow::Use::Edit);
    Type(Sheet(), u"b"_s);
    Put("tout autre texte\r\n");
    messages.answers = {QMessageBox::No, QMessageBox::Yes};

    Click(Button("cmdSave"));
    EXPECT_EQ(Bytes(), "tout autre texte\r\n");
    EXPECT_TRUE(window->IsModified());
    EXPECT_EQ(messages.shown.at(0).preset, QMessageBox::No);

    Click(Button("cmdSave"));
    EXPECT_EQ(Bytes(), "a\r\nb\r\n");
}

TEST_F(TextWindowTest, FindsWhileTheWordsAreTyped)
{
    Put("chlore chlorure\r\n");
    Open(TextWindow::Use::Read);

    Words().setFocus();
    Type(Words(), u"CHLOR"_s);
    EXPECT_EQ(FoundAt(), 0);
    Type(Words(), u"u"_s);

    EXPECT_EQ(Found(), u"chloru"_s);
    EXPECT_EQ(FoundAt(), 7);
}

TEST_F(TextWindowTest, FindsOnwardsAndBackwardsRoundTheText)
{
    // "un" stands at 0, 5 and 10.
    Put("un, \nun, \nun\r\n");
    Open(TextWindow::Use::Read);
    Words().setText(u"un"_s);
    ASSERT_EQ(FoundAt(), 0);

    Click(Button("cmdNext"));
    EXPECT_EQ(FoundAt(), 5);
    Press(Sheet(), Qt::Key_F3);
    EXPECT_EQ(FoundAt(), 10);
    Click(Button("cmdNext"));
    EXPECT_EQ(FoundAt(), 0);
    Click(Button("cmdPrevious"));
    EXPECT_EQ(FoundAt(), 10);
    Press(Sheet(), Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(FoundAt(), 5);
}

TEST_F(TextWindowTest, SaysWhatItDoesNotFind)
{
    Put("un\r\n");
    Open(TextWindow::Use::Read);

    Words().setText(u"deux"_s);

    EXPECT_EQ(State(), u"«\u00A0deux\u00A0» ne se trouve pas dans le texte."_s);
    Words().clear();
    EXPECT_EQ(State(), QString());
    EXPECT_FALSE(Button("cmdNext").isEnabled());
}

TEST_F(TextWindowTest, GoesToTheWordsByItsKey)
{
    Put("un\r\n");
    Open(TextWindow::Use::Read);

    Press(Sheet(), Qt::Key_F, Qt::ControlModifier);

    EXPECT_TRUE(Words().hasFocus());
}

TEST_F(TextWindowTest, ReadsTheFileAgainOnDemand)
{
    Put("a\r\n");
    Open(TextWindow::Use::Read);
    Put("a\r\nb\r\n");

    Click(Button("cmdReload"));

    EXPECT_EQ(Sheet().toPlainText(), u"a\nb\n"_s);
}

TEST_F(TextWindowTest, ReadsAChangedFileAgainWhenTheTeacherComesBack)
{
    Put("a\r\nb\r\nc\r\n");
    Open(TextWindow::Use::Edit);
    QTextCursor cursor = Sheet().textCursor();
    cursor.setPosition(2);
    Sheet().setTextCursor(cursor);
    Put("a\r\nb\r\nc\r\nd\r\n");

    GoAwayAndComeBack();

    EXPECT_EQ(Sheet().toPlainText(), u"a\nb\nc\nd\n"_s);
    EXPECT_EQ(Sheet().textCursor().position(), 2);
    EXPECT_EQ(State(), u"Le texte a été relu."_s);
}

TEST_F(TextWindowTest, KeepsItsTextWhileTheFileIsAway)
{
    Put("a\r\n");
    Open(TextWindow::Use::Read);
    ASSERT_TRUE(QFile::remove(path));

    GoAwayAndComeBack();

    EXPECT_EQ(Sheet().toPlainText(), u"a\n"_s);
    EXPECT_EQ(State(), u"Le fichier n'est plus accessible."_s);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(TextWindowTest, LeavesUnsavedTextAloneWhenTheTeacherComesBack)
{
    Put("a\r\n");
    Open(TextWindow::Use::Edit);
    Type(Sheet(), u"mien"_s);
    Put("autre\r\n");

    GoAwayAndComeBack();

    EXPECT_EQ(Sheet().toPlainText(), u"a\nmien"_s);
}

TEST_F(TextWindowTest, HandsTheFileToTheDesktopsEditor)
{
    Put("a\r\n");
    Open(TextWindow::Use::Read);

    Click(Button("cmdEditor"));

    EXPECT_EQ(programs.edited, QStringList{path});
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(window->isVisible());
}

TEST_F(TextWindowTest, SavesFirstWhatIsHandedOver)
{
    Put("a\r\n");
    Open(TextWindow::Use::Edit);
    Type(Sheet(), u"b"_s);
    messages.answers = {QMessageBox::No, QMessageBox::Yes};

    Click(Button("cmdEditor"));
    EXPECT_TRUE(programs.edited.isEmpty());
    EXPECT_EQ(Bytes(), "a\r\n");

    Click(Button("cmdEditor"));
    EXPECT_EQ(programs.edited, QStringList{path});
    EXPECT_EQ(Bytes(), "a\r\nb\r\n");
}

TEST_F(TextWindowTest, TellsThatThereIsNoEditor)
{
    Put("a\r\n");
    Open(TextWindow::Use::Read);
    programs.canEdit = false;

    Click(Button("cmdEditor"));

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Erreur sur le chemin d'accés"_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
}

TEST_F(TextWindowTest, MayCloseWithoutAQuestionWhenNothingIsUnsaved)
{
    Put("a\r\n");
    Open(TextWindow::Use::Edit);

    EXPECT_TRUE(window->MayClose());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(TextWindowTest, AsksBeforeUnsavedTextIsLost)
{
    Put("a\r\n");
    Open(TextWindow::Use::Edit);
    Type(Sheet(), u"b"_s);
    messages.answers = {QMessageBox::No, QMessageBox::Yes};

    EXPECT_FALSE(window->MayClose());
    EXPECT_TRUE(window->MayClose());

    EXPECT_EQ(messages.shown.at(0).preset, QMessageBox::No);
    EXPECT_EQ(Bytes(), "a\r\n");
}

TEST_F(TextWindowTest, OffersToSaveAtTheEndUntilItIsSavedOrGivenUp)
{
    path = folder.filePath(u"absent/tips.txt"_s);
    Open(TextWindow::Use::Edit);
    Type(Sheet(), u"a"_s);
    messages.answers = {QMessageBox::Yes, QMessageBox::Yes};
    messages.whileOpen = [this](const Message& message) {
        // The folder comes back behind the first failure.
        if (message.icon == QMessageBox::Critical)
            QDir().mkpath(folder.filePath(u"absent"_s));
    };

    window->OfferToSave();

    EXPECT_EQ(messages.shown.size(), 3U); // Question, failure, question.
    EXPECT_EQ(Bytes(), "a\r\n");
}

TEST_F(TextWindowTest, SaysThatItIsToClose)
{
    Put("a\r\n");
    Open(TextWindow::Use::Read);
    QSignalSpy close(window.get(), &Form::CloseAsked);

    Click(Button("cmdClose"));
    window->close();

    EXPECT_EQ(close.count(), 2);
    EXPECT_TRUE(window->isVisible());
}

} // namespace stoikal
