#include "forms/style.h"

#include "forms/colours.h"
#include "support/window_driver.h"

#include <QLineEdit>
#include <QProxyStyle>
#include <QToolTip>
#include <cmath>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A channel as light, from 0 to 1.
double Light(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour)
{
    return 0.2126 * Light(colour.redF()) + 0.7152 * Light(colour.greenF()) + 0.0722 * Light(colour.blueF());
}

/// From 1 (the same) to 21 (black on white); 4.5 is what text needs.
double Contrast(const QColor& one, const QColor& other)
{
    const double a = Luminance(one);
    const double b = Luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// Puts the desktop's palette in the application's place for one test.
class Desktop
{
public:
    explicit Desktop(const QColor& window)
    {
        QApplication::setPalette(QPalette(window));
        ApplyStyle();
    }
    ~Desktop()
    {
        QApplication::setPalette(QPalette(QColor(240, 240, 240)));
        ApplyStyle();
    }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
};

} // namespace

TEST(Style, IsFusionInTheHouseColours)
{
    const Desktop desktop(QColor(240, 240, 240));
    const QPalette palette = QApplication::palette();

    const auto* const house = qobject_cast<QProxyStyle*>(QApplication::style());
    ASSERT_NE(house, nullptr);
    EXPECT_EQ(house->baseStyle()->objectName().toLower(), u"fusion"_s);
    // Buttons of boxes carry words alone.
    EXPECT_EQ(house->styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons), 0);
    EXPECT_EQ(palette.color(QPalette::Window), QColor(u"#F5F6F8"_s));
    EXPECT_EQ(palette.color(QPalette::Base), QColor(u"#FFFFFF"_s));
    EXPECT_EQ(palette.color(QPalette::WindowText), QColor(u"#1C2430"_s));
    EXPECT_EQ(palette.color(QPalette::Highlight), QColor(u"#2460C8"_s));
}

TEST(Style, FollowsADarkDesktop)
{
    const Desktop desktop(QColor(30, 30, 30));
    const QPalette palette = QApplication::palette();

    EXPECT_LT(palette.color(QPalette::Window).lightness(), 80);
    EXPECT_LT(palette.color(QPalette::Base).lightness(), 80);
    EXPECT_GT(palette.color(QPalette::WindowText).lightness(), 180);
}

TEST(Style, TextIsReadableOnBothDesktops)
{
    for (const QColor& window : {QColor(240, 240, 240), QColor(30, 30, 30)}) {
        const Desktop desktop(window);
        const QPalette palette = QApplication::palette();

        EXPECT_GE(Contrast(palette.color(QPalette::WindowText), palette.color(QPalette::Window)), 4.5);
        EXPECT_GE(Contrast(palette.color(QPalette::Text), palette.color(QPalette::Base)), 4.5);
        EXPECT_GE(Contrast(palette.color(QPalette::ButtonText), palette.color(QPalette::Button)), 4.5);
        EXPECT_GE(Contrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)),
                  4.5);
        EXPECT_GE(Contrast(palette.color(QPalette::ToolTipText), palette.color(QPalette::ToolTipBase)), 4.5);
        EXPECT_GE(Contrast(palette.color(QPalette::Link), palette.color(QPalette::Window)), 4.5);
        EXPECT_GE(Contrast(QToolTip::palette().color(QPalette::ToolTipText),
                           QToolTip::palette().color(QPalette::ToolTipBase)),
                  4.5);
    }
}

TEST(Style, PaperStaysLightOnADarkDesktop)
{
    const Desktop desktop(QColor(30, 30, 30));
    QWidget window;
    QLineEdit box(&window);

    StayOnPaper(window);

    EXPECT_EQ(window.palette().color(QPalette::Window), QColor(u"#F5F6F8"_s));
    EXPECT_EQ(box.palette().color(QPalette::Base), QColor(u"#FFFFFF"_s));
    EXPECT_EQ(box.palette().color(QPalette::Text), QColor(u"#1C2430"_s));
}

TEST(Style, PasswordShowsAStarForEachCharacter)
{
    QLineEdit box;
    box.setEchoMode(QLineEdit::Password);

    box.setText(u"Élève"_s);

    EXPECT_EQ(box.displayText(), u"*****"_s);
}

TEST(Colours, AreReadWithRedInTheLowByte)
{
    EXPECT_EQ(FromBgr(0x0000FF), QColor(255, 0, 0));
    EXPECT_EQ(FromBgr(0xFF0000), QColor(0, 0, 255));
    EXPECT_EQ(FromBgr(12648384), QColor(0xC0, 0xFF, 0xC0)); // Hexadecimal C0FFC0.
    EXPECT_EQ(FromBgr(16777088), QColor(0x80, 0xFF, 0xFF)); // Hexadecimal FFFF80.
}

TEST(Colours, GoBackToTheirNumber)
{
    for (const std::uint32_t number : {0x000000U, 0xFFFFFFU, 0x123456U, 12648384U, 16777088U})
        EXPECT_EQ(ToBgr(FromBgr(number)), number);
}

} // namespace stoikal
