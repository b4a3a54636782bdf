#include "forms/picture_surface.h"

#include "base/twips.h"

#include <QFontMetricsF>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace stoikal {

PictureSurface::PictureSurface(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

namespace {

/// The next whole pixel of a screen that has so many of them in a logical one.
double Whole(double position, double ratio)
{
    return std::round(position * ratio) / ratio;
}

QRectF OnWholePixels(const QRectF& box, double ratio)
{
    return {QPointF(Whole(box.left(), ratio), Whole(box.top(), ratio)),
            QPointF(Whole(box.right(), ratio), Whole(box.bottom(), ratio))};
}

/// How much of a length lies before the place of a text.
double Share(Qt::Alignment side, Qt::Alignment middle, Qt::Alignment end)
{
    if (side & middle)
        return 0.5;
    return side & end ? 1 : 0;
}

} // namespace

void PictureSurface::SetScale(const QPointF& upperLeft, const QPointF& lowerRight)
{
    m_hasScale = true;
    m_upperLeft = upperLeft;
    m_lowerRight = lowerRight;
    ForgetPixels();
    update();
}

void PictureSurface::ResetScale()
{
    m_hasScale = false;
    ForgetPixels();
    update();
}

void PictureSurface::SetBackColour(const QColor& colour)
{
    m_backColour = colour;
    ForgetPixels();
    update();
}

void PictureSurface::Clear()
{
    m_items.clear();
    ForgetPixels();
    AskForPaint();
}

void PictureSurface::ForgetPixels()
{
    m_shown = {};
    m_twin = {};
}

void PictureSurface::AskForPaint()
{
    // A thousand discs ask once.
    if (m_paintIsAsked)
        return;
    m_paintIsAsked = true;
    update();
}

void PictureSurface::Add(Item item)
{
    const auto* const line = std::get_if<Line>(&item);
    if (m_keepsPicture && line != nullptr)
        update(RoomOf(*line));
    else
        AskForPaint();
    m_items.push_back(std::move(item));
}

QRect PictureSurface::RoomOf(const Line& line) const
{
    const double rim = line.width + 2;
    return QRectF(ToPixel(line.from), ToPixel(line.to))
        .normalized()
        .adjusted(-rim, -rim, rim, rim)
        .intersected(rect())
        .toAlignedRect();
}

void PictureSurface::DrawLine(const QPointF& from, const QPointF& to, const QColor& colour,
                              double widthPixels, Qt::PenStyle style)
{
    Add(Line{from, to, colour, widthPixels, style});
}

void PictureSurface::FillBox(const QRectF& box, const QColor& colour)
{
    Add(Box{box, colour, 0});
}

void PictureSurface::DrawOpenBox(const QRectF& box, const QColor& colour, double rimPixels)
{
    Add(Box{box, colour, rimPixels});
}

void PictureSurface::DrawDisc(const QPointF& centre, double radius, const QColor& colour,
                              const QString& symbol)
{
    Add(Disc{centre, radius, colour.rgb(), symbol});
}

void PictureSurface::DrawText(const QPointF& place, const QString& text, const QColor& colour,
                              const QFont& font, Qt::Alignment side)
{
    Add(Text{place, text, colour, font, side, 0});
}

void PictureSurface::DrawTurnedText(const QPointF& start, const QString& text, const QColor& colour,
                                    const QFont& font, int degrees)
{
    Add(Text{start, text, colour, font, Qt::AlignLeft | Qt::AlignTop, degrees});
}

QPointF PictureSurface::Scale() const
{
    if (!m_hasScale)
        return {kTwipsPerPixel, kTwipsPerPixel};
    return {(m_lowerRight.x() - m_upperLeft.x()) / std::max(1, width()),
            (m_lowerRight.y() - m_upperLeft.y()) / std::max(1, height())};
}

QPointF PictureSurface::ToUser(const QPointF& pixel) const
{
    const QPointF scale = Scale();
    const QPointF origin = m_hasScale ? m_upperLeft : QPointF();
    return {origin.x() + pixel.x() * scale.x(), origin.y() + pixel.y() * scale.y()};
}

QPointF PictureSurface::ToPixel(const QPointF& user) const
{
    const QPointF scale = Scale();
    const QPointF origin = m_hasScale ? m_upperLeft : QPointF();
    return {(user.x() - origin.x()) / scale.x(), (user.y() - origin.y()) / scale.y()};
}

double PictureSurface::TextWidth(const QString& text, const QFont& font) const
{
    return QFontMetricsF(font).horizontalAdvance(text) * std::fabs(Scale().x());
}

double PictureSurface::TextHeight(const QFont& font) const
{
    return QFontMetricsF(font).height() * std::fabs(Scale().y());
}

void PictureSurface::RenderItem(QPainter& painter, const Line& line, bool smooth) const
{
    QPointF from = ToPixel(line.from);
    QPointF to = ToPixel(line.to);
    double width = line.width;
    // Upright and level lines lie on whole pixels, else they would be two grey ones.
    const bool isSlanted = from.x() != to.x() && from.y() != to.y();
    if (!isSlanted) {
        const double ratio = painter.device()->devicePixelRatioF();
        const double pixels = std::max(1.0, std::floor(width * ratio));
        const bool isOdd = std::fmod(pixels, 2) == 1;
        const auto onPixels = [ratio, isOdd](double position) {
            return isOdd ? (std::floor(position * ratio) + 0.5) / ratio : Whole(position, ratio);
        };
        from = QPointF(onPixels(from.x()), onPixels(from.y()));
        to = QPointF(onPixels(to.x()), onPixels(to.y()));
        width = pixels / ratio;
    }
    painter.setRenderHint(QPainter::Antialiasing, smooth && isSlanted);
    QPen pen(line.colour, width, line.style);
    if (line.style == Qt::DotLine) {
        // Square ends would close the gaps between the dots.
        pen.setCapStyle(Qt::FlatCap);
        pen.setDashPattern({1, 2});
    }
    painter.setPen(pen);
    painter.drawLine(from, to);
}

void PictureSurface::RenderItem(QPainter& painter, const Box& box, bool /*smooth*/) const
{
    const double ratio = painter.device()->devicePixelRatioF();
    painter.setRenderHint(QPainter::Antialiasing, false);
    const QRectF outer = OnWholePixels(
        QRectF(ToPixel(box.box.topLeft()), ToPixel(box.box.bottomRight())).normalized(), ratio);
    if (box.rim <= 0) {
        painter.fillRect(outer, box.colour);
        return;
    }
    // A box without a height is its level alone: one line.
    const double rim = std::max(1.0, std::round(box.rim * ratio)) / ratio;
    painter.fillRect(QRectF(outer.left(), outer.top(), outer.width(), rim), box.colour);
    painter.fillRect(QRectF(outer.left(), outer.bottom() - rim, outer.width(), rim), box.colour);
    painter.fillRect(QRectF(outer.left(), outer.top(), rim, outer.height()), box.colour);
    painter.fillRect(QRectF(outer.right() - rim, outer.top(), rim, outer.height()), box.colour);
}

void PictureSurface::RenderItem(QPainter& painter, const Disc& disc, bool smooth) const
{
    const QPointF centre = ToPixel(disc.centre);
    const DiscLook look{disc.radius / std::fabs(Scale().x()), disc.colour, disc.symbol};
    if (!smooth) {
        PaintDisc(painter, centre, look, false);
        return;
    }
    const double ratio = painter.device()->devicePixelRatioF();
    const QPixmap& picture = m_discPictures.Picture(look, ratio);
    const double half = picture.width() / (2 * ratio);
    // On whole device pixels, so that the picture is copied and not sampled.
    const QPointF corner(std::round((centre.x() - half) * ratio) / ratio,
                         std::round((centre.y() - half) * ratio) / ratio);
    painter.drawPixmap(corner, picture);
}

void PictureSurface::RenderItem(QPainter& painter, const Text& text, bool smooth) const
{
    QFont font = text.font;
    if (!smooth)
        font.setStyleStrategy(QFont::NoAntialias);
    painter.setFont(font);
    painter.setPen(text.colour);
    const QFontMetricsF metrics(font);
    const QPointF place = ToPixel(text.place);
    if (text.degrees == 0) {
        const double before
            = metrics.horizontalAdvance(text.text) * Share(text.side, Qt::AlignHCenter, Qt::AlignRight);
        const double above = metrics.height() * Share(text.side, Qt::AlignVCenter, Qt::AlignBottom);
        painter.drawText(QPointF(place.x() - before, place.y() - above + metrics.ascent()), text.text);
        return;
    }
    painter.save();
    painter.translate(place);
    painter.rotate(-text.degrees);
    painter.drawText(QPointF(0, metrics.ascent()), text.text);
    painter.restore();
}

void PictureSurface::Render(QPainter& painter, bool smooth, std::size_t firstItem) const
{
    if (firstItem == 0)
        painter.fillRect(rect(), m_backColour);
    for (std::size_t i = firstItem; i < m_items.size(); ++i)
        std::visit([&](const auto& drawn) { RenderItem(painter, drawn, smooth); }, m_items[i]);
}

void PictureSurface::BringUpToDate(Pixels& pixels, double devicePixelRatio, bool smooth) const
{
    // A hidden surface hears of its new size only when it is shown.
    const QSize wanted = size() * devicePixelRatio;
    const bool isNew = pixels.picture.size() != wanted;
    if (isNew) {
        pixels.picture = QImage(wanted, QImage::Format_RGB32);
        pixels.picture.setDevicePixelRatio(devicePixelRatio);
        pixels.items = 0;
    }
    if (!isNew && pixels.items == m_items.size())
        return;
    QPainter painter(&pixels.picture);
    painter.setRenderHint(QPainter::TextAntialiasing, smooth);
    Render(painter, smooth, pixels.items);
    pixels.items = m_items.size();
}

void PictureSurface::paintEvent(QPaintEvent* event)
{
    m_paintIsAsked = false;
    QPainter painter(this);
    painter.setClipRegion(event->region());
    if (!m_keepsPicture) {
        Render(painter, true);
        return;
    }
    BringUpToDate(m_shown, devicePixelRatioF(), true);
    painter.drawImage(QPointF(0, 0), m_shown.picture);
}

void PictureSurface::resizeEvent(QResizeEvent* event)
{
    ForgetPixels();
    QWidget::resizeEvent(event);
}

QColor PictureSurface::ColourAt(const QPoint& pixel) const
{
    if (!rect().contains(pixel))
        return {};
    BringUpToDate(m_twin, 1, false);
    return m_twin.picture.pixelColor(pixel);
}

QImage PictureSurface::Picture(double devicePixelRatio) const
{
    QImage image(size() * devicePixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(devicePixelRatio);
    QPainter painter(&image);
    Render(painter, true);
    return image;
}

qsizetype PictureSurface::DiscCount() const
{
    return std::count_if(m_items.begin(), m_items.end(),
                         [](const Item& item) { return std::holds_alternative<Disc>(item); });
}

} // namespace stoikal
