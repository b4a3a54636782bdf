#pragma once

#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <optional>
#include <vector>

namespace stoikal {

/// The name of a curve that wants to stand at the curve's end. In pixels, y
/// downwards.
struct EndLabel {
    QPointF end;
    QSizeF size;
};

/// A place for each name beside its end: behind it, a little higher or lower where
/// it must, else before it, such that it covers no line and no name before it and stays inside the room; none
/// where there is no such place.
std::vector<std::optional<QRectF>> PlaceEndLabels(const std::vector<EndLabel>& labels,
                                                  const std::vector<QLineF>& lines, const QRectF& room);

} // namespace stoikal
