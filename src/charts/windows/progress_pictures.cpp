#include "charts/windows/progress_pictures.h"

#include "charts/end_labels.h"
#include "forms/colours.h"
#include "forms/picture_surface.h"
#include "forms/rotator.h"

#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>
#include <array>
#include <cmath>

namespace stoikal {
namespace {

constexpr int kTextPoints = 10;
constexpr int kLeastPoints = 7; ///< of labels that have little room

QFont TextFont(int points = kTextPoints)
{
    QFont font(QStringLiteral("Liberation Sans"), points);
    font.setStyleHint(QFont::SansSerif);
    return font;
}

double Width(const QString& text, const QFont& font)
{
    return QFontMetricsF(font).horizontalAdvance(text);
}

double WidestOf(const QStringList& texts, const QFont& font)
{
    double widest = 0;
    for (const QString& text : texts)
        widest = std::max(widest, Width(text, font));
    return widest;
}

/// The largest of the small sizes of type in which all texts keep to a width.
QFont FittingFont(const QStringList& texts, double pixels, int most = kTextPoints)
{
    int points = most;
    while (points > kLeastPoints && WidestOf(texts, TextFont(points)) > pixels)
        --points;
    return TextFont(points);
}

QStringList LabelsOf(const std::vector<double>& values, QChar separator)
{
    QStringList labels;
    for (const double value : values)
        labels << GraduationText(value, separator);
    return labels;
}

/// Every how many lines there is room for a label.
int LabelStride(double pixelsPerLabel, double pixelsPerLine)
{
    return std::max(1, static_cast<int>(std::ceil(pixelsPerLabel / std::max(pixelsPerLine, 0.01))));
}

/// One drawing being made: the surface, and lengths of pixels in its user units.
class Sheet
{
public:
    explicit Sheet(PictureSurface& surface)
        : m_surface(surface)
    {
        m_surface.Clear();
        m_surface.SetBackColour(colours::kPaper);
        m_surface.SetForeColour(colours::kInk);
        m_surface.setFont(TextFont());
    }

    PictureSurface& Surface() { return m_surface; }

    double PixelsX(double user) const { return std::fabs(Pixel({user, 0}).x() - Pixel({0, 0}).x()); }
    double PixelsY(double user) const { return std::fabs(Pixel({0, user}).y() - Pixel({0, 0}).y()); }
    QPointF Pixel(const QPointF& user) const { return m_surface.ToPixel(user); }
    QPointF User(const QPointF& pixel) const { return m_surface.ToUser(pixel); }

    /// Labels of the vertical axis, each with its right edge at x.
    void VerticalLabels(const std::vector<double>& values, double step, double x, double roomPixels,
                        QChar separator)
    {
        const QStringList labels = LabelsOf(values, separator);
        const QFont font = FittingFont(labels, roomPixels);
        const double height = QFontMetricsF(font).height();
        const int stride = LabelStride(height * 0.9, PixelsY(step));
        for (std::size_t i = 0; i < values.size(); i += static_cast<std::size_t>(stride)) {
            m_surface.DrawText({x, values[i]}, labels.at(static_cast<qsizetype>(i)), colours::kInk, font,
                               Qt::AlignRight | Qt::AlignVCenter);
        }
    }

    /// The title that runs upwards, from x, along the middle of the axis.
    void VerticalTitle(const QString& title, double x, double middle)
    {
        const double half = Width(title, m_surface.font()) / 2;
        m_surface.MoveTo(User({Pixel({x, 0}).x(), Pixel({0, middle}).y() + half}));
        Rotator rotator;
        rotator.Device(m_surface);
        rotator.angle(90);
        rotator.Label(title);
    }

    /// The two lines above the plot, on paper that no line of the grid runs through.
    void Heading(const std::array<QString, 2>& lines, double centre, double highestLine)
    {
        const QFont font = m_surface.font();
        const double lineHeight = QFontMetricsF(font).height();
        const double middle = Pixel({centre, 0}).x();
        const double half = WidestOf({lines[0], lines[1]}, font) / 2 + 4;
        if (Pixel({0, highestLine}).y() < HeadingHeight())
            m_surface.FillBox(QRectF(User({middle - half, 0}), User({middle + half, HeadingHeight()})),
                              colours::kPaper);
        double y = kHeadingTop;
        for (const QString& line : lines) {
            m_surface.DrawText({centre, User({0, y}).y()}, line, colours::kInk, font,
                               Qt::AlignHCenter | Qt::AlignTop);
            y += lineHeight;
        }
    }

    double HeadingHeight() const { return kHeadingTop + 2 * QFontMetricsF(m_surface.font()).height(); }

    /// The largest of the small sizes of type in which labels that begin at a
    /// height have the title below them, not behind them.
    int PointsUnder(double labelTop) const
    {
        const double room = m_surface.height() - kUnderTitle - Pixel({0, labelTop}).y();
        int points = kTextPoints;
        while (points > kLeastPoints && 2 * QFontMetricsF(TextFont(points)).height() > room)
            --points;
        return points;
    }

    /// The line of text along the lower edge.
    void BottomTitle(const QString& title, double centre, int points)
    {
        const double bottom = m_surface.height() - kUnderTitle;
        m_surface.DrawText({centre, User({0, bottom}).y()}, title, colours::kInk, TextFont(points),
                           Qt::AlignHCenter | Qt::AlignBottom);
    }

private:
    static constexpr double kHeadingTop = 2;
    static constexpr double kUnderTitle = 1;

    PictureSurface& m_surface;
};

/// How far the rotated title reaches from its x, and a little more.
double TitleDepth(const PictureSurface& surface)
{
    return QFontMetricsF(surface.font()).height() + 3;
}

/// The labels of the bars stand below the ticks of the axis.
double BarLabelTop(const Sheet& sheet, const Histogram& histogram)
{
    return sheet.User({0, sheet.Pixel({0, -0.01 * histogram.scale.top}).y() + 2}).y();
}

/// The labels of the curves' axis stand below the axis.
double ProgressLabelTop(const Sheet& sheet)
{
    return sheet.User({0, sheet.Pixel({0, 0}).y() + 3}).y();
}

void DrawBars(Sheet& sheet, const Histogram& histogram)
{
    PictureSurface& surface = sheet.Surface();
    QStringList labels;
    for (const Bar& bar : histogram.bars)
        labels << bar.label;
    const double labelTop = BarLabelTop(sheet, histogram);
    const QFont font = FittingFont(labels, sheet.PixelsX(1) - 4, sheet.PointsUnder(labelTop));
    for (const Bar& bar : histogram.bars) {
        const QColor colour = SlotColour(bar.slot);
        const double width = bar.right - bar.left;
        if (bar.initial)
            surface.DrawOpenBox(QRectF(bar.left, 0, width, *bar.initial), colour, 1);
        surface.FillBox(QRectF(bar.left, 0, width, bar.present), colour);
        surface.DrawText({(bar.left + bar.right) / 2, labelTop}, bar.label, colours::kInk, font,
                         Qt::AlignHCenter | Qt::AlignTop);
    }
}

/// Grid and labels of the curves; gives back the ends of the grid.
QPointF DrawCurveGrid(Sheet& sheet, const ProgressCurves& drawing, QChar separator)
{
    PictureSurface& surface = sheet.Surface();
    const std::vector<double> columns = Graduations(drawing.horizontal);
    const std::vector<double> rows = Graduations(drawing.vertical);
    const double right = drawing.horizontal.top;
    const double top = drawing.vertical.top;
    const QPointF end(std::max(right, columns.back()), std::max(top, rows.back()));
    for (const double x : columns)
        surface.DrawLine({x, 0}, {x, end.y()}, Qt::black, 1, Qt::DotLine);
    for (const double y : rows)
        surface.DrawLine({0, y}, {end.x(), y}, Qt::black, 1, Qt::DotLine);

    const double room = sheet.PixelsX(0.11 * right) - TitleDepth(surface);
    sheet.VerticalLabels(rows, drawing.vertical.step, -0.01 * right, room, separator);
    const QStringList labels = LabelsOf(columns, separator);
    constexpr double kBetween = 5;
    const double pitch = sheet.PixelsX(drawing.horizontal.step);
    const double y = ProgressLabelTop(sheet);
    const QFont font = FittingFont(labels, pitch - kBetween, sheet.PointsUnder(y));
    const int stride = LabelStride(WidestOf(labels, font) + kBetween, pitch);
    for (std::size_t i = 0; i < columns.size(); i += static_cast<std::size_t>(stride))
        surface.DrawText({columns[i], y}, labels.at(static_cast<qsizetype>(i)), colours::kInk, font,
                         Qt::AlignHCenter | Qt::AlignTop);
    return end;
}

/// The names at the ends of the curves. Curves that end together share a label.
void DrawEndLabels(Sheet& sheet, const std::vector<ProgressCurve>& curves)
{
    PictureSurface& surface = sheet.Surface();
    struct Name {
        QString text;
        QColor colour;
    };
    std::vector<Name> names;
    std::vector<EndLabel> labels;
    std::vector<QLineF> lines;
    for (const ProgressCurve& curve : curves) {
        const QPointF end = sheet.Pixel(curve.End());
        lines.emplace_back(sheet.Pixel(curve.from), sheet.Pixel(curve.to));
        if (curve.levelTo)
            lines.emplace_back(sheet.Pixel(curve.to), end);
        const auto same = std::find_if(labels.begin(), labels.end(), [&end](const EndLabel& label) {
            return QLineF(label.end, end).length() < 3;
        });
        if (same == labels.end()) {
            names.push_back({curve.label, SlotColour(curve.slot).darker(200)});
            labels.push_back({end, {}});
        } else {
            Name& shared = names.at(static_cast<std::size_t>(same - labels.begin()));
            shared = {QStringLiteral("%1, %2").arg(shared.text, curve.label), colours::kInk};
        }
    }
    const QFont font = TextFont(kTextPoints - 1);
    for (std::size_t i = 0; i < labels.size(); ++i)
        labels[i].size = QSizeF(Width(names[i].text, font) + 4, QFontMetricsF(font).height());
    const QPointF origin = sheet.Pixel({0, 0});
    const QRectF room(QPointF(origin.x() + 1, sheet.HeadingHeight()),
                      QPointF(surface.width() - 1, origin.y() - 1));
    const auto places = PlaceEndLabels(labels, lines, room);
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (!places[i])
            continue;
        const QRectF& box = *places[i];
        surface.FillBox(QRectF(sheet.User(box.topLeft()), sheet.User(box.bottomRight())), colours::kPaper);
        surface.DrawText(sheet.User(box.center()), names[i].text, names[i].colour, font,
                         Qt::AlignHCenter | Qt::AlignVCenter);
    }
}

} // namespace

QColor SlotColour(int slot)
{
    static const std::array<QColor, kSlots> kColours{QColor(255, 0, 0),   QColor(70, 200, 70),
                                                     QColor(0, 0, 255),   QColor(255, 0, 255),
                                                     QColor(255, 200, 0), QColor(0, 192, 192)};
    return kColours.at(static_cast<std::size_t>(slot));
}

void PaintHistogram(PictureSurface& surface, const Histogram& histogram, QChar separator)
{
    const auto count = static_cast<double>(histogram.bars.size());
    const double top = histogram.scale.top;
    const double end = count + 0.2;
    constexpr double kTitleX = -0.55;
    constexpr double kLabelX = -0.05;
    Sheet sheet(surface);
    surface.SetScale({-0.6, 1.1 * top}, {count + 0.5, -0.1 * top});
    surface.DrawLine({0, 1.02 * top}, {0, 0}, Qt::black, 2);
    surface.DrawLine({0, 0}, {end, 0}, Qt::black, 2);
    for (int i = 1; i <= static_cast<int>(count); ++i)
        surface.DrawLine({double(i), 0.01 * top}, {double(i), -0.01 * top}, Qt::black);
    const std::vector<double> rows = Graduations(histogram.scale);
    for (const double y : rows)
        surface.DrawLine({0, y}, {end, y}, Qt::black, 1, Qt::DotLine);
    const double room = sheet.PixelsX(kLabelX - kTitleX) - TitleDepth(surface);
    sheet.VerticalLabels(rows, histogram.scale.step, kLabelX, room, separator);
    DrawBars(sheet, histogram);
    sheet.BottomTitle(histogram.horizontalTitle, end / 2, sheet.PointsUnder(BarLabelTop(sheet, histogram)));
    sheet.VerticalTitle(histogram.verticalTitle, kTitleX, top / 2);
    sheet.Heading(histogram.heading, end / 2, rows.back());
}

void PaintProgressCurves(PictureSurface& surface, const ProgressCurves& drawing, QChar separator)
{
    const double right = drawing.horizontal.top;
    const double top = drawing.vertical.top;
    Sheet sheet(surface);
    // A line of the grid beyond the end keeps room for its label.
    const double edge = std::max(1.1 * right, Graduations(drawing.horizontal).back() + 0.05 * right);
    surface.SetScale({-0.125 * right, 1.1 * top}, {edge, -0.1 * top});
    const QPointF end = DrawCurveGrid(sheet, drawing, separator);
    surface.DrawLine({0, end.y()}, {0, 0}, Qt::black);
    surface.DrawLine({0, 0}, {end.x(), 0}, Qt::black);
    for (const ProgressCurve& curve : drawing.curves) {
        const QColor colour = SlotColour(curve.slot);
        surface.DrawLine(curve.from, curve.to, colour, 2);
        if (curve.levelTo)
            surface.DrawLine(curve.to, *curve.levelTo, colour, 2);
    }
    DrawEndLabels(sheet, drawing.curves);
    sheet.BottomTitle(drawing.horizontalTitle, right / 2, sheet.PointsUnder(ProgressLabelTop(sheet)));
    sheet.VerticalTitle(drawing.verticalTitle, -0.12 * right, top / 2);
    sheet.Heading(drawing.heading, right / 2, end.y());
}

} // namespace stoikal
