#include "forms/selecting_edit.h"

#include "forms/messages.h"
#include "support/window_driver.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A window in front with two fields, the keyboard on the other one.
class SelectingEditTest : public testing::Test
{
protected:
    SelectingEditTest()
    {
        auto* const middle = new QWidget;
        auto* const rows = new QVBoxLayout(middle);
        rows->addWidget(&field);
        rows->addWidget(&other);
        window.setCentralWidget(middle);
        field.setText(u"12 345"_s);
        window.show();
        BringToFront(window);
        other.setFocus();
    }

    ~SelectingEditTest() override
    {
        field.setParent(nullptr);
        other.setParent(nullptr);
    }

    static void BringToFront(QWidget& wanted)
    {
        wanted.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&wanted));
    }

    QPoint InField(int character) const
    {
        return field.mapTo(&window,
                           QPoint(4 + field.fontMetrics().horizontalAdvance(field.text().first(character)),
                                  field.height() / 2));
    }

    void PressAt(int character)
    {
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, InField(character));
    }
    void MoveTo(int character) { QTest::mouseMove(window.windowHandle(), InField(character)); }
    void ReleaseAt(int character)
    {
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, InField(character));
    }

    QMainWindow window;
    SelectingEdit field;
    SelectingEdit other;
};

} // namespace

TEST_F(SelectingEditTest, IsSelectedByTheClickThatGivesItTheKeyboard)
{
    ClickInto(field);
    EXPECT_EQ(field.selectedText(), u"12 345"_s);

    Type(field, u"3"_s);
    EXPECT_EQ(field.text(), u"3"_s);
}

TEST_F(SelectingEditTest, IsSelectedByTheTabKeyAndByTheProgram)
{
    Press(other, Qt::Key_Backtab);
    EXPECT_EQ(field.selectedText(), u"12 345"_s);

    other.setFocus();
    field.setFocus();
    EXPECT_EQ(field.selectedText(), u"12 345"_s);
}

TEST_F(SelectingEditTest, LetsASecondClickPlaceTheCaret)
{
    ClickInto(field);

    PressAt(2);
    ReleaseAt(2);

    EXPECT_EQ(field.selectedText(), QString());
    EXPECT_EQ(field.cursorPosition(), 2);
}

TEST_F(SelectingEditTest, LetsAClickPlaceTheCaretWhereTheKeyboardIs)
{
    field.setFocus();

    PressAt(2);
    ReleaseAt(2);

    EXPECT_EQ(field.selectedText(), QString());
    EXPECT_EQ(field.cursorPosition(), 2);
}

TEST_F(SelectingEditTest, LetsTheMouseThatBringsTheKeyboardSelectAPart)
{
    PressAt(0);
    MoveTo(1);
    MoveTo(2);
    ReleaseAt(2);

    EXPECT_EQ(field.selectedText(), u"12"_s);
}

TEST_F(SelectingEditTest, IsSelectedWhereTheMouseDraggedNothing)
{
    PressAt(1);
    MoveTo(3);
    MoveTo(1);
    ReleaseAt(1);

    EXPECT_EQ(field.selectedText(), u"12 345"_s);
}

TEST_F(SelectingEditTest, LetsADoubleClickSelectAWord)
{
    const QPoint inSecondWord = InField(4);
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, inSecondWord);
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, inSecondWord);
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, inSecondWord);

    EXPECT_EQ(field.selectedText(), u"345"_s);
}

TEST_F(SelectingEditTest, GoesOnBehindAMessageBoxWhereItWas)
{
    field.clear();
    field.setFocus();
    Type(field, u"1"_s);
    QTimer::singleShot(0, &window, [] {
        QWidget* const box = QApplication::activeModalWidget();
        ASSERT_TRUE(QTest::qWaitForWindowActive(box));
        QTest::keyClick(box, Qt::Key_Return);
    });

    DesktopMessages messages;
    messages.InputError(&window, u"Veuillez saisir un chiffre."_s);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    Settle();

    ASSERT_TRUE(field.hasFocus());
    EXPECT_EQ(field.selectedText(), QString());
    Type(field, u"2"_s);
    EXPECT_EQ(field.text(), u"12"_s);
}

TEST_F(SelectingEditTest, ClickBehindAMessageBoxPlacesTheCaret)
{
    field.setFocus();
    QMessageBox box(&window);
    box.setModal(true);
    box.show();
    BringToFront(box);
    box.hide();
    BringToFront(window);
    EXPECT_EQ(field.selectedText(), u"12 345"_s); // as it was

    PressAt(2);
    ReleaseAt(2);

    EXPECT_EQ(field.selectedText(), QString());
    EXPECT_EQ(field.cursorPosition(), 2);
}

TEST_F(SelectingEditTest, IsAsItWasWhenAnotherWindowGivesTheKeyboardBack)
{
    field.setFocus();
    field.setSelection(5, -2);
    QWidget another;
    another.show();
    BringToFront(another);
    ASSERT_FALSE(field.hasFocus());

    BringToFront(window);

    EXPECT_EQ(field.selectedText(), u"34"_s);
    EXPECT_EQ(field.cursorPosition(), 3);
}

TEST_F(SelectingEditTest, IsSelectedByTheClickThatComesFromAnotherWindow)
{
    field.setFocus();
    field.setCursorPosition(2);
    QWidget another;
    another.show();
    BringToFront(another);

    // The window comes to the front, then the press arrives; or the other way round.
    BringToFront(window);
    ClickInto(field);
    EXPECT_EQ(field.selectedText(), u"12 345"_s);

    field.setCursorPosition(2);
    BringToFront(another);
    PressAt(2);
    BringToFront(window);
    ReleaseAt(2);
    EXPECT_EQ(field.selectedText(), u"12 345"_s);
}

TEST_F(SelectingEditTest, ClickOfWhoIsTypingPlacesTheCaretInAWindowThatCameBack)
{
    field.setFocus();
    field.setCursorPosition(6);
    QWidget another;
    another.show();
    BringToFront(another);
    BringToFront(window);
    Type(field, u"6"_s);

    PressAt(2);
    ReleaseAt(2);

    EXPECT_EQ(field.text(), u"12 3456"_s);
    EXPECT_EQ(field.selectedText(), QString());
}

TEST_F(SelectingEditTest, IsSelectedWhenTheProgramCameToItBehindTheUsersBack)
{
    QWidget another;
    another.show();
    BringToFront(another);
    field.setFocus();

    BringToFront(window);

    ASSERT_TRUE(field.hasFocus());
    EXPECT_EQ(field.selectedText(), u"12 345"_s);
}

TEST_F(SelectingEditTest, IsAsItWasBehindTheMenuBar)
{
    window.menuBar()->addMenu(u"&Fichier"_s)->addAction(u"&Ouvrir"_s);
    field.setFocus();
    field.setSelection(5, -2);

    window.menuBar()->setFocus(Qt::MenuBarFocusReason);
    EXPECT_EQ(field.selectedText(), u"34"_s);
    field.setFocus(Qt::MenuBarFocusReason);

    EXPECT_EQ(field.selectedText(), u"34"_s);
    EXPECT_EQ(field.cursorPosition(), 3);
}

TEST_F(SelectingEditTest, IsEmptiedForGood)
{
    field.setFocus();
    Type(field, u"7"_s);

    field.clear();
    Press(field, Qt::Key_Z, Qt::ControlModifier);

    EXPECT_EQ(field.text(), QString());
}

} // namespace stoikal
