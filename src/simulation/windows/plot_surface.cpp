#include "simulation/windows/plot_surface.h"

#include <QMouseEvent>
#include <algorithm>

namespace stoikal {

PlotSurface::PlotSurface(QWidget* parent)
    : PictureSurface(parent)
{
    setMouseTracking(true);
}

QPointF PlotSurface::ShareOf(const QPointF& pixel) const
{
    return {pixel.x() / std::max(1, width()), pixel.y() / std::max(1, height())};
}

void PlotSurface::mousePressEvent(QMouseEvent* event)
{
    m_endsDoubleClick = false;
    event->accept();
}

void PlotSurface::mouseMoveEvent(QMouseEvent* event)
{
    if (!event->buttons().testFlag(Qt::LeftButton))
        Q_EMIT Moved(event->pos(), ShareOf(event->position()));
    event->accept();
}

void PlotSurface::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (m_endsDoubleClick) {
        m_endsDoubleClick = false;
        return;
    }
    Q_EMIT Released(ShareOf(event->position()));
}

void PlotSurface::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_endsDoubleClick = true;
    event->accept();
    Q_EMIT DoubleClicked();
}

} // namespace stoikal
