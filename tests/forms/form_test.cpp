#include "forms/form.h"
#include "forms/window_events.h"

#include "support/window_driver.h"

#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A modal window with a box and two buttons, as the real ones have.
class SampleModalForm : public ModalForm
{
public:
    SampleModalForm()
        : ModalForm(u"frmSample"_s, u"Échantillon"_s, nullptr)
        , txtName(*Named(new QLineEdit(this), u"txtName"_s))
        , cmdOk(*Named(new QPushButton(u"OK"_s, this), u"cmdOk"_s))
        , cmdOther(*Named(new QPushButton(u"Autre"_s, this), u"cmdOther"_s))
    {
        auto* const rows = new QVBoxLayout(this);
        rows->addWidget(&txtName);
        rows->addWidget(&cmdOk);
        rows->addWidget(&cmdOther);
        for (QPushButton* const button : {&cmdOk, &cmdOther})
            connect(button, &QPushButton::clicked, this, [this] { ++clicks; });
    }

    QLineEdit& txtName;
    QPushButton& cmdOk;
    QPushButton& cmdOther;
    int clicks = 0;
};

/// One with a cancel button, which Escape stands for.
class CancellableForm final : public SampleModalForm
{
protected:
    void EscapePressed() override { done(Rejected); }
};

/// One that the title bar does not close.
class StayingForm final : public SampleModalForm
{
public:
    int closings = 0;

protected:
    void TitleBarClosed() override { ++closings; }
};

} // namespace

TEST(Named, GivesAControlItsNames)
{
    QLineEdit edit;

    QLineEdit* const same = Named(&edit, ArrayName("txtCoef", 0), u"Coefficient du réactif 1"_s);

    EXPECT_EQ(same, &edit);
    EXPECT_EQ(edit.objectName(), u"txtCoef(0)"_s);
    EXPECT_EQ(edit.accessibleName(), u"Coefficient du réactif 1"_s);
}

TEST(Named, WorksForWhatNobodySees)
{
    QTimer timer;

    Named(&timer, u"tmrChrono"_s, u"ignoré"_s);

    EXPECT_EQ(timer.objectName(), u"tmrChrono"_s);
}

TEST(Named, KeepsAnAccessibleNameWhenNoneIsGiven)
{
    QLineEdit edit;
    edit.setAccessibleName(u"Nom"_s);

    Named(&edit, u"txtName"_s);

    EXPECT_EQ(edit.accessibleName(), u"Nom"_s);
}

TEST(Form, CarriesItsNameAndCaption)
{
    const Form form(u"frmCharge"_s, u"Charges"_s, Form::Kind::Tool, nullptr);

    EXPECT_EQ(form.objectName(), u"frmCharge"_s);
    EXPECT_EQ(form.windowTitle(), u"Charges"_s);
    EXPECT_EQ(form.accessibleName(), u"Charges"_s);
}

TEST(Form, ToolStaysAboveItsParentAndAChildLiesInIt)
{
    QWidget main;

    const Form tool(u"frmTool"_s, u"T"_s, Form::Kind::Tool, &main);
    const Form child(u"frmChild"_s, u"C"_s, Form::Kind::Child, &main);

    EXPECT_TRUE(tool.isWindow());
    EXPECT_EQ(tool.windowType(), Qt::Tool);
    EXPECT_TRUE(tool.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_EQ(tool.parentWidget(), &main);
    EXPECT_FALSE(child.isWindow());
}

TEST(Form, ClosingOnlyAsks)
{
    Form form(u"frmTool"_s, u"T"_s, Form::Kind::Tool, nullptr);
    int asked = 0;
    QObject::connect(&form, &Form::CloseAsked, &form, [&asked] { ++asked; });
    form.show();

    EXPECT_FALSE(form.close());

    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(form.isVisible());
}

TEST(Form, EscapeDoesNothing)
{
    Form form(u"frmTool"_s, u"T"_s, Form::Kind::Tool, nullptr);
    int asked = 0;
    QObject::connect(&form, &Form::CloseAsked, &form, [&asked] { ++asked; });
    form.show();

    Press(form, Qt::Key_Escape);

    EXPECT_EQ(asked, 0);
    EXPECT_TRUE(form.isVisible());
}

TEST(Form, F1AsksForHelpFromAnyOfItsControls)
{
    const WindowEvents events;
    Form form(u"frmTool"_s, u"T"_s, Form::Kind::Tool, nullptr);
    QLineEdit edit(&form);
    int helps = 0;
    QObject::connect(&events, &WindowEvents::HelpRequested, &form, [&helps] { ++helps; });
    form.show();

    Press(form, Qt::Key_F1);
    Press(edit, Qt::Key_F1);
    Press(edit, Qt::Key_F2);

    EXPECT_EQ(helps, 2);
}

TEST(ModalForm, CarriesItsNameAndCaptionAndIsModal)
{
    const SampleModalForm form;

    EXPECT_EQ(form.objectName(), u"frmSample"_s);
    EXPECT_EQ(form.windowTitle(), u"Échantillon"_s);
    EXPECT_EQ(form.accessibleName(), u"Échantillon"_s);
    EXPECT_TRUE(form.isModal());
}

TEST(ModalForm, EnterPressesNoHiddenDefault)
{
    SampleModalForm form;
    form.show();
    form.txtName.setFocus();

    Press(form.txtName, Qt::Key_Return);
    Press(form.txtName, Qt::Key_Enter, Qt::KeypadModifier);
    Press(form, Qt::Key_Return);

    EXPECT_EQ(form.clicks, 0);
    EXPECT_TRUE(form.isVisible());
}

TEST(ModalForm, EscapeDoesNothingWithoutACancelButton)
{
    SampleModalForm form;
    form.show();

    Press(form, Qt::Key_Escape);
    Press(form.txtName, Qt::Key_Escape);

    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.clicks, 0);
}

TEST(ModalForm, IsDismissedAsByEscape)
{
    // A tool for disabled people dismisses a window without a key.
    SampleModalForm staying;
    CancellableForm leaving;
    staying.show();
    leaving.show();

    staying.reject();
    leaving.reject();

    EXPECT_TRUE(staying.isVisible());
    EXPECT_FALSE(leaving.isVisible());
    EXPECT_EQ(leaving.result(), QDialog::Rejected);
}

TEST(ModalForm, EscapeClosesWhereThereIsACancelButton)
{
    CancellableForm form;
    form.show();

    Press(form.txtName, Qt::Key_Escape);

    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.result(), QDialog::Rejected);
}

TEST(ModalForm, TitleBarCloses)
{
    SampleModalForm form;
    QTimer::singleShot(0, &form, [&form] { form.close(); });

    EXPECT_EQ(form.exec(), QDialog::Rejected);

    EXPECT_FALSE(form.isVisible());
}

TEST(ModalForm, TitleBarObeysTheWindowsOwnRule)
{
    StayingForm form;
    form.show();

    EXPECT_FALSE(form.close());

    EXPECT_EQ(form.closings, 1);
    EXPECT_TRUE(form.isVisible());
}

TEST(ModalForm, F1AsksForHelp)
{
    const WindowEvents events;
    int helps = 0;
    QObject::connect(&events, &WindowEvents::HelpRequested, &events, [&helps] { ++helps; });
    SampleModalForm form;
    form.show();

    Press(form.txtName, Qt::Key_F1);

    EXPECT_EQ(helps, 1);
    EXPECT_TRUE(form.isVisible());
}

} // namespace stoikal
