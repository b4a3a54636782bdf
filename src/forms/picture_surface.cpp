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

void PictureSurface::SetScale(const QPointF& upperLeft, const QPointF& lowerRight)
{
    m_hasScale = true;
    m_upperLeft = upperLeft;
    m_lowerRight = lowerRight;
    m_twin = QImage();
    update();
}

void PictureSurface::ResetScale()
{
    m_hasScale = false;
    m_twin = QImage();
    update();
}

void PictureSurface::SetBackColour(const QColor& colour)
{
    m_backColour = colour;
    m_twin = QImage();
    update();
}

void PictureSurface::Clear()
{
    m_items.clear();
    m_twin = QImage();
    update();
}

void PictureSurface::Add(Item item)
{
    m_items.push_back(std::move(item));
    m_twin = QImage();
    update();
}

void PictureSurface::DrawLine(const QPointF& from, const QPointF& to, const QColor& colour,
                              double widthPixels, Qt::PenStyle style)
{
    Add(Line{from, to, colour, widthPixels, style});
}

void PictureSurface::FillBox(const QRectF& box, const QColor& colour)
{
    Add(Box{box, colour});
}

void PictureSurface::DrawDisc(const QPointF& centre, double radius, const QColor& colour,
                              const QString& symbol)
{
    Add(Disc{centre, radius, colour.rgb(), symbol});
}

void PictureSurface::DrawText(const QPointF& upperLeft, const QString& text, const QColor& colour,
                              const QFont& font)
{
    Add(Text{upperLeft, text, colour, font});
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
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    painter.setPen(QPen(line.colour, line.width, line.style));
    QPointF from = ToPixel(line.from);
    QPointF to = ToPixel(line.to);
    // Upright and level lines lie on whole pixels, else they would be two grey ones.
    if (from.x() == to.x() || from.y() == to.y()) {
        from = QPointF(std::floor(from.x()) + 0.5, std::floor(from.y()) + 0.5);
        to = QPointF(std::floor(to.x()) + 0.5, std::floor(to.y()) + 0.5);
    }
    painter.drawLine(from, to);
}

void PictureSurface::RenderItem(QPainter& painter, const Box& box, bool smooth) const
{
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    painter.fillRect(QRectF(ToPixel(box.box.topLeft()), ToPixel(box.box.bottomRight())).normalized(),
                     box.colour);
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
    const QPointF corner = ToPixel(text.upperLeft);
    painter.drawText(QPointF(corner.x(), corner.y() + QFontMetricsF(font).ascent()), text.text);
}

void PictureSurface::Render(QPainter& painter, bool smooth) const
{
    painter.fillRect(rect(), m_backColour);
    for (const Item& item : m_items)
        std::visit([&](const auto& drawn) { RenderItem(painter, drawn, smooth); }, item);
}

void PictureSurface::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setClipRegion(event->region());
    Render(painter, true);
}

void PictureSurface::resizeEvent(QResizeEvent* event)
{
    m_twin = QImage();
    QWidget::resizeEvent(event);
}

QColor PictureSurface::ColourAt(const QPoint& pixel) const
{
    if (!rect().contains(pixel))
        return {};
    // A hidden surface hears of its new size only when it is shown.
    if (m_twin.size() != size()) {
        m_twin = QImage(size(), QImage::Format_RGB32);
        QPainter painter(&m_twin);
        painter.setRenderHint(QPainter::TextAntialiasing, false);
        Render(painter, false);
    }
    return m_twin.pixelColor(pixel);
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
