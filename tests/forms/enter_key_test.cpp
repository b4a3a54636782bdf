#include "forms/enter_key.h"

#include "forms/form.h"
#include "support/window_driver.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A window that is not modal, with controls of all kinds.
class SampleForm final : public Form
{
public:
    SampleForm()
        : Form(u"frmSample"_s, u"Échantillon"_s, Form::Kind::Tool, nullptr)
        , cmdPush(*new QPushButton(u"Presser"_s, this))
        , cmdTool(*new QToolButton(this))
        , chkTick(*new QCheckBox(u"Cocher"_s, this))
        , txtName(*new QLineEdit(this))
    {
        cmdTool.setFocusPolicy(Qt::StrongFocus);
        connect(&cmdPush, &QPushButton::clicked, this, [this] { ++clicks; });
        connect(&cmdTool, &QToolButton::clicked, this, [this] { ++clicks; });
    }

    QPushButton& cmdPush;
    QToolButton& cmdTool;
    QCheckBox& chkTick;
    QLineEdit& txtName;
    int clicks = 0;
};

void PressOn(QWidget& control, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    control.setFocus();
    Press(control, key, modifiers);
}

} // namespace

TEST(EnterKey, PressesTheButtonThatHasTheKeyboard)
{
    SampleForm form;
    form.show();

    PressOn(form.cmdPush, Qt::Key_Return);
    PressOn(form.cmdPush, Qt::Key_Enter, Qt::KeypadModifier);
    PressOn(form.cmdTool, Qt::Key_Return);
    PressOn(form.cmdTool, Qt::Key_Enter, Qt::KeypadModifier);

    EXPECT_EQ(form.clicks, 4);
}

TEST(EnterKey, TurnsAButtonThatStaysDown)
{
    SampleForm form;
    form.cmdPush.setCheckable(true);
    form.show();

    PressOn(form.cmdPush, Qt::Key_Return);
    EXPECT_TRUE(form.cmdPush.isChecked());
    PressOn(form.cmdPush, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_FALSE(form.cmdPush.isChecked());
}

TEST(EnterKey, DoesNothingOutsideAButton)
{
    SampleForm form;
    form.show();

    PressOn(form.chkTick, Qt::Key_Return);
    PressOn(form.txtName, Qt::Key_Return);
    PressOn(form.cmdPush, Qt::Key_Return, Qt::ControlModifier);

    EXPECT_FALSE(form.chkTick.isChecked());
    EXPECT_EQ(form.clicks, 0);
}

TEST(EnterKey, HeldPressesOnce)
{
    SampleForm form;
    form.show();
    PressOn(form.cmdPush, Qt::Key_Return);

    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
    QCoreApplication::sendEvent(&form.cmdPush, &repeated);

    EXPECT_EQ(form.clicks, 1);
}

TEST(EnterKey, ButtonPressedByItMayFreeItsWindow)
{
    const QPointer<SampleForm> form(new SampleForm);
    QObject::connect(&form->cmdPush, &QPushButton::clicked, [&form] { delete form.data(); });
    form->show();

    PressOn(form->cmdPush, Qt::Key_Return);

    EXPECT_TRUE(form.isNull());
}

TEST(EnterKey, PressesTheButtonOfAModalWindow)
{
    for (const bool autoDefault : {false, true}) {
        ModalForm form(u"frmSample"_s, u"Échantillon"_s, nullptr);
        QPushButton button(&form);
        button.setAutoDefault(autoDefault);
        int clicks = 0;
        QObject::connect(&button, &QPushButton::clicked, &form, [&clicks] { ++clicks; });
        form.show();

        PressOn(button, Qt::Key_Return);
        PressOn(button, Qt::Key_Enter, Qt::KeypadModifier);

        EXPECT_EQ(clicks, 2) << autoDefault;
    }
}

TEST(EnterKey, LeavesTheToolkitsOwnDialogsTheirWays)
{
    QFileDialog dialog;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    QToolButton button(&dialog);
    int clicks = 0;
    QObject::connect(&button, &QToolButton::clicked, &dialog, [&clicks] { ++clicks; });
    dialog.show();

    Press(button, Qt::Key_Return);

    EXPECT_EQ(clicks, 0);
}

} // namespace stoikal
