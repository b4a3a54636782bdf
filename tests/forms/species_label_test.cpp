#include "forms/species_label.h"

#include "support/window_driver.h"

#include <QFontMetricsF>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

using Height = SpeciesLabel::Height;

constexpr int kLeftMargin = 2;

/// A label on white, in black, 100 x 50 pixels, 20 points.
struct Label : SpeciesLabel {
    Label()
    {
        QFont large = font();
        large.setPointSizeF(20);
        setFont(large);
        QPalette blackOnWhite;
        blackOnWhite.setColor(QPalette::Window, Qt::white);
        blackOnWhite.setColor(QPalette::WindowText, Qt::black);
        setPalette(blackOnWhite);
        resize(100, 50);
    }

    double Advance(const QString& text) const { return QFontMetricsF(font()).horizontalAdvance(text); }

    /// The same at the size of sub- and superscripts, 0.76 of the line's.
    double SmallAdvance(const QString& text) const
    {
        QFont small = font();
        small.setPointSizeF(20 * 0.76);
        return QFontMetricsF(small).horizontalAdvance(text);
    }
};

/// What is dark between two columns.
QRect Ink(const QImage& image, int from, int to)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = from; x < to; ++x)
            if (image.pixelColor(x, y).lightness() < 128)
                ink |= QRect(x, y, 1, 1);
    return ink;
}

} // namespace

TEST(SpeciesLabel, TextIsThePlainOne)
{
    Label label;

    label.SetSpecies(u"Fe3+"_s, {Height::Line, Height::Line, Height::Superscript, Height::Superscript});

    EXPECT_EQ(label.text(), u"Fe3+"_s);
}

TEST(SpeciesLabel, WidthIsTheSumOfItsRuns)
{
    Label label;

    label.SetSpecies(u"H2O"_s, {Height::Line, Height::Subscript, Height::Line});

    EXPECT_NEAR(label.DrawnWidth(),
                label.Advance(u"H"_s) + label.SmallAdvance(u"2"_s) + label.Advance(u"O"_s), 0.01);
}

TEST(SpeciesLabel, NextSpeciesTakesThePlaceOfTheLast)
{
    Label label;
    label.SetSpecies(u"H2"_s, {Height::Line, Height::Subscript});

    label.SetSpecies(u"O"_s, {Height::Line});
    EXPECT_EQ(label.text(), u"O"_s);
    EXPECT_NEAR(label.DrawnWidth(), label.Advance(u"O"_s), 0.01);

    label.SetSpecies(QString(), {});
    EXPECT_EQ(label.text(), QString());
    EXPECT_EQ(label.DrawnWidth(), 0);
    EXPECT_TRUE(Ink(label.grab().toImage(), 0, 100).isEmpty());
}

TEST(SpeciesLabel, SubscriptIsSmallerAndLower)
{
    Label label;
    label.SetSpecies(u"HH"_s, {Height::Line, Height::Subscript});

    const QImage image = label.grab().toImage();
    const int border = kLeftMargin + static_cast<int>(label.Advance(u"H"_s));
    const QRect onLine = Ink(image, 0, border);
    const QRect below = Ink(image, border, 100);

    ASSERT_FALSE(onLine.isEmpty());
    ASSERT_FALSE(below.isEmpty());
    EXPECT_GT(below.bottom(), onLine.bottom());
    EXPECT_GT(below.top(), onLine.top());
    EXPECT_LT(below.height(), onLine.height());
}

TEST(SpeciesLabel, SuperscriptIsSmallerAndHigher)
{
    Label label;
    label.SetSpecies(u"HH"_s, {Height::Line, Height::Superscript});

    const QImage image = label.grab().toImage();
    const int border = kLeftMargin + static_cast<int>(label.Advance(u"H"_s));
    const QRect onLine = Ink(image, 0, border);
    const QRect above = Ink(image, border, 100);

    ASSERT_FALSE(onLine.isEmpty());
    ASSERT_FALSE(above.isEmpty());
    EXPECT_LT(above.bottom(), onLine.bottom());
    EXPECT_LT(above.top(), onLine.top());
    EXPECT_LT(above.height(), onLine.height());
}

TEST(SpeciesLabel, LineStandsInTheMiddleOfTheLabel)
{
    Label label;
    label.SetSpecies(u"H"_s, {Height::Line});

    const QRect ink = Ink(label.grab().toImage(), 0, 100);

    EXPECT_NEAR((ink.top() + ink.bottom() + 1) / 2.0, 25, 1.1);
}

TEST(SpeciesLabel, RaisedMinusIsDrawnAsATrueOne)
{
    Label label;

    label.SetSpecies(u"Cl-"_s, {Height::Line, Height::Line, Height::Superscript});

    EXPECT_EQ(label.text(), u"Cl-"_s);
    EXPECT_NEAR(label.DrawnWidth(), label.Advance(u"Cl"_s) + label.SmallAdvance(u"\u2212"_s), 0.01);
}

TEST(SpeciesLabel, SmallPrintStaysReadable)
{
    Label label;
    QFont tiny = label.font();
    tiny.setPointSizeF(9);
    label.setFont(tiny);
    label.SetSpecies(u"2"_s, {Height::Subscript});

    QFont least = tiny;
    least.setPointSizeF(7.5); // Not 9 x 0.76 = 6.8.

    EXPECT_NEAR(label.DrawnWidth(), QFontMetricsF(least).horizontalAdvance(u"2"_s), 0.01);
}

TEST(SpeciesLabel, SmallPrintIsSmallerThanATinyLine)
{
    Label label;
    QFont tiny = label.font();
    tiny.setPointSizeF(6);
    label.setFont(tiny);
    label.SetSpecies(u"2"_s, {Height::Subscript});

    QFont smaller = tiny;
    smaller.setPointSizeF(5.1); // 0.85 x 6, not 7.5

    EXPECT_NEAR(label.DrawnWidth(), QFontMetricsF(smaller).horizontalAdvance(u"2"_s), 0.01);
}

} // namespace stoikal
