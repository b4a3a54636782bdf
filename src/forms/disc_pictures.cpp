#include "forms/disc_pictures.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace stoikal {
namespace {

/// More pictures than all elements at all sizes would need.
constexpr qsizetype kMostPictures = 2000;

QFont SymbolFont(double radius)
{
    QFont font;
    // Readable on the smallest disc, quiet on the largest one.
    font.setPixelSize(static_cast<int>(std::clamp(radius * 0.95, 9.0, 24.0)));
    font.setBold(radius > 11);
    return font;
}

} // namespace

size_t qHash(const DiscLook& look, size_t seed)
{
    return qHashMulti(seed, look.radius, look.colour, look.symbol);
}

void PaintDisc(QPainter& painter, const QPointF& centre, const DiscLook& look, bool smooth)
{
    const QColor colour = QColor::fromRgb(look.colour);
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    painter.setRenderHint(QPainter::TextAntialiasing, smooth);
    painter.setBrush(colour);
    if (smooth) {
        constexpr double kRim = 1.2;
        painter.setPen(QPen(colour.darker(145), kRim));
        painter.drawEllipse(centre, look.radius - kRim / 2, look.radius - kRim / 2);
    } else {
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(centre, look.radius, look.radius);
    }
    if (look.symbol.isEmpty())
        return;
    QFont font = SymbolFont(look.radius);
    if (!smooth)
        font.setStyleStrategy(QFont::NoAntialias);
    painter.setFont(font);
    painter.setPen(Qt::black);
    // Centred on what is seen of a capital letter, not on the line's height.
    const QFontMetricsF metrics(font);
    const QPointF base(centre.x() - metrics.horizontalAdvance(look.symbol) / 2,
                       centre.y() + metrics.capHeight() / 2);
    painter.drawText(base, look.symbol);
}

const QPixmap& DiscPictures::Picture(const DiscLook& look, double devicePixelRatio)
{
    if (m_devicePixelRatio != devicePixelRatio || m_pictures.size() > kMostPictures) {
        m_pictures.clear();
        m_devicePixelRatio = devicePixelRatio;
    }
    const auto place = m_pictures.constFind(look);
    if (place != m_pictures.constEnd())
        return *place;
    // An even number of device pixels, with room for a symbol wider than its disc.
    const double half = std::ceil(std::max(look.radius + 1, 14.0) * devicePixelRatio);
    const int side = 2 * static_cast<int>(half);
    QPixmap picture(side, side);
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    const double centre = half / devicePixelRatio;
    PaintDisc(painter, {centre, centre}, look, true);
    painter.end();
    return *m_pictures.insert(look, picture);
}

} // namespace stoikal
