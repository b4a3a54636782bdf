#include "forms/window_events.h"
#include "shell/windows/frm_name.h"

#include "support/fake_messages.h"
#include "support/fake_platform.h"
#include "support/window_driver.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class FrmName : public testing::Test
{
protected:
    FrmName()
    {
        window.show();
        window.activateWindow();
        Settle();
    }

    QLineEdit& Ident(int i) { return Control<QLineEdit>(window, qPrintable(ArrayName("txtIdent", i))); }
    QPushButton& Button(const char* name) { return Control<QPushButton>(window, name); }

    QStringList ToolTips()
    {
        return {Ident(1).toolTip(),        Ident(2).toolTip(),           Ident(3).toolTip(),
                Button("cmdOK").toolTip(), Button("cmdAnnul").toolTip(), Button("cmdEnd").toolTip()};
    }

    /// The question was shown and its box waits for the answer.
    void ExpectAskedFor(int i, const QString& question)
    {
        ASSERT_EQ(messages.shown.size(), 1U);
        EXPECT_EQ(messages.shown[0].title, u"Saisie incomplète"_s);
        EXPECT_EQ(messages.shown[0].text, question);
        EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
        EXPECT_TRUE(window.isVisible());
        EXPECT_TRUE(Ident(i).hasFocus());
    }

    FakeMessages messages;
    FakeSound sound;
    frmName window{messages, sound, nullptr};
};

} // namespace

TEST_F(FrmName, AsksForNameFirstNameAndClass)
{
    EXPECT_EQ(window.windowTitle(), u"Qui êtes-vous ?"_s);
    EXPECT_TRUE(window.isModal());
    EXPECT_EQ(Control<QLabel>(window, "lblClasse").text(), u"Votre classe :"_s);
    EXPECT_EQ(Control<QLabel>(window, "lblName").buddy(), &Ident(1));
    EXPECT_EQ(Control<QLabel>(window, "Label1").buddy(), &Ident(2));
    EXPECT_EQ(Control<QLabel>(window, "lblClasse").buddy(), &Ident(3));
    EXPECT_EQ(Button("cmdOK").text(), u"&OK"_s);
    EXPECT_EQ(Button("cmdAnnul").text(), u"&Annuler"_s);
    EXPECT_EQ(Button("cmdEnd").text(), u"&Quitter"_s);
    EXPECT_TRUE(Ident(1).hasFocus());
}

TEST_F(FrmName, LeadsTheTabKeyFromBoxToBoxAndToTheButtons)
{
    QStringList order;
    for (int i = 0; i < 6; ++i) {
        order << window.focusWidget()->objectName();
        Press(*window.focusWidget(), Qt::Key_Tab);
    }

    EXPECT_EQ(order,
              QStringList({u"txtIdent(1)"_s, u"txtIdent(2)"_s, u"txtIdent(3)"_s, u"cmdOK"_s, u"cmdAnnul"_s,
                           u"cmdEnd"_s}));
}

TEST_F(FrmName, ExplainsItselfAtLoad)
{
    EXPECT_EQ(ToolTips(),
              QStringList({u"Saisissez ici votre nom"_s, u"Saisissez ici votre prénom"_s,
                           u"Saisissez ici votre numéro de classe"_s, u"Pour commencer les exercices"_s,
                           u"Pour revenir à l'accueil"_s, u"Pour quitter le programme"_s}));
}

TEST_F(FrmName, ExplainsItselfOtherwiseAfterTheFirstOk)
{
    Click(Button("cmdOK"));

    EXPECT_EQ(
        ToolTips(),
        QStringList({u"Entrer ici votre nom"_s, u"Entrer ici votre prénom"_s, u"Entrer ici votre classe"_s,
                     u"Pour ouvrir un fichier, une fois les nom, prénom et classe saisis"_s,
                     u"Pour revenir au mode libre"_s, u"Pour fermer le logiciel Stoikal"_s}));
}

TEST_F(FrmName, RefusesAMissingName)
{
    Type(Ident(2), u"Paul"_s);
    Button("cmdOK").setFocus();

    Click(Button("cmdOK"));

    ExpectAskedFor(1, u"Quel est votre nom ?"_s);
}

TEST_F(FrmName, RefusesAMissingFirstName)
{
    Type(Ident(1), u"DUPONT"_s);
    Type(Ident(3), u"3B"_s);

    Click(Button("cmdOK"));

    ExpectAskedFor(2, u"Quel est votre prénom ?"_s);
}

TEST_F(FrmName, RefusesAMissingClass)
{
    Type(Ident(1), u"DUPONT"_s);
    Type(Ident(2), u"Paul"_s);

    Click(Button("cmdOK"));

    ExpectAskedFor(3, u"Quelle est votre classe ?"_s);
}

TEST_F(FrmName, TellsTheTextsAsTyped)
{
    Type(Ident(1), u" Élan "_s);
    Type(Ident(2), u"Zoé"_s);
    Type(Ident(3), u"3 B"_s);

    Click(Button("cmdOK"));

    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.result(), frmName::Identified);
    EXPECT_EQ(window.Nom(), u" Élan "_s);
    EXPECT_EQ(window.Prenom(), u"Zoé"_s);
    EXPECT_EQ(window.Classe(), u"3 B"_s);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmName, SelectsTheWholeTextOfABoxThatGetsTheFocus)
{
    Type(Ident(1), u"DUPONT"_s);
    Ident(2).setFocus();
    Settle();
    ASSERT_FALSE(Ident(1).hasSelectedText());

    ClickInto(Ident(1));

    EXPECT_EQ(Ident(1).selectedText(), u"DUPONT"_s);
}

TEST_F(FrmName, IsCancelledByItsButtonAndByEscape)
{
    Click(Button("cmdAnnul"));
    EXPECT_EQ(window.result(), frmName::Cancelled);
    EXPECT_FALSE(window.isVisible());

    window.show();
    Press(Ident(1), Qt::Key_Escape);
    EXPECT_EQ(window.result(), frmName::Cancelled);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FrmName, LeavesTheIdentityAsItWasByTheTitleBar)
{
    Type(Ident(1), u"DUPONT"_s);

    window.close();

    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.result(), frmName::LeftAsItWas);
}

TEST_F(FrmName, AnswersEnterWithNothing)
{
    Type(Ident(1), u"DUPONT"_s);

    Press(Ident(1), Qt::Key_Return);

    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FrmName, TakesEnterOnItsButton)
{
    Type(Ident(1), u"DUPONT"_s);
    Type(Ident(2), u"Paul"_s);
    Type(Ident(3), u"3B"_s);
    Button("cmdOK").setFocus();

    Press(Button("cmdOK"), Qt::Key_Enter, Qt::KeypadModifier);

    EXPECT_EQ(window.result(), frmName::Identified);
}

TEST_F(FrmName, BeepsAndAsksBeforeItEndsTheProgram)
{
    messages.answers = {QMessageBox::Yes};

    Click(Button("cmdEnd"));

    EXPECT_EQ(sound.beeps, 1);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
    EXPECT_EQ(messages.shown[0].text, u"Voulez-vous quitter ce programme ?"_s);
    EXPECT_EQ(messages.shown[0].buttons, QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(window.result(), frmName::EndOfProgram);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FrmName, StaysWhenTheProgramIsNotToEnd)
{
    messages.answers = {QMessageBox::No};

    Click(Button("cmdEnd"));

    EXPECT_TRUE(window.isVisible());
}

TEST_F(FrmName, AsksForHelpByF1)
{
    const WindowEvents events;
    QSignalSpy asked(&events, &WindowEvents::HelpRequested);

    Press(Ident(2), Qt::Key_F1);

    EXPECT_EQ(asked.count(), 1);
}

} // namespace stoikal
