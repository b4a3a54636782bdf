#include "forms/window_events.h"
#include "shell/windows/frm_mot_passe.h"
#include "shell/windows/frm_pass_word.h"

#include "base/places.h"
#include "base/settings_store.h"
#include "shell/password_store.h"
#include "support/fake_messages.h"
#include "support/file_size_limit.h"
#include "support/window_driver.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A teacher whose password is "Sesame".
class PasswordWindow : public testing::Test
{
protected:
    PasswordWindow()
    {
        state.IniUtilisateur = folder.filePath(u"ConfEQU_dupont.ini"_s);
        SetPassword(u"Sesame"_s);
    }

    void SetPassword(const QString& password) { ASSERT_TRUE(passwords.Write(password)); }
    QString Password() { return *passwords.Read(); }

    /// From now on the password cannot be read: the share is gone.
    void LoseTheShare()
    {
        state.ModeReseau = true;
        state.DossierResultats = folder.filePath(u"absent"_s);
        state.DossierDepot = u"Dépôt"_s;
    }

    static void Show(QWidget& window)
    {
        window.show();
        window.activateWindow();
        Settle();
    }

    QTemporaryDir folder;
    Places state;
    SettingsStore store;
    Settings settings{store, state.IniUtilisateur};
    PasswordStore passwords{state, settings};
    FakeMessages messages;
};

class FrmMotPasse : public PasswordWindow
{
protected:
    FrmMotPasse() { Show(window); }

    QLineEdit& Box() { return Control<QLineEdit>(window, "txtPassWord"); }
    void PressOk() { Click(Control<QPushButton>(window, "cmdOK")); }

    frmMotPasse window{passwords, messages, nullptr};
};

class FrmPassWord : public PasswordWindow
{
protected:
    FrmPassWord() { Show(window); }

    QLineEdit& Old() { return Control<QLineEdit>(window, "txtOldPassWord"); }
    QLineEdit& New() { return Control<QLineEdit>(window, "txtNewPassWord"); }
    void PressOk() { Click(Control<QPushButton>(window, "cmdOK")); }

    frmPassWord window{passwords, messages, nullptr};
};

} // namespace

TEST_F(FrmMotPasse, HasItsFixedWords)
{
    EXPECT_EQ(Control<QLabel>(window, "Label1").text(), u"Entrez le mot de passe :"_s);
    EXPECT_EQ(Box().toolTip(), u"Saisir ici le mot de passe en respectant l'écriture majuscule/minuscule"_s);
    EXPECT_EQ(Control<QPushButton>(window, "cmdOK").text(), u"OK"_s);
    EXPECT_EQ(Control<QPushButton>(window, "cmdOK").toolTip(), u"Valider pour accéder"_s);
    EXPECT_EQ(Control<QPushButton>(window, "cmdCancel").text(), u"Annuler"_s);
    EXPECT_EQ(Control<QPushButton>(window, "cmdCancel").toolTip(), u"Pour annuler l'opération"_s);
    EXPECT_TRUE(window.isModal());
}

TEST_F(FrmMotPasse, BeginsEmptyWithTheKeyboardInItsBox)
{
    EXPECT_EQ(Box().text(), QString());
    EXPECT_TRUE(Box().hasFocus());
}

TEST_F(FrmMotPasse, ShowsAStarForEachCharacterAndTakesEight)
{
    Type(Box(), u"123456789"_s);

    EXPECT_EQ(Box().text(), u"12345678"_s);
    EXPECT_EQ(Box().displayText(), u"********"_s);
}

TEST_F(FrmMotPasse, LeadsTheTabKeyFromTheBoxToTheButtons)
{
    Press(Box(), Qt::Key_Tab);
    EXPECT_TRUE(Control<QPushButton>(window, "cmdOK").hasFocus());
    Press(Control<QPushButton>(window, "cmdOK"), Qt::Key_Tab);
    EXPECT_TRUE(Control<QPushButton>(window, "cmdCancel").hasFocus());
}

TEST_F(FrmMotPasse, IsAcceptedWithTheRightPassword)
{
    Type(Box(), u"Sesame"_s);

    PressOk();

    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmMotPasse, RefusesAWrongPasswordAndStays)
{
    Type(Box(), u"autre"_s);
    Control<QPushButton>(window, "cmdOK").setFocus();

    PressOk();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Erreur sur mot de passe"_s);
    EXPECT_EQ(messages.shown[0].text, u"Ceci n'est pas le mot de passe.\nRecommencez !"_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Warning);
    EXPECT_EQ(Box().text(), QString());
    EXPECT_TRUE(Box().hasFocus());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(FrmMotPasse, CaseMatters)
{
    Type(Box(), u"sesame"_s);

    PressOk();

    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(FrmMotPasse, BlanksMatter)
{
    Type(Box(), u"Sesame "_s);

    PressOk();

    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(FrmMotPasse, MayBeTriedWithoutEnd)
{
    for (int i = 0; i < 20; ++i)
        PressOk();
    Type(Box(), u"Sesame"_s);

    PressOk();

    EXPECT_EQ(messages.shown.size(), 20U);
    EXPECT_EQ(window.result(), QDialog::Accepted);
}

TEST_F(FrmMotPasse, TakesTheEmptyTextWhenNoneWasSet)
{
    SetPassword(QString());

    PressOk();

    EXPECT_EQ(window.result(), QDialog::Accepted);
}

TEST_F(FrmMotPasse, NeverOpensWhenThePasswordCannotBeRead)
{
    LoseTheShare();

    PressOk();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(messages.shown[0].text.startsWith(u"Le fichier du mot de passe ne peut pas être lu :\n"_s));
    EXPECT_TRUE(window.isVisible());
}

TEST_F(FrmMotPasse, IsRejectedByItsButtonByEscapeAndByItsTitleBar)
{
    Click(Control<QPushButton>(window, "cmdCancel"));
    EXPECT_EQ(window.result(), QDialog::Rejected);
    EXPECT_FALSE(window.isVisible());

    Show(window);
    Press(Box(), Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());

    Show(window);
    window.close();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.result(), QDialog::Rejected);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmMotPasse, EnterInTheBoxDoesNothing)
{
    Type(Box(), u"Sesame"_s);

    Press(Box(), Qt::Key_Return);

    EXPECT_TRUE(window.isVisible());
}

TEST_F(FrmPassWord, HasItsFixedWords)
{
    EXPECT_EQ(Control<QLabel>(window, "Label1").text(), u"Ancien mot de passe :"_s);
    EXPECT_EQ(Control<QLabel>(window, "Label2").text(), u"Nouveau mot de passe :"_s);
    EXPECT_EQ(New().toolTip(), u"8 caractères au maximum"_s);
    EXPECT_TRUE(window.isModal());
}

TEST_F(FrmPassWord, ShowsStarsAndTakesEightInBothBoxes)
{
    for (QLineEdit* const box : {&Old(), &New()}) {
        Type(*box, u"123456789"_s);
        EXPECT_EQ(box->text(), u"12345678"_s);
        EXPECT_EQ(box->displayText(), u"********"_s);
    }
}

TEST_F(FrmPassWord, ChangesThePasswordForWhoKnowsTheOldOne)
{
    Type(Old(), u"Sesame"_s);
    Type(New(), u"ouvre"_s);

    PressOk();

    EXPECT_EQ(Password(), u"ouvre"_s);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmPassWord, TakesAnEmptyNewPassword)
{
    Type(Old(), u"Sesame"_s);

    PressOk();

    EXPECT_EQ(Password(), QString());
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FrmPassWord, BeginsAgainAfterAWrongOldPassword)
{
    Type(Old(), u"sesame"_s);
    Type(New(), u"ouvre"_s);
    messages.answers = {QMessageBox::Yes};

    PressOk();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
    EXPECT_EQ(messages.shown[0].text, u"L'ancien mot de passe est faux !\nVoulez-vous recommencer ?"_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Question);
    EXPECT_EQ(messages.shown[0].preset, QMessageBox::No);
    EXPECT_EQ(Old().text(), QString());
    EXPECT_EQ(New().text(), QString());
    EXPECT_TRUE(Old().hasFocus());
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Password(), u"Sesame"_s);
}

TEST_F(FrmPassWord, GoesAfterAWrongOldPasswordOnNo)
{
    Type(New(), u"ouvre"_s);
    messages.answers = {QMessageBox::No};

    PressOk();

    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(Password(), u"Sesame"_s);
}

TEST_F(FrmPassWord, IsEmptiedEachTimeItBecomesActive)
{
    Type(Old(), u"Sesame"_s);
    Type(New(), u"ouvre"_s);
    New().setFocus();
    QWidget other;
    other.show();
    other.activateWindow();
    Settle();

    window.activateWindow();
    Settle();

    EXPECT_EQ(Old().text(), QString());
    EXPECT_EQ(New().text(), QString());
    EXPECT_TRUE(Old().hasFocus());
}

TEST_F(FrmPassWord, TellsThatThePasswordCannotBeRead)
{
    LoseTheShare();

    PressOk();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(FrmPassWord, StaysWhenThePasswordCannotBeStored)
{
    Type(Old(), u"Sesame"_s);
    Type(New(), u"ouvre"_s);
    messages.answers = {QMessageBox::Cancel};

    LimitFileSize(0);
    PressOk();
    LimitFileSize(RLIM_INFINITY);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(messages.shown[0].text.startsWith(u"Le nouveau mot de passe n'a pas "_s))
        << messages.shown[0].text.toStdString();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Password(), u"Sesame"_s);
}

TEST_F(FrmPassWord, StoresThePasswordAtTheNextTry)
{
    Type(Old(), u"Sesame"_s);
    Type(New(), u"ouvre"_s);
    messages.answers = {QMessageBox::Retry};
    messages.whileOpen = [this](const Message&) {
        LimitFileSize(RLIM_INFINITY);
        // As the message that has the keyboard does to the window, and gives it back.
        QWidget other;
        other.show();
        other.activateWindow();
        Settle();
        window.activateWindow();
        Settle();
    };

    LimitFileSize(0);
    PressOk();

    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_EQ(Password(), u"ouvre"_s);
}

TEST_F(FrmPassWord, ChangesNothingWhenItIsCancelled)
{
    Type(Old(), u"Sesame"_s);
    Type(New(), u"ouvre"_s);

    Click(Control<QPushButton>(window, "cmdCancel"));

    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(Password(), u"Sesame"_s);
}

TEST_F(FrmPassWord, GoesOnEscapeAndAsksForItsHelpPage)
{
    const WindowEvents events;
    QSignalSpy help(&events, &WindowEvents::HelpRequested);

    Press(Old(), Qt::Key_F1);
    EXPECT_EQ(help.count(), 1);
    Press(Old(), Qt::Key_Escape);

    EXPECT_FALSE(window.isVisible());
}

} // namespace stoikal
