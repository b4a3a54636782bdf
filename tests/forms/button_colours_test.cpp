#include "forms/button_colours.h"

#include "support/window_driver.h"

#include <QPushButton>
#include <gtest/gtest.h>

namespace stoikal {

namespace {

QColor Caption(const QAbstractButton& button)
{
    return button.palette().color(QPalette::ButtonText);
}

class ButtonColoursTest : public testing::Test
{
protected:
    QWidget window;
    QPushButton button{&window};
    QPushButton other{&window};
    ButtonColours colours;
    const QColor own = Caption(button);
    const QColor red{255, 0, 0};
    const QColor cyan{0, 200, 250};
};

} // namespace

TEST_F(ButtonColoursTest, GiveACaptionItsColour)
{
    EXPECT_TRUE(colours.SetButtonForeColor(&button, red));

    EXPECT_EQ(Caption(button), red);
    EXPECT_EQ(colours.ColourOf(&button), red);
    EXPECT_EQ(Caption(other), own);
    EXPECT_FALSE(colours.ColourOf(&other).isValid());
}

TEST_F(ButtonColoursTest, ChangeTheColourOfAServedButton)
{
    colours.SetButtonForeColor(&button, red);

    EXPECT_TRUE(colours.SetButtonForeColor(&button, cyan));

    EXPECT_EQ(Caption(button), cyan);
    EXPECT_EQ(colours.ColourOf(&button), cyan);
    EXPECT_EQ(colours.ServedCount(), 1);
}

TEST_F(ButtonColoursTest, RefuseAButtonWithoutAParentWindow)
{
    QPushButton alone;

    EXPECT_FALSE(colours.SetButtonForeColor(&alone, red));

    EXPECT_EQ(Caption(alone), own);
    EXPECT_EQ(colours.ServedCount(), 0);
}

TEST_F(ButtonColoursTest, GiveTheOwnColourBack)
{
    colours.SetButtonForeColor(&button, red);
    colours.SetButtonForeColor(&button, cyan);
    colours.SetButtonForeColor(&other, cyan);

    colours.RemoveButtonForeColor(&button);

    EXPECT_EQ(Caption(button), own);
    EXPECT_EQ(colours.ServedCount(), 1);
    EXPECT_EQ(Caption(other), cyan);
}

TEST_F(ButtonColoursTest, LeaveAButtonAloneThatIsNotServed)
{
    colours.RemoveButtonForeColor(&button);

    EXPECT_EQ(Caption(button), own);
    EXPECT_EQ(colours.ServedCount(), 0);
}

TEST_F(ButtonColoursTest, ServeARemovedButtonAgain)
{
    colours.SetButtonForeColor(&button, red);
    colours.RemoveButtonForeColor(&button);

    EXPECT_TRUE(colours.SetButtonForeColor(&button, cyan));
    EXPECT_EQ(Caption(button), cyan);
    colours.RemoveButtonForeColor(&button);
    EXPECT_EQ(Caption(button), own);
}

TEST_F(ButtonColoursTest, ForgetAButtonThatGoes)
{
    auto* const passing = new QPushButton(&window);
    colours.SetButtonForeColor(passing, red);
    colours.SetButtonForeColor(&button, red);

    delete passing;

    EXPECT_EQ(colours.ServedCount(), 1);
}

TEST_F(ButtonColoursTest, GoBeforeTheirButtons)
{
    {
        ButtonColours passing;
        passing.SetButtonForeColor(&button, red);
    }

    EXPECT_EQ(Caption(button), red);
}

} // namespace stoikal
