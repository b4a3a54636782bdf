#include "simulation/windows/plot_pictures.h"

#include "forms/colours.h"
#include "forms/form.h"
#include "forms/rotator.h"
#include "simulation/windows/plot_surface.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace stoikal {
namespace {

constexpr double kCurveWidth = 2;
const QColor kInk(Qt::black);
const auto kOnRightEdge = Qt::AlignRight | Qt::AlignVCenter;
const auto kUnderLine = Qt::AlignHCenter | Qt::AlignTop;

/// "Arial" and "MS Sans Serif" by the family that stands for both.
QFont PlotFont(double points)
{
    QFont font(QStringLiteral("Liberation Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(points);
    return font;
}

QFont NumberFont()
{
    return PlotFont(8);
}

QFont TitleFont()
{
    return PlotFont(10);
}

double LineHeight(const QFont& font)
{
    return QFontMetricsF(font).height();
}

QString ProgramName()
{
    return QStringLiteral("Stoikal");
}

/// The middle of a text moved so that the whole of it stays between 0 and the
/// picture's length.
double KeptInside(double middle, double textLength, double length)
{
    return std::max(textLength / 2, std::min(middle, length - textLength / 2));
}

Twips UpToTwips(double pixels)
{
    return FromPixels(static_cast<int>(std::ceil(pixels)));
}

} // namespace

QRect PixelRect(const QRect& twips)
{
    const QPoint corner(ToPixels(twips.x()), ToPixels(twips.y()));
    const QPoint opposite(ToPixels(twips.x() + twips.width()), ToPixels(twips.y() + twips.height()));
    return {corner, QSize(opposite.x() - corner.x(), opposite.y() - corner.y())};
}

PlotPictures::PlotPictures(QWidget* parent)
    : picCourbe(Named(new PlotSurface(parent), QStringLiteral("picCourbe"),
                      QStringLiteral("Courbes de l'avancement")))
    , picX(Named(new PictureSurface(parent), QStringLiteral("picX"), QStringLiteral("Axe du temps")))
    , picY(Named(new PictureSurface(parent), QStringLiteral("picY"), QStringLiteral("Axe vertical")))
    , picZero(Named(new PictureSurface(parent), QStringLiteral("picZero"), QStringLiteral("Origine")))
    , picName(Named(new PictureSurface(parent), QStringLiteral("picName"), ProgramName()))
{
    picCourbe->KeepPicture();
    picCourbe->setCursor(Qt::CrossCursor);
    picName->hide();
    const QFont font = PlotFont(6);
    const QFontMetricsF metrics(font);
    picName->resize(static_cast<int>(std::ceil(metrics.horizontalAdvance(ProgramName()))) + 2,
                    static_cast<int>(std::ceil(metrics.height())));
    picName->SetScale({0, 0}, {100, 100});
    picName->DrawText({0, 0}, ProgramName(), kInk, font);
    DrawZero();
}

void PlotPictures::DrawZero()
{
    picZero->SetScale({0, 0}, {100, 100});
    // As far from the plot as the numbers above, which end with a blank.
    picZero->DrawText({100, 100}, QStringLiteral("0 "), kInk, NumberFont(), Qt::AlignRight | Qt::AlignBottom);
}

void PlotPictures::DrawAxes(const PlotAxes& axes)
{
    for (PictureSurface* const picture : {static_cast<PictureSurface*>(picCourbe), picX, picY})
        picture->Clear();
    const PlotScale& scale = axes.scale;
    picCourbe->SetScale({0, scale.top}, {scale.right, scale.bottom});
    picY->SetScale({0, scale.top}, {kLabelStrip, scale.bottom});
    picX->SetScale({0, kLabelStrip}, {scale.right, 0});
    DrawGrid(axes);
    DrawLevelLabels(axes);
    DrawTimeLabels(axes);
}

void PlotPictures::DrawGrid(const PlotAxes& axes)
{
    for (const double y : axes.levels)
        picCourbe->DrawLine({0, y}, {axes.end, y}, kInk);
    for (const double x : axes.times)
        picCourbe->DrawLine({x, 0}, {x, axes.top}, kInk);
}

void PlotPictures::DrawLevelLabels(const PlotAxes& axes)
{
    const QFont font = NumberFont();
    for (const PlotLabel& label : axes.levelLabels) {
        const QPointF pixel = picY->ToPixel({kLabelStrip, label.at});
        const double middle = KeptInside(pixel.y(), LineHeight(font), picY->height());
        picY->DrawText(picY->ToUser({pixel.x(), middle}), label.text, kInk, font, kOnRightEdge);
    }
    picY->setFont(TitleFont());
    const double length = QFontMetricsF(picY->font()).horizontalAdvance(axes.levelTitle);
    const double start = picY->ToUser({0, (picY->height() + length) / 2}).y();
    picY->MoveTo({0.1, start});
    Rotator rotator;
    rotator.Device(*picY);
    rotator.angle(90);
    rotator.Label(axes.levelTitle);
}

void PlotPictures::DrawTimeLabels(const PlotAxes& axes)
{
    const QFont font = NumberFont();
    for (const PlotLabel& label : axes.timeLabels) {
        const QPointF pixel = picX->ToPixel({label.at, kLabelStrip});
        const double length = QFontMetricsF(font).horizontalAdvance(label.text);
        const double middle = KeptInside(pixel.x(), length, picX->width());
        picX->DrawText(picX->ToUser({middle, pixel.y()}), label.text, kInk, font, kUnderLine);
    }
    picX->DrawText({axes.scale.right / 2, 0}, axes.timeTitle, kInk, TitleFont(),
                   Qt::AlignHCenter | Qt::AlignBottom);
}

void PlotPictures::DrawCurveLine(const CurveLine& line)
{
    picCourbe->DrawLine(line.from, line.to, FromBgr(KindColor.at(line.kind)), kCurveWidth);
}

Twips PlotPictures::LabelsWidth() const
{
    // The title, a gap, and the longest number that a scale can have.
    const double number = QFontMetricsF(NumberFont()).horizontalAdvance(QStringLiteral("260000 "));
    return UpToTwips(LineHeight(TitleFont()) + 6 + number);
}

Twips PlotPictures::TimesHeight() const
{
    return UpToTwips(LineHeight(NumberFont()) + 4 + LineHeight(TitleFont()));
}

Twips PlotPictures::ZeroHeight() const
{
    return UpToTwips(LineHeight(NumberFont()));
}

void PlotPictures::Place(const BoxLayout& layout)
{
    picCourbe->setGeometry(PixelRect(layout.plot));
    picX->setGeometry(PixelRect(layout.times));
    picY->setGeometry(PixelRect(layout.labels));
    picZero->setGeometry(PixelRect(layout.zero));
}

QRect PlotPictures::Surroundings() const
{
    return picCourbe->geometry().united(picX->geometry()).united(picY->geometry());
}

QImage PlotPictures::Copy(double devicePixelRatio) const
{
    const QSize size(picY->width() + picCourbe->width(), picCourbe->height() + picX->height());
    QImage picture(size * devicePixelRatio, QImage::Format_RGB32);
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    const auto paint = [&](const PictureSurface& surface, int x, int y) {
        painter.drawImage(QPoint(x, y), surface.Picture(devicePixelRatio));
    };
    paint(*picY, 0, 0);
    paint(*picCourbe, picY->width(), 0);
    paint(*picX, picY->width(), picCourbe->height());
    paint(*picZero, 0, picY->height());
    paint(*picName, 0, size.height() - picName->height());
    painter.end();
    // Who pastes it gets every pixel.
    picture.setDevicePixelRatio(1);
    return picture;
}

} // namespace stoikal
