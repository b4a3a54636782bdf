#include "charts/progress_curves.h"

#include "charts/reaction_tables.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

void ExpectNear(const QPointF& point, double x, double y)
{
    EXPECT_NEAR(point.x(), x, 1e-9);
    EXPECT_NEAR(point.y(), y, 1e-9);
}

} // namespace

TEST(ProgressCurves, HorizontalAxisHasItsOwnScale)
{
    const ProgressCurves drawing = ProgressCurvesAt(BurningMethane(), 0, Ordinate::Amount);

    // 0.5 / 0.01 = 50; 50000, step 5.
    EXPECT_EQ(drawing.horizontal.unit, 0.01);
    EXPECT_DOUBLE_EQ(drawing.horizontal.top, 50);
    EXPECT_DOUBLE_EQ(drawing.horizontal.step, 5);
    EXPECT_EQ(drawing.horizontalTitle, u"x avancement (x0,01 mol)"_s);
    // 1.2 mol; 1200, step 0.1, (12 + 1) x 0.1.
    EXPECT_EQ(drawing.vertical.unit, 1);
    EXPECT_DOUBLE_EQ(drawing.vertical.top, 1.3);
    EXPECT_EQ(drawing.verticalTitle, u"Quantité de matière (mol)"_s);
}

TEST(ProgressCurves, BrokenEndIsRaisedToWholeSteps)
{
    // 0.123 / 0.01 = 12.3; 12300, step 1: (12 + 1) x 1.
    const ProgressCurves drawing = ProgressCurvesAt(OneToOne(0.123), 0, Ordinate::Amount);

    EXPECT_DOUBLE_EQ(drawing.horizontal.top, 13);
}

TEST(ProgressCurves, LinesEndAtThePresentProgress)
{
    const ProgressCurves drawing = ProgressCurvesAt(BurningMethane(), 0.25, Ordinate::Amount);

    ASSERT_EQ(drawing.curves.size(), 4U);
    ExpectNear(drawing.curves[0].from, 0, 0.5);
    ExpectNear(drawing.curves[0].to, 25, 0.25); // 0.25 / 0.01; 0.5 - 0.25.
    ExpectNear(drawing.curves[1].from, 0, 1.2);
    ExpectNear(drawing.curves[1].to, 25, 0.7);
    ExpectNear(drawing.curves[2].from, 0, 0);
    ExpectNear(drawing.curves[2].to, 25, 0.25);
    ExpectNear(drawing.curves[3].from, 0, 0);
    ExpectNear(drawing.curves[3].to, 25, 0.5);
    for (const ProgressCurve& curve : drawing.curves)
        EXPECT_FALSE(curve.levelTo.has_value());
}

TEST(ProgressCurves, NothingHasGrownAtTheBeginning)
{
    for (const ProgressCurve& curve : ProgressCurvesAt(BurningMethane(), 0, Ordinate::Amount).curves)
        EXPECT_EQ(curve.from, curve.to);
}

TEST(ProgressCurves, PastTheGreatestProgressTheyGoOnLevel)
{
    // 0.6 mol, the greatest progress being 0.5.
    const ProgressCurves drawing = ProgressCurvesAt(BurningMethane(), 0.6, Ordinate::Amount);

    ExpectNear(drawing.curves[0].to, 50, 0);
    ExpectNear(drawing.curves[0].levelTo.value(), 60, 0);
    ExpectNear(drawing.curves[1].to, 50, 0.2); // 1.2 - 2 x 0.5.
    ExpectNear(drawing.curves[1].levelTo.value(), 60, 0.2);
    ExpectNear(drawing.curves[3].to, 50, 1);
    ExpectNear(drawing.curves[3].levelTo.value(), 60, 1);
    ExpectNear(drawing.curves[3].End(), 60, 1);
}

TEST(ProgressCurves, AtTheGreatestProgressThereIsNoLevelPart)
{
    const ProgressCurves drawing = ProgressCurvesAt(BurningMethane(), 0.5, Ordinate::Amount);

    EXPECT_FALSE(drawing.curves[0].levelTo.has_value());
    ExpectNear(drawing.curves[0].End(), 50, 0);
}

TEST(ProgressCurves, MassChangesValuesTextsAndVerticalGridAlone)
{
    const ProgressCurves drawing = ProgressCurvesAt(BurningMethane(), 0.25, Ordinate::Mass);

    EXPECT_DOUBLE_EQ(drawing.vertical.top, 40); // 38.4 g, step 5.
    EXPECT_EQ(drawing.verticalTitle, u"Masse (g)"_s);
    EXPECT_EQ(drawing.heading[0], u"Evolution des masses"_s);
    ExpectNear(drawing.curves[1].from, 0, 38.4); // 1.2 x 32.
    ExpectNear(drawing.curves[1].to, 25, 22.4); // 0.7 x 32.
    ExpectNear(drawing.curves[3].to, 25, 9); // 0.5 x 18.
    EXPECT_DOUBLE_EQ(drawing.horizontal.top, 50);
    EXPECT_EQ(drawing.horizontalTitle, u"x avancement (x0,01 mol)"_s);
}

TEST(ProgressCurves, HeadingAndLabels)
{
    ProgressTable table = BurningMethane();
    table.Charge[4] = 1;
    const ProgressCurves drawing = ProgressCurvesAt(table, 0, Ordinate::Amount);

    EXPECT_EQ(drawing.heading[0], u"Evolution des quantités de matière"_s);
    EXPECT_EQ(drawing.heading[1], u"en fonction de l'avancement"_s);
    EXPECT_EQ(drawing.curves[0].label, u"CH4"_s);
    EXPECT_EQ(drawing.curves[3].label, u"H2O{+}"_s);
}

} // namespace stoikal
