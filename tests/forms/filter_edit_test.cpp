#include "forms/filter_edit.h"

#include "support/window_driver.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <gtest/gtest.h>
#include <memory>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A box that takes whatever passes the filter.
struct AnyBox {
    AnyBox()
    {
        QObject::connect(&box, &FilterEdit::KeyPressed, &box, [this](QChar key) { heard += key; });
        box.show();
    }

    FilterEdit box;
    QString heard; ///< every key that passed the filter
};

/// A box that takes digits only: a refused key is told and, once it is in,
/// taken out again.
class DigitBox
{
public:
    DigitBox()
    {
        QObject::connect(&box, &FilterEdit::KeyPressed, &box, [this](QChar key) { Judge(key); });
        QObject::connect(&box, &FilterEdit::textChanged, &box,
                         [this](const QString& text) { TakeOut(text); });
        box.show();
    }

    FilterEdit box;
    QString heard; ///< every key that passed the filter
    QString told; ///< the refused keys that were told

private:
    void Judge(QChar key)
    {
        heard += key;
        m_isBad = key < u'0' || key > u'9';
        if (!m_isBad || box.RefusalIsTold())
            return;
        box.NoteRefusal();
        told += key;
    }

    void TakeOut(const QString& text)
    {
        if (!m_isBad)
            return;
        m_isBad = false;
        box.setText(text.chopped(1));
    }

    bool m_isBad = false;
};

QMenu* OpenMenu(const QWidget& box)
{
    const auto menus = box.findChildren<QMenu*>();
    for (QMenu* const menu : menus) {
        if (menu->isVisible())
            return menu;
    }
    return nullptr;
}

void Commit(QWidget& box, const QString& text)
{
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(&box, &event);
}

} // namespace

TEST(FilterEdit, KeyIsHeardBeforeItGoesIn)
{
    FilterEdit box;
    box.show();
    QStringList before;
    QObject::connect(&box, &FilterEdit::KeyPressed, &box,
                     [&](QChar key) { before << box.text() + u'|' + key; });

    Type(box, u"12"_s);

    EXPECT_EQ(before, QStringList({u"|1"_s, u"1|2"_s}));
    EXPECT_EQ(box.text(), u"12"_s);
}

TEST(FilterEdit, JudgesNothingItself)
{
    FilterEdit box;
    box.show();

    Type(box, u"a1 +é"_s);

    EXPECT_EQ(box.text(), u"a1 +é"_s);
}

TEST(FilterEdit, RefusedKeyIsTakenOutByTheListener)
{
    DigitBox digits;

    Type(digits.box, u"1a2"_s);

    EXPECT_EQ(digits.box.text(), u"12"_s);
    EXPECT_EQ(digits.told, u"a"_s);
}

TEST(FilterEdit, EachTypedRefusalIsTold)
{
    DigitBox digits;

    Type(digits.box, u"a1bc"_s);

    EXPECT_EQ(digits.told, u"abc"_s);
    EXPECT_EQ(digits.box.text(), u"1"_s);
}

TEST(FilterEdit, AccentedCharactersPass)
{
    DigitBox digits;

    Type(digits.box, u"é1€"_s);

    EXPECT_EQ(digits.heard, u"é1€"_s);
    EXPECT_EQ(digits.box.text(), u"1"_s);
}

TEST(FilterEdit, EveryCharacterOfAPastePassesAndTheFirstRefusalIsTold)
{
    DigitBox digits;
    QApplication::clipboard()->setText(u"1a2b3"_s);

    Press(digits.box, Qt::Key_V, Qt::ControlModifier);

    EXPECT_EQ(digits.heard, u"1a2b3"_s);
    EXPECT_EQ(digits.box.text(), u"123"_s);
    EXPECT_EQ(digits.told, u"a"_s);
}

TEST(FilterEdit, NextPasteTellsItsOwnFirstRefusal)
{
    DigitBox digits;
    QApplication::clipboard()->setText(u"ab"_s);

    Press(digits.box, Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(digits.box.RefusalIsTold());
    Press(digits.box, Qt::Key_Insert, Qt::ShiftModifier);
    Type(digits.box, u"c"_s);

    EXPECT_EQ(digits.told, u"aac"_s);
    EXPECT_EQ(digits.heard, u"ababc"_s);
}

TEST(FilterEdit, RefusalToldOutsideAnInputDoesNotHushTheNext)
{
    DigitBox digits;
    digits.box.NoteRefusal();

    Type(digits.box, u"a"_s);

    EXPECT_EQ(digits.told, u"a"_s);
}

TEST(FilterEdit, UnprintableCharactersOfAPasteAreDropped)
{
    DigitBox digits;
    QApplication::clipboard()->setText(u"1\r\n2\t3\u200B\u0007"_s);

    Press(digits.box, Qt::Key_V, Qt::ControlModifier);

    EXPECT_EQ(digits.heard, u"123"_s);
    EXPECT_EQ(digits.box.text(), u"123"_s);
    EXPECT_TRUE(digits.told.isEmpty());
}

TEST(FilterEdit, PasteGoesInWhereTheCursorStands)
{
    DigitBox digits;
    digits.box.setText(u"19"_s);
    digits.box.setCursorPosition(1);
    QApplication::clipboard()->setText(u"23"_s);

    Press(digits.box, Qt::Key_V, Qt::ControlModifier);

    EXPECT_EQ(digits.box.text(), u"1239"_s);
}

TEST(FilterEdit, PasteStopsAtTheLongestText)
{
    FilterEdit box;
    box.setMaxLength(2);
    box.show();

    box.InsertThroughFilter(u"1234"_s);

    EXPECT_EQ(box.text(), u"12"_s);
}

TEST(FilterEdit, SelectionShortensTheLengthBeforeAKey)
{
    FilterEdit box;
    box.setText(u"123"_s);
    EXPECT_EQ(box.LengthBeforeKey(), 3);

    box.setSelection(1, 2);
    EXPECT_EQ(box.LengthBeforeKey(), 1); // 3 - 2.

    box.selectAll();
    EXPECT_EQ(box.LengthBeforeKey(), 0);
}

TEST(FilterEdit, KeyReplacesTheSelectionAndIsJudgedOnTheShorterText)
{
    FilterEdit box;
    box.show();
    box.setText(u"12"_s);
    box.selectAll();
    std::vector<qsizetype> lengths;
    QObject::connect(&box, &FilterEdit::KeyPressed, &box, [&] { lengths.push_back(box.LengthBeforeKey()); });

    Type(box, u"34"_s);

    EXPECT_EQ(box.text(), u"34"_s);
    EXPECT_EQ(lengths, std::vector<qsizetype>({0, 1}));
}

TEST(FilterEdit, EnterAndEscapeAndTheEditingKeysDoNotPass)
{
    DigitBox digits;
    digits.box.setText(u"12"_s);

    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Left,
                              Qt::Key_Home, Qt::Key_End, Qt::Key_F5})
        Press(digits.box, key);

    EXPECT_TRUE(digits.heard.isEmpty());
    EXPECT_EQ(digits.box.text(), u"12"_s);

    Press(digits.box, Qt::Key_Backspace);
    EXPECT_TRUE(digits.heard.isEmpty());
    EXPECT_EQ(digits.box.text(), u"1"_s);
}

TEST(FilterEdit, EnterIsStillHeardAsEnter)
{
    DigitBox digits;
    int returns = 0;
    QObject::connect(&digits.box, &QLineEdit::returnPressed, &digits.box, [&returns] { ++returns; });

    Press(digits.box, Qt::Key_Return);

    EXPECT_EQ(returns, 1);
}

TEST(FilterEdit, AltAndALetterIsNotTyped)
{
    AnyBox any;

    QTest::sendKeyEvent(QTest::Click, &any.box, Qt::Key_F, u"f"_s, Qt::AltModifier);
    QTest::sendKeyEvent(QTest::Click, &any.box, Qt::Key_F, u"F"_s, Qt::AltModifier | Qt::ShiftModifier);

    EXPECT_EQ(any.heard, QString());
    EXPECT_EQ(any.box.text(), QString());
}

TEST(FilterEdit, ControlOrMetaAndAKeyIsNotTyped)
{
    AnyBox any;

    // The windowing system gives control and a digit with the digit's text,
    // control and a letter with a control character.
    QTest::sendKeyEvent(QTest::Click, &any.box, Qt::Key_1, u"1"_s, Qt::ControlModifier);
    QTest::sendKeyEvent(QTest::Click, &any.box, Qt::Key_B, u"\u0002"_s, Qt::ControlModifier);
    QTest::sendKeyEvent(QTest::Click, &any.box, Qt::Key_1, u"1"_s, Qt::MetaModifier);
    QTest::sendKeyEvent(QTest::Click, &any.box, Qt::Key_1, u"1"_s, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::sendKeyEvent(QTest::Click, &any.box, Qt::Key_1, u"1"_s, Qt::ControlModifier | Qt::KeypadModifier);
    QTest::sendKeyEvent(QTest::Click, &any.box, Qt::Key_1, u"1"_s, Qt::ControlModifier | Qt::MetaModifier);

    EXPECT_EQ(any.heard, QString());
    EXPECT_EQ(any.box.text(), QString());
}

TEST(FilterEdit, ThirdLevelOfTheKeyboardIsTyped)
{
    // The braces of a French keyboard, as two ways of reporting them.
    AnyBox any;

    QTest::sendKeyEvent(QTest::Click, &any.box, Qt::Key_BraceLeft, u"{"_s, Qt::GroupSwitchModifier);
    QTest::sendKeyEvent(QTest::Click, &any.box, Qt::Key_BraceRight, u"}"_s,
                        Qt::ControlModifier | Qt::AltModifier);
    QTest::sendKeyEvent(QTest::Click, &any.box, Qt::Key_5, u"5"_s, Qt::KeypadModifier);

    EXPECT_EQ(any.heard, u"{}5"_s);
    EXPECT_EQ(any.box.text(), u"{}5"_s);
}

TEST(FilterEdit, KeyWithoutAPrintableCharacterIsNotTyped)
{
    FilterEdit box;
    box.show();

    // A joiner, a character of a font's own, one of two halves.
    for (const QString& text : {u"\u200C"_s, u"\uE000"_s, u"😀"_s})
        QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_unknown, text, Qt::NoModifier);

    EXPECT_EQ(box.text(), QString());
}

TEST(FilterEdit, ControlKeysOfEditingStillWork)
{
    DigitBox digits;
    digits.box.setText(u"12"_s);

    Press(digits.box, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(digits.box.selectedText(), u"12"_s);
    Press(digits.box, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"12"_s);
    Press(digits.box, Qt::Key_X, Qt::ControlModifier);

    EXPECT_EQ(digits.box.text(), QString());
    EXPECT_TRUE(digits.heard.isEmpty());
}

TEST(FilterEdit, DropPassesTheFilter)
{
    DigitBox digits;
    QMimeData dragged;
    dragged.setText(u"4x5y"_s);
    const QPoint place = digits.box.rect().center();
    QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop(place, Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton, Qt::NoModifier);

    QCoreApplication::sendEvent(&digits.box, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QCoreApplication::sendEvent(&digits.box, &drop);

    EXPECT_EQ(digits.heard, u"4x5y"_s);
    EXPECT_EQ(digits.box.text(), u"45"_s);
    EXPECT_EQ(digits.told, u"x"_s);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction); // Nothing is taken from where it came.
}

TEST(FilterEdit, InputMethodPassesTheFilter)
{
    DigitBox digits;

    Commit(digits.box, u"6z7"_s);

    EXPECT_EQ(digits.heard, u"6z7"_s);
    EXPECT_EQ(digits.box.text(), u"67"_s);
    EXPECT_EQ(digits.told, u"z"_s);
}

TEST(FilterEdit, WhatIsBeingComposedIsNotYetJudged)
{
    DigitBox digits;
    QInputMethodEvent composing(u"^"_s, {});

    QCoreApplication::sendEvent(&digits.box, &composing);
    EXPECT_TRUE(digits.heard.isEmpty());
    EXPECT_EQ(digits.box.text(), QString());
    Commit(digits.box, u"ê"_s);

    EXPECT_EQ(digits.heard, u"ê"_s);
    EXPECT_EQ(digits.box.text(), QString());
    EXPECT_EQ(digits.box.displayText(), QString()); // The composition is gone as well.
}

TEST(FilterEdit, PasteOfTheContextMenuPassesTheFilter)
{
    DigitBox digits;
    QApplication::clipboard()->setText(u"8w9"_s);
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(2, 2), digits.box.mapToGlobal(QPoint(2, 2)));

    QCoreApplication::sendEvent(&digits.box, &event);
    const QPointer<QMenu> menu = OpenMenu(digits.box);
    ASSERT_NE(menu, nullptr);
    auto* const paste = menu->findChild<QAction*>(u"edit-paste"_s);
    ASSERT_NE(paste, nullptr);
    ASSERT_TRUE(paste->isEnabled());
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(paste).center());
    Settle();

    EXPECT_EQ(digits.heard, u"8w9"_s);
    EXPECT_EQ(digits.box.text(), u"89"_s);
    EXPECT_EQ(digits.told, u"w"_s);
    EXPECT_EQ(menu, nullptr); // It went with its click.
}

TEST(FilterEdit, ReadOnlyAndDisabledBoxesTakeNothing)
{
    DigitBox digits;
    digits.box.setReadOnly(true);
    digits.box.InsertThroughFilter(u"1"_s);
    digits.box.setReadOnly(false);
    digits.box.setEnabled(false);
    digits.box.InsertThroughFilter(u"2"_s);

    EXPECT_TRUE(digits.heard.isEmpty());
    EXPECT_EQ(digits.box.text(), QString());
}

TEST(FilterEdit, BoxDisabledByItsListenerTakesNoMore)
{
    // A right answer in the middle of a paste ends the typing.
    FilterEdit box;
    box.show();
    QObject::connect(&box, &FilterEdit::textChanged, &box,
                     [&box](const QString& text) { box.setEnabled(text != u"12"_s); });

    box.InsertThroughFilter(u"1234"_s);

    EXPECT_EQ(box.text(), u"12"_s);
}

TEST(FilterEdit, ListenerMayFreeTheBox)
{
    auto* const box = new FilterEdit;
    QObject::connect(box, &FilterEdit::KeyPressed, box, [box] { delete box; });
    const QPointer<FilterEdit> alive(box);

    box->InsertThroughFilter(u"12"_s);

    EXPECT_TRUE(alive.isNull());
}

TEST(FilterEdit, TellsThatItHasTheFocus)
{
    QWidget window;
    FilterEdit first(&window);
    FilterEdit second(&window);
    int gained = 0;
    QObject::connect(&second, &FilterEdit::FocusGained, &second, [&gained] { ++gained; });
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    first.setFocus();
    ASSERT_EQ(gained, 0);

    second.setFocus();

    EXPECT_EQ(gained, 1);
}

} // namespace stoikal
