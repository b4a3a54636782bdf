#include "forms/place.h"

#include "platform/doors.h"

#include <QWidget>
#include <algorithm>

namespace stoikal {

QRect MovedInto(const QRect& rectangle, const QRect& area)
{
    QRect moved = rectangle;
    moved.moveLeft(std::max(area.left(), std::min(moved.left(), area.right() - moved.width() + 1)));
    moved.moveTop(std::max(area.top(), std::min(moved.top(), area.bottom() - moved.height() + 1)));
    return moved;
}

void PlaceWindow(QWidget& window, const Screen& screen, Twips left, Twips top)
{
    const QRect area = screen.WorkArea();
    const QPoint corner = area.topLeft() + QPoint(ToPixels(left), ToPixels(top));
    const QSize frame = window.frameGeometry().size().expandedTo(window.size());
    window.move(MovedInto(QRect(corner, frame), area).topLeft());
}

QPoint PlaceOf(const QWidget& window, const Screen& screen)
{
    const QPoint corner = window.pos() - screen.WorkArea().topLeft();
    return {FromPixels(corner.x()), FromPixels(corner.y())};
}

} // namespace stoikal
