#include "charts/windows/progress_pictures.h"

#include "charts/reaction_tables.h"
#include "forms/picture_surface.h"
#include "support/window_driver.h"

#include <QFontMetricsF>
#include <algorithm>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

using Box = PictureSurface::Box;
using Line = PictureSurface::Line;
using Text = PictureSurface::Text;

struct Surface : PictureSurface {
    explicit Surface(const QSize& size = QSize(600, 500)) { resize(size); }
};

std::vector<Line> LinesOf(const PictureSurface& surface, Qt::PenStyle style, const QColor& colour)
{
    std::vector<Line> lines = surface.Drawn<Line>();
    std::erase_if(lines, [&](const Line& line) { return line.style != style || line.colour != colour; });
    return lines;
}

std::vector<Box> BoxesOf(const PictureSurface& surface, const QColor& colour)
{
    std::vector<Box> boxes = surface.Drawn<Box>();
    std::erase_if(boxes, [&](const Box& box) { return box.colour != colour; });
    return boxes;
}

Text TextOf(const PictureSurface& surface, const QString& text)
{
    const std::vector<Text> texts = surface.Drawn<Text>();
    const auto found
        = std::find_if(texts.begin(), texts.end(), [&text](const Text& t) { return t.text == text; });
    if (found == texts.end())
        throw std::runtime_error("no text " + text.toStdString());
    return *found;
}

bool HasText(const PictureSurface& surface, const QString& text)
{
    const std::vector<Text> texts = surface.Drawn<Text>();
    return std::any_of(texts.begin(), texts.end(), [&text](const Text& t) { return t.text == text; });
}

void ExpectNear(const QPointF& point, double x, double y)
{
    EXPECT_NEAR(point.x(), x, 1e-9);
    EXPECT_NEAR(point.y(), y, 1e-9);
}

void PaintHistogramOf(PictureSurface& surface, const ProgressTable& table, double progress,
                      Ordinate ordinate = Ordinate::Amount)
{
    PaintHistogram(surface, HistogramAt(table, progress, ordinate), u',');
}

void PaintCurvesOf(PictureSurface& surface, const ProgressTable& table, double progress,
                   Ordinate ordinate = Ordinate::Amount)
{
    PaintProgressCurves(surface, ProgressCurvesAt(table, progress, ordinate), u',');
}

/// The pixels that a text that is not turned takes.
QRectF PixelBox(const PictureSurface& surface, const Text& text)
{
    const QFontMetricsF metrics(text.font);
    const QPointF place = surface.ToPixel(text.place);
    const double width = metrics.horizontalAdvance(text.text);
    const double height = metrics.height();
    const double left = text.side & Qt::AlignHCenter ? width / 2 : text.side & Qt::AlignRight ? width : 0;
    const double above = text.side & Qt::AlignVCenter ? height / 2 : text.side & Qt::AlignBottom ? height : 0;
    return {place.x() - left, place.y() - above, width, height};
}

/// All texts lie inside the picture, and no two of them cover each other.
void ExpectTextsApart(const PictureSurface& surface)
{
    std::vector<QRectF> boxes;
    std::vector<QString> names;
    for (const Text& text : surface.Drawn<Text>()) {
        QRectF box = PixelBox(surface, text);
        if (text.degrees == 90) {
            const QPointF start = surface.ToPixel(text.place);
            box = QRectF(start.x(), start.y() - box.width(), box.height(), box.width());
        }
        EXPECT_TRUE(QRectF(surface.rect()).adjusted(-1, -1, 1, 1).contains(box)) << text.text.toStdString();
        const QRectF core = box.adjusted(0, 2, 0, -2); // Ink never fills the whole line.
        for (std::size_t i = 0; i < boxes.size(); ++i)
            EXPECT_FALSE(boxes[i].intersects(core))
                << text.text.toStdString() << " over " << names[i].toStdString();
        boxes.push_back(core);
        names.push_back(text.text);
    }
}

/// All six slots in use, with long formulas and charges.
ProgressTable SixSpecies()
{
    ProgressTable table;
    table.Molecule = {u"KMnO4"_s, u"C6H12O6"_s, u"H3O"_s, u"Mn"_s, u"CH3COOH"_s, u"H2O"_s};
    table.Charge = {0, 0, 1, 2, 0, 0};
    table.Coeff = {2, 5, 6, 2, 5, 14};
    table.MolarMass = {158, 180, 19, 55, 60, 18};
    table.InitialAmount = {0.2, 0.65, 0.7, 0, 0, 0};
    table.FinalAmount = {0, 0.15, 0.1, 0.2, 0.5, 1.4};
    table.Mass = {31.6, 117, 13.3, 11, 30, 25.2};
    table.Xmax = 0.1;
    return table;
}

} // namespace

TEST(HistogramPicture, SlotColoursAreFixed)
{
    const QColor colours[]{{255, 0, 0},   {70, 200, 70}, {0, 0, 255},
                           {255, 0, 255}, {255, 200, 0}, {0, 192, 192}};
    for (int slot = 0; slot < 6; ++slot)
        EXPECT_EQ(SlotColour(slot), colours[slot]);
}

TEST(HistogramPicture, CoordinatesLeaveRoomAroundThePlot)
{
    Surface surface;
    PaintHistogramOf(surface, OneToOne(0.5), 0); // 2 species, top 5.

    ExpectNear(surface.ToUser({0, 0}), -0.6, 5.5); // 1.1 x 5.
    ExpectNear(surface.ToUser({600, 500}), 2.5, -0.5); // 2 + 0.5; -0.1 x 5.
}

TEST(HistogramPicture, AxesAndTicks)
{
    Surface surface;
    PaintHistogramOf(surface, OneToOne(0.5), 0);

    const std::vector<Line> solid = LinesOf(surface, Qt::SolidLine, Qt::black);
    ASSERT_EQ(solid.size(), 4U); // Two axes, a tick for each of 2 species.
    ExpectNear(solid[0].from, 0, 5.1); // 1.02 x 5.
    ExpectNear(solid[0].to, 0, 0);
    EXPECT_EQ(solid[0].width, 2);
    ExpectNear(solid[1].from, 0, 0);
    ExpectNear(solid[1].to, 2.2, 0);
    EXPECT_EQ(solid[1].width, 2);
    ExpectNear(solid[2].from, 1, 0.05); // 0.01 x 5.
    ExpectNear(solid[2].to, 1, -0.05);
    EXPECT_EQ(solid[2].width, 1);
    ExpectNear(solid[3].from, 2, 0.05);
}

TEST(HistogramPicture, DottedLineAndLabelAtEachStep)
{
    Surface surface;
    PaintHistogramOf(surface, OneToOne(0.5), 0);

    const std::vector<Line> dotted = LinesOf(surface, Qt::DotLine, Qt::black);
    ASSERT_EQ(dotted.size(), 11U); // 0 to 5 by 0.5.
    for (std::size_t i = 0; i < dotted.size(); ++i) {
        ExpectNear(dotted[i].from, 0, 0.5 * static_cast<double>(i));
        ExpectNear(dotted[i].to, 2.2, 0.5 * static_cast<double>(i));
    }
    const Text label = TextOf(surface, u"1,5"_s);
    ExpectNear(label.place, -0.05, 1.5);
    EXPECT_EQ(label.side, Qt::AlignRight | Qt::AlignVCenter);
    EXPECT_EQ(label.font.pointSize(), 10);
    EXPECT_FALSE(label.font.bold());
    for (const QString& text : {u"0"_s, u"0,5"_s, u"3"_s, u"5"_s})
        EXPECT_TRUE(HasText(surface, text)) << text.toStdString();
}

TEST(HistogramPicture, ReactantHasAnOpenRectangleUnderItsBar)
{
    Surface surface;
    PaintHistogramOf(surface, OneToOne(0.5), 0.2);

    const std::vector<Box> boxes = BoxesOf(surface, QColor(255, 0, 0));
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].rim, 1);
    EXPECT_NEAR(boxes[0].box.left(), 0.15, 1e-9); // 1 - 0.85.
    EXPECT_NEAR(boxes[0].box.width(), 0.7, 1e-9); // To 1 - 0.15.
    EXPECT_NEAR(boxes[0].box.top(), 0, 1e-9);
    EXPECT_NEAR(boxes[0].box.height(), 5, 1e-9); // 0.5 / 0.1.
    EXPECT_EQ(boxes[1].rim, 0);
    EXPECT_NEAR(boxes[1].box.height(), 3, 1e-9); // (0.5 - 0.2) / 0.1.
    EXPECT_NEAR(boxes[1].box.left(), 0.15, 1e-9);
}

TEST(HistogramPicture, ProductHasABarAlone)
{
    Surface surface;
    PaintHistogramOf(surface, OneToOne(0.5), 0.2);

    const std::vector<Box> boxes = BoxesOf(surface, QColor(255, 0, 255));
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].rim, 0);
    EXPECT_NEAR(boxes[0].box.left(), 1.15, 1e-9); // 2 - 0.85.
    EXPECT_NEAR(boxes[0].box.height(), 2, 1e-9); // 0.2 / 0.1.
}

TEST(HistogramPicture, BarsStandInTheirExactColours)
{
    Surface surface;
    PaintHistogramOf(surface, OneToOne(0.5), 0.2);
    const auto colourAt = [&surface](double x, double y) {
        return surface.ColourAt(surface.ToPixel({x, y}).toPoint());
    };

    EXPECT_EQ(colourAt(0.5, 2.8), QColor(255, 0, 0));
    EXPECT_EQ(colourAt(1.5, 1.8), QColor(255, 0, 255));
    // Between the present level and the initial one only the rim.
    EXPECT_NE(colourAt(0.5, 3.7), QColor(255, 0, 0));
    EXPECT_EQ(colourAt(0.15, 3.7), QColor(255, 0, 0));
    EXPECT_EQ(colourAt(0.5, 5), QColor(255, 0, 0));
    EXPECT_EQ(colourAt(0.05, 0.7), QColor(Qt::white));
}

TEST(HistogramPicture, ReactantUsedUpKeepsItsOpenRectangle)
{
    Surface surface;
    PaintHistogramOf(surface, BurningMethane(), 0.5);

    const std::vector<Box> methane = BoxesOf(surface, SlotColour(0));
    ASSERT_EQ(methane.size(), 2U);
    EXPECT_NEAR(methane[0].box.height(), 0.5, 1e-9);
    EXPECT_EQ(methane[1].box.height(), 0);
    const QPoint low = surface.ToPixel({0.5, 0.05}).toPoint();
    EXPECT_NE(surface.ColourAt(low), SlotColour(0));
}

TEST(HistogramPicture, SpeciesStandUnderTheirBars)
{
    ProgressTable table = OneToOne(0.5);
    table.Charge[0] = -2;
    table.Charge[3] = 1;
    Surface surface;
    PaintHistogramOf(surface, table, 0);

    const Text first = TextOf(surface, u"A{2-}"_s);
    EXPECT_NEAR(first.place.x(), 0.5, 1e-9); // 1 - 0.5.
    EXPECT_LT(first.place.y(), 0);
    EXPECT_EQ(first.side, Qt::AlignHCenter | Qt::AlignTop);
    EXPECT_NEAR(TextOf(surface, u"B{+}"_s).place.x(), 1.5, 1e-9);
}

TEST(HistogramPicture, TitlesAroundThePlot)
{
    Surface surface;
    PaintHistogramOf(surface, OneToOne(0.5), 0);

    const Text vertical = TextOf(surface, u"Quantité de matière (x0,1 mol)"_s);
    EXPECT_EQ(vertical.degrees, 90);
    EXPECT_NEAR(vertical.place.x(), -0.55, 3.1 / 600); // To the whole pixel.
    EXPECT_EQ(vertical.font.pointSize(), 10);
    const Text below = TextOf(surface, u"Espèces chimiques présentes au cours de la réaction"_s);
    EXPECT_EQ(below.degrees, 0);
    EXPECT_GT(PixelBox(surface, below).top(), PixelBox(surface, TextOf(surface, u"A"_s)).bottom() - 4);
    const Text first = TextOf(surface, u"Evolution des quantités de matière"_s);
    const Text second = TextOf(surface, u"en fonction des espèces chimiques"_s);
    EXPECT_TRUE(first.side & Qt::AlignHCenter);
    EXPECT_EQ(first.place.x(), second.place.x());
    EXPECT_GT(first.place.y(), second.place.y());
    EXPECT_GT(second.place.y(), 5); // Above the top of the axis.
}

TEST(HistogramPicture, MassShowsItsOwnTitles)
{
    Surface surface;
    PaintHistogramOf(surface, OneToOne(0.5), 0, Ordinate::Mass); // 5 g.

    EXPECT_TRUE(HasText(surface, u"Masse (g)"_s));
    EXPECT_TRUE(HasText(surface, u"Evolution des masses"_s));
    EXPECT_FALSE(HasText(surface, u"Evolution des quantités de matière"_s));
    ExpectNear(surface.ToUser({0, 0}), -0.6, 5.5);
}

TEST(HistogramPicture, IsDrawnFromNothingEachTime)
{
    Surface surface;
    PaintHistogramOf(surface, OneToOne(0.5), 0.4);
    PaintHistogramOf(surface, OneToOne(0.5), 0.1);

    EXPECT_EQ(BoxesOf(surface, SlotColour(3)).size(), 1U);
    EXPECT_NEAR(BoxesOf(surface, SlotColour(3)).at(0).box.height(), 1, 1e-9);
}

TEST(HistogramPicture, TextsNeverCoverEachOther)
{
    for (const QSize& size : {QSize(470, 336), QSize(512, 520), QSize(960, 850)}) {
        for (const Ordinate ordinate : {Ordinate::Amount, Ordinate::Mass}) {
            Surface surface(size);
            PaintHistogramOf(surface, SixSpecies(), 0.05, ordinate);
            ExpectTextsApart(surface);
            PaintHistogramOf(surface, BurningMethane(), 0.1, ordinate);
            ExpectTextsApart(surface);
            PaintHistogramOf(surface, OneToOne(22), 0.1, ordinate);
            ExpectTextsApart(surface);
        }
    }
}

TEST(HistogramPicture, NoLineRunsThroughTheHeading)
{
    // A top of 33, step 5, has a line at 35, in the heading: 36.3 is the edge of the picture.
    Surface surface;
    PaintHistogramOf(surface, OneToOne(33), 0);

    const double y = surface.ToPixel({0, 35}).y();
    const QRectF heading = PixelBox(surface, TextOf(surface, u"Evolution des quantités de matière"_s));
    ASSERT_GT(y, heading.top());
    ASSERT_LT(y, heading.bottom() + heading.height()); // In one of its two lines.
    const std::vector<Box> paper = BoxesOf(surface, Qt::white);
    ASSERT_EQ(paper.size(), 1U);
    const QRectF covered
        = QRectF(surface.ToPixel(paper[0].box.topLeft()), surface.ToPixel(paper[0].box.bottomRight()))
              .normalized();
    EXPECT_TRUE(covered.adjusted(-1, -3, 1, 1).contains(heading));
    // The line itself is there, as far as it can be seen.
    EXPECT_EQ(LinesOf(surface, Qt::DotLine, Qt::black).size(), 8U); // 0 to 35.
}

TEST(CurvePicture, CoordinatesLeaveRoomForLabels)
{
    Surface surface;
    PaintCurvesOf(surface, OneToOne(0.5), 0); // R = 50, T = 5.

    ExpectNear(surface.ToUser({0, 500}), -6.25, -0.5); // -0.125 x 50, -0.1 x 5.
    // A tenth more on the other sides.
    ExpectNear(surface.ToUser({600, 0}), 55, 5.5);
}

TEST(CurvePicture, DottedGridOnBothAxes)
{
    Surface surface;
    PaintCurvesOf(surface, OneToOne(0.5), 0);

    const std::vector<Line> dotted = LinesOf(surface, Qt::DotLine, Qt::black);
    ASSERT_EQ(dotted.size(), 22U); // 0 to 50 by 5, 0 to 5 by 0.5.
    for (std::size_t i = 0; i < 11; ++i) {
        ExpectNear(dotted[i].from, 5.0 * static_cast<double>(i), 0);
        ExpectNear(dotted[i].to, 5.0 * static_cast<double>(i), 5);
        ExpectNear(dotted[11 + i].from, 0, 0.5 * static_cast<double>(i));
        ExpectNear(dotted[11 + i].to, 50, 0.5 * static_cast<double>(i));
    }
}

TEST(CurvePicture, LabelsOfBothAxes)
{
    Surface surface;
    PaintCurvesOf(surface, OneToOne(0.5), 0);

    const Text level = TextOf(surface, u"1,5"_s);
    ExpectNear(level.place, -0.5, 1.5); // -0.01 x 50.
    EXPECT_EQ(level.side, Qt::AlignRight | Qt::AlignVCenter);
    const Text progress = TextOf(surface, u"35"_s);
    EXPECT_NEAR(progress.place.x(), 35, 1e-9);
    EXPECT_LT(progress.place.y(), 0);
    EXPECT_EQ(progress.side, Qt::AlignHCenter | Qt::AlignTop);
}

TEST(CurvePicture, DenseGridKeepsAllItsLabelsInSmallerType)
{
    // Half of a screen of 1024: 21 labels of a horizontal axis, 20 pixels apart.
    Surface surface(QSize(512, 560));
    PaintCurvesOf(surface, OneToOne(1), 0); // R = 10, step 0.5.

    int labels = 0;
    for (const Text& text : surface.Drawn<Text>()) {
        if (text.side != (Qt::AlignHCenter | Qt::AlignTop) || text.place.y() > 0)
            continue;
        ++labels;
        EXPECT_LT(text.font.pointSize(), 10);
        EXPECT_GE(text.font.pointSize(), 7);
    }
    EXPECT_EQ(labels, 21);
}

TEST(CurvePicture, TinyPictureLeavesLabelsOut)
{
    Surface surface(QSize(200, 120));
    PaintCurvesOf(surface, OneToOne(1), 0);

    EXPECT_TRUE(HasText(surface, u"0"_s));
    EXPECT_FALSE(HasText(surface, u"0,05"_s));
    EXPECT_FALSE(HasText(surface, u"9,5"_s));
}

TEST(CurvePicture, LineOfEachSpeciesGrowsToThePresentProgress)
{
    Surface surface;
    PaintCurvesOf(surface, BurningMethane(), 0.25); // R = 50, in hundredths of a mole.

    const double from[]{0.5, 1.2, 0, 0};
    const double to[]{0.25, 0.7, 0.25, 0.5};
    const int slots[]{0, 1, 3, 4};
    for (std::size_t i = 0; i < 4; ++i) {
        const std::vector<Line> lines = LinesOf(surface, Qt::SolidLine, SlotColour(slots[i]));
        ASSERT_EQ(lines.size(), 1U) << slots[i];
        ExpectNear(lines[0].from, 0, from[i]);
        ExpectNear(lines[0].to, 25, to[i]);
        EXPECT_EQ(lines[0].width, 2);
    }
}

TEST(CurvePicture, PastTheGreatestProgressALevelLineFollows)
{
    Surface surface;
    PaintCurvesOf(surface, BurningMethane(), 0.52);

    const std::vector<Line> lines = LinesOf(surface, Qt::SolidLine, SlotColour(4));
    ASSERT_EQ(lines.size(), 2U);
    ExpectNear(lines[0].to, 50, 1);
    ExpectNear(lines[1].from, 50, 1);
    ExpectNear(lines[1].to, 52, 1);
}

TEST(CurvePicture, TitlesAroundThePlot)
{
    Surface surface;
    PaintCurvesOf(surface, OneToOne(0.5), 0);

    const Text vertical = TextOf(surface, u"Quantité de matière (x0,1 mol)"_s);
    EXPECT_EQ(vertical.degrees, 90);
    EXPECT_LT(vertical.place.x(), 0);
    const Text horizontal = TextOf(surface, u"x avancement (x0,01 mol)"_s);
    EXPECT_LT(horizontal.place.y(), 0);
    EXPECT_GT(TextOf(surface, u"Evolution des quantités de matière"_s).place.y(), 5);
    EXPECT_GT(TextOf(surface, u"en fonction de l'avancement"_s).place.y(), 5);
}

TEST(CurvePicture, CurvesAreSmoothAndTheirColoursExactOnTheTwin)
{
    Surface surface;
    PaintCurvesOf(surface, BurningMethane(), 0.5);

    // The line of O2 at x = 20 hundredths: 1.2 - 2 x 0.2 = 0.8.
    const QPoint pixel = surface.ToPixel({20, 0.8}).toPoint();
    bool isThere = false;
    for (int dy = -1; dy <= 1; ++dy)
        isThere = isThere || surface.ColourAt(pixel + QPoint(0, dy)) == SlotColour(1);
    EXPECT_TRUE(isThere);
    const QImage shown = surface.Picture();
    int blends = 0;
    for (int y = pixel.y() - 20; y <= pixel.y() + 20; ++y) {
        const QColor colour = shown.pixelColor(pixel.x(), y);
        blends += colour != SlotColour(1) && colour != Qt::white && colour != Qt::black ? 1 : 0;
    }
    EXPECT_GT(blends, 0);
}

TEST(CurvePicture, SpeciesStandAtTheEndsOfTheirCurves)
{
    Surface surface;
    PaintCurvesOf(surface, BurningMethane(), 0.4);

    // At 0.4 mol: CH4 0.1, O2 0.4, CO2 0.4, H2O 0.8: O2 and CO2 end together.
    EXPECT_TRUE(HasText(surface, u"CH4"_s));
    EXPECT_TRUE(HasText(surface, u"O2, CO2"_s));
    EXPECT_TRUE(HasText(surface, u"H2O"_s));
    const QRectF name = PixelBox(surface, TextOf(surface, u"H2O"_s));
    const QPointF end = surface.ToPixel({40, 0.8});
    EXPECT_LT(std::abs(name.center().y() - end.y()), 25);
    EXPECT_LT(std::abs(name.left() - end.x()), 15);
    ExpectTextsApart(surface);
}

TEST(CurvePicture, TextsNeverCoverEachOther)
{
    for (const QSize& size : {QSize(470, 336), QSize(512, 520), QSize(960, 850)}) {
        for (const Ordinate ordinate : {Ordinate::Amount, Ordinate::Mass}) {
            for (int part = 0; part <= 10; ++part) {
                Surface surface(size);
                PaintCurvesOf(surface, SixSpecies(), 0.01 * part, ordinate);
                ExpectTextsApart(surface);
                PaintCurvesOf(surface, BurningMethane(), 0.05 * part, ordinate);
                ExpectTextsApart(surface);
                PaintCurvesOf(surface, OneToOne(1), 0.1 * part, ordinate);
                ExpectTextsApart(surface);
            }
        }
    }
}

} // namespace stoikal
