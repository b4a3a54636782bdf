#pragma once

#include "forms/picture_surface.h"

namespace stoikal {

/// A picture that tells what the mouse does on it, by places in shares of its
/// width and height from the upper left. The release that ends a double click is
/// swallowed.
class PlotSurface final : public PictureSurface
{
    Q_OBJECT

public:
    explicit PlotSurface(QWidget* parent);

Q_SIGNALS:
    void Moved(const QPoint& pixel, const QPointF& share);
    void Released(const QPointF& share);
    void DoubleClicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    QPointF ShareOf(const QPointF& pixel) const;

    bool m_endsDoubleClick = false;
};

} // namespace stoikal
