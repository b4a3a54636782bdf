#include "balancing/windows/molecule_boxes.h"

#include "forms/form.h"
#include "support/fake_messages.h"
#include "support/window_driver.h"

#include <QLineEdit>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The six boxes on the screen.
class SixBoxes : public testing::Test
{
protected:
    SixBoxes()
    {
        boxes.show();
        boxes.activateWindow();
        Settle();
        QObject::connect(&boxes, &MoleculeBoxes::Edited, [this] { events << u"edited"_s; });
        QObject::connect(&boxes, &MoleculeBoxes::FormulaChanged, [this] { events << u"changed"_s; });
        messages.whileOpen = [this](const Message&) { events << u"box"_s; };
    }

    QLineEdit& Box(int position)
    {
        return Control<QLineEdit>(boxes, qPrintable(ArrayName("txtMolecule", position)));
    }

    FakeMessages messages;
    MoleculeBoxes boxes{FormulaField::Expert, messages, nullptr};
    QStringList events;
};

} // namespace

TEST_F(SixBoxes, StandInTheFramesOfTheirSides)
{
    const auto& reactants = Control<QGroupBox>(boxes, "fraReac");
    const auto& products = Control<QGroupBox>(boxes, "fraProd");
    EXPECT_EQ(reactants.title(), u"Entrez les formules des molécules des réactifs : "_s);
    EXPECT_EQ(products.title(), u"Entrez les formules des molécules des produits : "_s);
    for (int position = 0; position < 6; ++position) {
        EXPECT_EQ(reactants.isAncestorOf(&Box(position)), position < 3) << position;
        EXPECT_EQ(products.isAncestorOf(&Box(position)), position >= 3) << position;
        EXPECT_FALSE(Box(position).accessibleName().isEmpty()) << position;
    }
}

TEST_F(SixBoxes, BringNoFormulaBackOnceTheyAreEmptied)
{
    Type(Box(0), u"H2"_s);
    boxes.Empty();

    Press(Box(0), Qt::Key_Z, Qt::ControlModifier);

    EXPECT_EQ(Box(0).text(), QString());
}

TEST_F(SixBoxes, TellWhatToTypeForAProduct)
{
    for (int position = 3; position < 6; ++position)
        EXPECT_EQ(Box(position).toolTip(),
                  u"Saisir ici la formule moléculaire d'un des produits en respectant la syntaxe"_s);
}

TEST_F(SixBoxes, GiveTheirTextsInOrder)
{
    for (int position = 0; position < 6; ++position)
        Type(Box(position), QString(QChar(u'A' + position)));

    const std::array<QString, 6> expected{u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s, u"F"_s};
    EXPECT_EQ(boxes.Texts(), expected);
}

TEST_F(SixBoxes, KnowWhichSideHoldsText)
{
    for (int position = 0; position < 6; ++position) {
        Type(Box(position), u"H"_s);
        EXPECT_EQ(boxes.HasText(0), position < 3) << position;
        EXPECT_EQ(boxes.HasText(1), position >= 3) << position;
        Box(position).clear();
    }
    EXPECT_FALSE(boxes.HasText(0));
    EXPECT_FALSE(boxes.HasText(1));
}

TEST_F(SixBoxes, TellAChangeBeforeTheyJudgeIt)
{
    Type(Box(4), u"H"_s);
    EXPECT_EQ(events, QStringList({u"edited"_s, u"changed"_s}));

    events.clear();
    Type(Box(4), u"é"_s);
    // The removal is a change of its own, and a right one.
    EXPECT_EQ(events, QStringList({u"edited"_s, u"box"_s, u"edited"_s, u"changed"_s}));
}

TEST_F(SixBoxes, EmptyInOrderAndGoToTheFirst)
{
    for (int position = 0; position < 6; ++position)
        Type(Box(position), QString(QChar(u'A' + position)));
    QStringList left;
    QObject::connect(&boxes, &MoleculeBoxes::FormulaChanged, [&] {
        QString texts;
        for (int position = 0; position < 6; ++position)
            texts += Box(position).text();
        left << texts;
    });
    Box(5).setFocus();

    boxes.Empty();

    EXPECT_EQ(left, QStringList({u"BCDEF"_s, u"CDEF"_s, u"DEF"_s, u"EF"_s, u"F"_s, QString()}));
    EXPECT_TRUE(Box(0).hasFocus());
}

TEST_F(SixBoxes, SayNothingWhenTheyWereEmpty)
{
    boxes.Empty();

    EXPECT_TRUE(events.isEmpty());
}

} // namespace stoikal
