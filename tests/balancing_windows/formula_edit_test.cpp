#include "chemistry/windows/formula_edit.h"

#include "support/fake_messages.h"
#include "support/window_driver.h"

#include <QClipboard>
#include <QPushButton>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QString kLeadingZero = u"Le chiffre 0 ne peut être le premier caractère\nd'une formule moléculaire."_s;
const QString kZeroIndex = u"Un atome ne peut avoir un indice de zéro."_s;

QString Refused(const QString& character)
{
    return u"Le caractère saisie (%1) n'est pas autorisé."_s.arg(character);
}

/// A box for a formula on the screen, and a button beside it.
class FormulaBox : public testing::TestWithParam<FormulaField>
{
protected:
    void Open(FormulaField field)
    {
        box = new FormulaEdit(field, messages, &window);
        auto* const column = new QVBoxLayout(&window);
        column->addWidget(box);
        column->addWidget(&button);
        QObject::connect(box, &FormulaEdit::FormulaChanged, [this] { changes << box->text(); });
        window.show();
        window.activateWindow();
        box->setFocus();
        Settle();
        messages.whileOpen = [this](const Message&) {
            whileOpen << box->text();
            selected << QString::number(box->selectionStart()) + u':' + box->selectedText();
        };
    }

    void Paste(const QString& text)
    {
        QApplication::clipboard()->setText(text);
        Press(*box, Qt::Key_V, Qt::ControlModifier);
    }

    /// One warning box of that text; the old boxes are forgotten.
    void ExpectTold(const QString& text)
    {
        ASSERT_EQ(messages.shown.size(), 1U);
        EXPECT_EQ(messages.shown[0].title, u"Erreur sur saisie."_s);
        EXPECT_EQ(messages.shown[0].text, text);
        EXPECT_EQ(messages.shown[0].icon, QMessageBox::Warning);
        EXPECT_EQ(messages.shown[0].buttons, QMessageBox::Ok);
        messages.shown.clear();
    }

    FakeMessages messages;
    QWidget window;
    QPushButton button{&window};
    FormulaEdit* box = nullptr;
    QStringList changes; ///< the texts told as right, in order
    QStringList whileOpen; ///< the text behind each box
    QStringList selected; ///< the selection behind each box: "2:é"
};

class ExpertBox : public FormulaBox
{
protected:
    void SetUp() override { Open(FormulaField::Expert); }
};

class SearchBox : public FormulaBox
{
protected:
    void SetUp() override { Open(FormulaField::Search); }
};

/// The boxes of both windows of this subsystem.
class EveryFormulaBox : public FormulaBox
{
protected:
    void SetUp() override { Open(GetParam()); }
};

INSTANTIATE_TEST_SUITE_P(Windows, EveryFormulaBox,
                         testing::Values(FormulaField::Expert, FormulaField::Search));

} // namespace

TEST_P(EveryFormulaBox, TakesTheSignsOfAFormula)
{
    Type(*box, u"Ca3(PO4)2,10H2O-+{2+}"_s);

    EXPECT_EQ(box->text(), u"Ca3(PO4)2,10H2O-+{2+}"_s);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_P(EveryFormulaBox, RefusesEveryOtherCharacterWithAMessage)
{
    Type(*box, u"H2"_s);
    for (const QChar key : u" =/<>[]#'.é²"_s) {
        Type(*box, QString(key));
        ExpectTold(Refused(QString(key)));
        EXPECT_EQ(box->text(), u"H2"_s);
    }
}

TEST_P(EveryFormulaBox, ShowsTheRefusedCharacterSelectedBehindItsMessage)
{
    Type(*box, u"H2é"_s);

    EXPECT_EQ(whileOpen, QStringList{u"H2é"_s});
    EXPECT_EQ(selected, QStringList{u"2:é"_s});
    EXPECT_EQ(box->selectedText(), QString());
}

TEST_P(EveryFormulaBox, TellsATextAsRightOnceItIs)
{
    Type(*box, u"Hé2"_s);

    EXPECT_EQ(changes, QStringList({u"H"_s, u"H"_s, u"H2"_s}));
}

TEST_P(EveryFormulaBox, RefusesALeadingZero)
{
    Type(*box, u"0"_s);
    ExpectTold(kLeadingZero);
    EXPECT_EQ(selected, QStringList{u"0:0"_s});
    EXPECT_EQ(box->text(), QString());

    Type(*box, u"H2"_s);
    Press(*box, Qt::Key_Home);
    Type(*box, u"0"_s);
    ExpectTold(kLeadingZero);
    EXPECT_EQ(box->text(), u"H2"_s);
}

TEST_P(EveryFormulaBox, RefusesAZeroBehindALetterOrABracket)
{
    for (const auto& before : {u"H"_s, u"Fe"_s, u"(OH"_s, u"("_s, u"Fe{"_s, u"(OH)"_s, u"H2,"_s, u"Cl-"_s}) {
        box->clear();
        Type(*box, before + u'0');
        ExpectTold(kZeroIndex);
        EXPECT_EQ(selected.last(), QString::number(before.size()) + u":0"_s);
        EXPECT_EQ(box->text(), before);
    }
}

TEST_P(EveryFormulaBox, LetsAZeroPassBehindADigit)
{
    Type(*box, u"H10C100"_s);

    EXPECT_EQ(box->text(), u"H10C100"_s);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_P(EveryFormulaBox, LetsAPasteThroughTheFilterAndTellsTheFirstRefusalOnly)
{
    Type(*box, u"C"_s);

    Paste(u"é H0 2[O]"_s);

    EXPECT_EQ(box->text(), u"CH2O"_s);
    ExpectTold(Refused(u"é"_s));
    EXPECT_EQ(whileOpen, QStringList{u"Cé"_s});
}

TEST_P(EveryFormulaBox, TellsTheRefusalOfEachPaste)
{
    Paste(u"H =2"_s);
    ExpectTold(Refused(u" "_s));
    Paste(u"O="_s);
    ExpectTold(Refused(u"="_s));

    EXPECT_EQ(box->text(), u"H2O"_s);
}

TEST_P(EveryFormulaBox, JudgesAKeyOverASelectionAsOnTheShorterText)
{
    Type(*box, u"C{2+}"_s);
    box->selectAll();

    Type(*box, u"{"_s);

    EXPECT_EQ(box->text(), u"{"_s);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_P(EveryFormulaBox, TellsEachZeroThatADeletionLeaves)
{
    Type(*box, u"C10O10"_s);
    Press(*box, Qt::Key_Backspace);
    Press(*box, Qt::Key_Home);
    Press(*box, Qt::Key_Right);

    // "C10O1": without the first 1 the 0 stands behind C.
    Press(*box, Qt::Key_Delete);
    ExpectTold(kZeroIndex);
    EXPECT_EQ(box->text(), u"CO1"_s);

    Press(*box, Qt::Key_End);
    Type(*box, u"0"_s);
    Press(*box, Qt::Key_Left);
    // "CO10": and so here.
    Press(*box, Qt::Key_Backspace);
    ExpectTold(kZeroIndex);
    EXPECT_EQ(box->text(), u"CO"_s);
}

TEST_P(EveryFormulaBox, LeavesTheCaretWhereItsTextStood)
{
    Type(*box, u"H2O"_s);
    Press(*box, Qt::Key_Left);
    Type(*box, u"é"_s);
    // "H2|O" again.
    EXPECT_EQ(box->cursorPosition(), 2);

    box->clear();
    Type(*box, u"C10"_s);
    Press(*box, Qt::Key_Left);
    Press(*box, Qt::Key_Backspace);
    // "C|0": the 0 that goes stands behind the caret.
    EXPECT_EQ(box->text(), u"C"_s);
    EXPECT_EQ(box->cursorPosition(), 1);
}

TEST_P(EveryFormulaBox, SelectsItsWholeTextWhenTheFocusComes)
{
    Type(*box, u"H2O"_s);
    button.setFocus();
    box->setCursorPosition(0);

    ClickInto(*box);
    EXPECT_EQ(box->selectedText(), u"H2O"_s);

    button.setFocus();
    box->deselect();
    Press(button, Qt::Key_Backtab, Qt::ShiftModifier);
    Settle();
    EXPECT_TRUE(box->hasFocus());
    EXPECT_EQ(box->selectedText(), u"H2O"_s);
}

TEST_P(EveryFormulaBox, GoesOnWhereItWasWhenItsWindowComesBack)
{
    Type(*box, u"H2"_s);
    QWidget other;
    other.show();
    other.activateWindow();
    Settle();
    ASSERT_FALSE(box->hasFocus());

    window.activateWindow();
    Settle();

    ASSERT_TRUE(box->hasFocus());
    EXPECT_EQ(box->selectedText(), QString());
    Type(*box, u"O"_s);
    EXPECT_EQ(box->text(), u"H2O"_s);
}

TEST_P(EveryFormulaBox, DoesNothingAtEnterAndEscape)
{
    Type(*box, u"H2"_s);
    changes.clear();

    Press(*box, Qt::Key_Return);
    Press(*box, Qt::Key_Enter);
    Press(*box, Qt::Key_Escape);

    EXPECT_EQ(box->text(), u"H2"_s);
    EXPECT_TRUE(changes.isEmpty());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(ExpertBox, RemovesTheOlderOfTwoEqualBraces)
{
    Type(*box, u"Fe{2"_s);

    Type(*box, u"{"_s);

    ExpectTold(Refused(u"{"_s));
    EXPECT_EQ(whileOpen, QStringList{u"Fe{2{"_s});
    EXPECT_EQ(selected, QStringList{u"2:{"_s});
    EXPECT_EQ(box->text(), u"Fe2{"_s);
}

TEST_F(ExpertBox, RemovesTheOlderOfTwoEqualClosingBraces)
{
    Type(*box, u"Fe{2}+}"_s);

    ExpectTold(Refused(u"}"_s));
    EXPECT_EQ(box->text(), u"Fe{2+}"_s);
}

TEST_F(SearchBox, TakesAnyNumberOfBraces)
{
    Type(*box, u"{{2+}}"_s);

    EXPECT_EQ(box->text(), u"{{2+}}"_s);
    EXPECT_TRUE(messages.shown.empty());
}

} // namespace stoikal
