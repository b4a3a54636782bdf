#include "help_window_support.h"

#include <memory>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A modal window that stands before the main one.
class FrmHelpUnderAModalWindow : public HelpWindowTest
{
protected:
    FrmHelpUnderAModalWindow()
        : dialog(std::make_unique<ModalForm>(u"frmName"_s, u"Qui êtes-vous ?"_s, &home))
    {
        dialog->show();
        dialog->activateWindow();
        Settle();
    }

    /// The help goes home before the window goes.
    void TearDown() override
    {
        if (dialog != nullptr)
            dialog->done(QDialog::Rejected);
    }

    std::unique_ptr<ModalForm> dialog;
};

} // namespace

TEST_F(FrmHelpUnderAModalWindow, CanBeUsedWhileItLasts)
{
    window.DisplayContents(ShippedHelp("Stoikal.chm"), dialog.get());
    Settle();

    EXPECT_EQ(window.parentWidget(), dialog.get());
    EXPECT_TRUE(window.isVisible());
    EXPECT_NO_THROW(ClickNode(u"Ma note"_s));
    EXPECT_EQ(Page().Title(), u"Ma note"_s);
}

TEST_F(FrmHelpUnderAModalWindow, OutlivesIt)
{
    window.DisplayContents(ShippedHelp("Stoikal.chm"), dialog.get());
    Settle();

    dialog->done(QDialog::Accepted);
    dialog.reset();
    Settle();

    EXPECT_EQ(window.parentWidget(), &home);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Page().Title(), u"Bienvenue dans Stoikal"_s);
}

TEST_F(FrmHelpUnderAModalWindow, StaysHiddenWhenItWasClosedBefore)
{
    window.DisplayContents(ShippedHelp("Stoikal.chm"), dialog.get());
    window.Close();

    dialog->done(QDialog::Accepted);
    dialog.reset();
    Settle();

    EXPECT_EQ(window.parentWidget(), &home);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FrmHelpUnderAModalWindow, OpenedBeforeItGoesOverToIt)
{
    dialog->hide();
    Open();
    dialog->show();
    Settle();

    window.DisplayTopic(ShippedHelp("Stoikal.chm"), 600, dialog.get());
    Settle();

    EXPECT_EQ(window.parentWidget(), dialog.get());
    EXPECT_EQ(Page().Title(), u"Ma note"_s);
}

} // namespace stoikal
