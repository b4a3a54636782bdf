#include "exercise/windows/reaction_arrow.h"

#include <QPainter>

namespace stoikal {

ReactionArrow::ReactionArrow(QWidget* parent)
    : QWidget(parent)
{
}

void ReactionArrow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = palette().color(QPalette::WindowText);
    constexpr double kMargin = 6;
    constexpr double kHead = 9;
    const int middle = height() / 2;
    const double y = middle + 0.5;
    const double tip = width() - kMargin;
    painter.setPen(QPen(ink, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(kMargin, y), QPointF(tip - kHead + 2, y));
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawPolygon(QPolygonF{{tip - kHead, y - 5}, {tip, y}, {tip - kHead, y + 5}});
}

} // namespace stoikal
