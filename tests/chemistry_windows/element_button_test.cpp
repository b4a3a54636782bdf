#include "chemistry/windows/element_button.h"

#include "forms/button_colours.h"
#include "forms/colours.h"
#include "support/window_driver.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kStates{ElementState::Solid, ElementState::Liquid, ElementState::Gas,
                             ElementState::Synthetic, ElementState::NotYetSynthesised};
constexpr std::array kFamilies{ElementFamily::NonMetal, ElementFamily::Metal, ElementFamily::SemiConductor};

/// A cell on white ground in a window of its own.
class ElementCell : public testing::Test
{
protected:
    ElementCell()
    {
        window.resize(300, 300);
        cell.setGeometry(20, 20, 54, 54);
        cell.setText(u"Fe"_s);
        cell.SetGround(Qt::white);
        cell.SetSize(14);
        window.show();
        other.setFocus();
        Settle();
    }

    void ShowState(ElementState state)
    {
        cell.SetState(state);
        colours.SetButtonForeColor(&cell, StateColour(state));
    }

    QImage Picture() { return cell.grab().toImage(); }

    /// The pixels of a part of the picture that fulfil a condition.
    template <typename Condition>
    int Count(const QRect& part, Condition holds)
    {
        const QImage picture = Picture();
        int count = 0;
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x)
                count += holds(picture.pixelColor(x, y)) ? 1 : 0;
        }
        return count;
    }

    int CountOf(const QColor& colour)
    {
        return Count(cell.rect(), [&colour](const QColor& pixel) { return pixel == colour; });
    }

    /// The corner of the marks.
    QRect Corner() const { return {cell.width() - 12, 3, 9, 9}; }
    static bool IsDark(const QColor& pixel) { return pixel.lightness() < 80; }

    QWidget window;
    QPushButton other{&window};
    ElementButton cell{&window};
    ButtonColours colours;
};

/// How much darker one colour is than another, 1 to 21.
double Contrast(const QColor& one, const QColor& two)
{
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
            + 0.0722 * linear(colour.blueF());
    };
    const auto [low, high] = std::minmax(luminance(one), luminance(two));
    return (high + 0.05) / (low + 0.05);
}

} // namespace

TEST(StateColour, IsTheFixedOneOfEachState)
{
    EXPECT_EQ(StateColour(ElementState::Solid), QColor(0, 0, 0));
    EXPECT_EQ(StateColour(ElementState::Liquid), QColor(0, 0, 255));
    EXPECT_EQ(StateColour(ElementState::Gas), QColor(255, 0, 0));
    EXPECT_EQ(StateColour(ElementState::Synthetic), QColor(0, 200, 250));
    EXPECT_EQ(StateColour(ElementState::NotYetSynthesised), QColor(255, 0, 255));
}

TEST(FamilyColour, IsAnotherForEachFamilyAndCarriesTheCaptions)
{
    for (const ElementFamily family : kFamilies) {
        const QColor ground = FamilyColour(family);
        for (const ElementFamily other : kFamilies)
            EXPECT_EQ(ground == FamilyColour(other), family == other);
        // 3 is what large letters need; the light one of synthesis has an edge.
        for (const ElementState state : {ElementState::Solid, ElementState::Liquid, ElementState::Gas})
            EXPECT_GE(Contrast(ground, StateColour(state)), 3);
        EXPECT_GE(Contrast(ground, colours::kSecondInk), 4.5);
    }
}

TEST(StateName, IsAWordOfItsOwn)
{
    EXPECT_EQ(StateName(ElementState::Solid), u"solide"_s);
    EXPECT_EQ(StateName(ElementState::Liquid), u"liquide à 30\u00A0°C"_s);
    EXPECT_EQ(StateName(ElementState::Gas), u"gazeux"_s);
    EXPECT_EQ(StateName(ElementState::Synthetic), u"obtenu par synthèse"_s);
    EXPECT_EQ(StateName(ElementState::NotYetSynthesised), u"non encore synthétisé"_s);
}

TEST(FamilyName, IsAWordOfItsOwn)
{
    EXPECT_EQ(FamilyName(ElementFamily::NonMetal), u"non-métal"_s);
    EXPECT_EQ(FamilyName(ElementFamily::Metal), u"métal"_s);
    EXPECT_EQ(FamilyName(ElementFamily::SemiConductor), u"semi-conducteur"_s);
}

TEST_F(ElementCell, TellsEachStateWithoutItsColour)
{
    // All captions black: what is left must still be told apart.
    std::vector<QImage> pictures;
    for (const ElementState state : kStates) {
        cell.SetState(state);
        colours.SetButtonForeColor(&cell, Qt::black);
        pictures.push_back(Picture());
    }

    for (size_t one = 0; one < pictures.size(); ++one) {
        for (size_t two = one + 1; two < pictures.size(); ++two)
            EXPECT_NE(pictures[one], pictures[two]) << one << " and " << two;
    }
}

TEST_F(ElementCell, UnderlinesALiquidAndSlantsAGas)
{
    cell.SetState(ElementState::Liquid);
    EXPECT_TRUE(cell.font().underline());
    EXPECT_FALSE(cell.font().italic());

    cell.SetState(ElementState::Gas);
    EXPECT_FALSE(cell.font().underline());
    EXPECT_TRUE(cell.font().italic());

    cell.SetState(ElementState::Solid);
    EXPECT_FALSE(cell.font().underline());
    EXPECT_FALSE(cell.font().italic());
}

TEST_F(ElementCell, MarksWhatIsSynthesisedWithADotAndWhatIsNotYetWithARing)
{
    ShowState(ElementState::Solid);
    EXPECT_EQ(Count(Corner(), IsDark), 0);

    ShowState(ElementState::Synthetic);
    const int dot = Count(Corner(), IsDark);
    ShowState(ElementState::NotYetSynthesised);
    const int ring = Count(Corner(), IsDark);

    EXPECT_GT(ring, 0);
    EXPECT_GT(dot, ring);
}

TEST_F(ElementCell, ShowsTheCaptionInTheColourOfItsState)
{
    for (const ElementState state : kStates) {
        ShowState(state);
        EXPECT_GT(CountOf(StateColour(state)), 5) << static_cast<int>(state);
    }
}

TEST_F(ElementCell, GivesTheLightColourOfSynthesisADarkEdge)
{
    const QRect middle(10, 15, 34, 24);
    ShowState(ElementState::Synthetic);

    EXPECT_GT(
        Count(middle,
              [](const QColor& pixel) { return pixel.green() > pixel.red() && pixel.lightness() < 100; }),
        20);
}

TEST_F(ElementCell, MakesACaptionSmallerThatIsTooWide)
{
    cell.setGeometry(20, 20, 26, 26);
    cell.setText(u"Uup"_s);
    ShowState(ElementState::Solid);

    // The rim is one pixel; nothing of the letters comes near it.
    const auto isInk = [](const QColor& pixel) { return pixel.lightness() < 128; };
    EXPECT_EQ(Count({2, 4, 1, 18}, isInk), 0);
    EXPECT_EQ(Count({23, 4, 1, 18}, isInk), 0);
    EXPECT_GT(Count({4, 4, 18, 18}, isInk), 20);
}

TEST_F(ElementCell, LeavesTheNumberOutOfASmallCell)
{
    const auto picture = [this](int side, int number) {
        cell.setGeometry(20, 20, side, side);
        cell.SetNumber(number);
        return Picture();
    };

    EXPECT_EQ(picture(39, 26), picture(39, 0));
    EXPECT_NE(picture(40, 26), picture(40, 0));
}

TEST_F(ElementCell, ShowsTheNameInALargeCellWhereItFits)
{
    const auto picture = [this](int side, const QString& name) {
        cell.setGeometry(20, 20, side, side);
        cell.SetElementName(name);
        return Picture();
    };

    EXPECT_EQ(picture(60, u"Fer"_s), picture(60, {}));
    EXPECT_NE(picture(90, u"Fer"_s), picture(90, {}));
    EXPECT_EQ(picture(90, u"Un nom bien plus large que la case"_s), picture(90, {}));
}

TEST_F(ElementCell, ShowsWhereTheKeyboardAndTheMouseAre)
{
    const QImage plain = Picture();

    cell.setFocus();
    const QImage focused = Picture();

    EXPECT_NE(focused, plain);
    EXPECT_EQ(focused.pixelColor(1, 27), colours::kAccent);
}

TEST_F(ElementCell, SaysWhichArrowWasPressed)
{
    QSignalSpy arrows(&cell, &ElementButton::ArrowPressed);
    const std::vector<std::pair<Qt::Key, QPoint>> keys{
        {Qt::Key_Left, {-1, 0}}, {Qt::Key_Right, {1, 0}}, {Qt::Key_Up, {0, -1}}, {Qt::Key_Down, {0, 1}}};

    for (const auto& [key, way] : keys) {
        Press(cell, key);
        ASSERT_EQ(arrows.size(), 1);
        EXPECT_EQ(QPoint(arrows[0][0].toInt(), arrows[0][1].toInt()), way);
        arrows.clear();
    }
}

TEST_F(ElementCell, IsPressedByEnterAndByTheSpaceBar)
{
    QSignalSpy clicks(&cell, &QPushButton::clicked);

    Press(cell, Qt::Key_Return);
    Press(cell, Qt::Key_Enter);
    Press(cell, Qt::Key_Space);

    EXPECT_EQ(clicks.size(), 3);
}

} // namespace stoikal
