#include "shell/windows/option_form.h"

#include "support/window_driver.h"

#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(FrmEtude, AsksBalancingOrProgress)
{
    frmEtude window(nullptr);

    EXPECT_EQ(window.windowTitle(), u"Stoikal - Equilibrage ou avancement ?"_s);
    EXPECT_EQ(window.findChild<QLabel*>()->text(), u"Avec Stoikal, vous voulez ..."_s);
    EXPECT_EQ(Control<QRadioButton>(window, "optEtude(0)").text(),
              u"... équilibrer des équations chimiques"_s);
    EXPECT_EQ(Control<QRadioButton>(window, "optEtude(1)").text(),
              u"... étudier l'avancement de réactions"_s);
    EXPECT_EQ(Control<QPushButton>(window, "cmdValid").text(), u"Valider"_s);
    EXPECT_TRUE(window.isModal());
}

TEST(FrmChoixSimul, AsksSeriesOrFreeSimulation)
{
    frmChoixSimul window(nullptr);

    EXPECT_EQ(window.windowTitle(), u"Stoikal - Avancement d'une réaction"_s);
    EXPECT_EQ(Control<QLabel>(window, "lblQuestion").text(), u"Que souhaitez-vous faire ?"_s);
    EXPECT_EQ(Control<QRadioButton>(window, "optSimul(0)").text(),
              u"... faire une série d'exercices sur l'avancement de réactions chimiques"_s);
    EXPECT_EQ(Control<QRadioButton>(window, "optSimul(1)").text(),
              u"... simuler librement des états d'avancement d'une réaction"_s);
    EXPECT_EQ(Control<QPushButton>(window, "cmdChoix").text(), u"Valider choix"_s);
    EXPECT_TRUE(window.isModal());
}

TEST(OptionForm, PresetsTheFirstOption)
{
    frmEtude window(nullptr);

    EXPECT_TRUE(Control<QRadioButton>(window, "optEtude(0)").isChecked());
    EXPECT_FALSE(Control<QRadioButton>(window, "optEtude(1)").isChecked());
    EXPECT_EQ(window.Chosen(), 0);
}

TEST(OptionForm, IsLeftByItsButtonWithTheOptionChosen)
{
    frmChoixSimul window(nullptr);
    window.show();
    Click(Control<QRadioButton>(window, "optSimul(1)"));
    ASSERT_EQ(window.Chosen(), 1);

    Click(Control<QPushButton>(window, "cmdChoix"));

    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.Chosen(), 1);
}

TEST(OptionForm, TakesTheChosenOptionByTheTitleBarToo)
{
    frmEtude window(nullptr);
    window.show();
    Click(Control<QRadioButton>(window, "optEtude(1)"));

    window.close();

    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.Chosen(), 1);
}

TEST(OptionForm, AnswersNeitherEnterNorEscape)
{
    frmEtude window(nullptr);
    window.show();

    Press(window, Qt::Key_Return);
    Press(window, Qt::Key_Enter);
    Press(window, Qt::Key_Escape);

    EXPECT_TRUE(window.isVisible());
}

} // namespace stoikal
