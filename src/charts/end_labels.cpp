#include "charts/end_labels.h"

#include <algorithm>
#include <array>

namespace stoikal {
namespace {

constexpr double kGap = 5; ///< between the end of a curve and its name
constexpr double kShift = 4; ///< how far a name gives way at a time
constexpr double kAbove = 2;

bool Crosses(const QLineF& line, const QRectF& box)
{
    if (box.contains(line.p1()) || box.contains(line.p2()))
        return true;
    const std::array<QLineF, 4> edges{
        QLineF(box.topLeft(), box.topRight()), QLineF(box.topRight(), box.bottomRight()),
        QLineF(box.bottomRight(), box.bottomLeft()), QLineF(box.bottomLeft(), box.topLeft())};
    return std::any_of(edges.begin(), edges.end(), [&line](const QLineF& edge) {
        return line.intersects(edge, nullptr) == QLineF::BoundedIntersection;
    });
}

std::vector<QRectF> Candidates(const EndLabel& label)
{
    const double height = label.size.height();
    const double right = label.end.x() + kGap;
    const double middle = label.end.y() - height / 2;
    std::vector<QRectF> places{QRectF(QPointF(right, middle), label.size)};
    for (double shift = kShift; shift <= height; shift += kShift) {
        places.emplace_back(QPointF(right, middle - shift), label.size);
        places.emplace_back(QPointF(right, middle + shift), label.size);
    }
    const double left = label.end.x() - kGap - label.size.width();
    places.emplace_back(QPointF(left, label.end.y() - kAbove - height), label.size);
    places.emplace_back(QPointF(left, label.end.y() + kAbove), label.size);
    return places;
}

} // namespace

std::vector<std::optional<QRectF>> PlaceEndLabels(const std::vector<EndLabel>& labels,
                                                  const std::vector<QLineF>& lines, const QRectF& room)
{
    std::vector<std::optional<QRectF>> places;
    for (const EndLabel& label : labels) {
        const std::vector<QRectF> candidates = Candidates(label);
        const auto isFree = [&](const QRectF& box) {
            return room.contains(box)
                && std::none_of(lines.begin(), lines.end(),
                                [&box](const QLineF& line) { return Crosses(line, box); })
                && std::none_of(places.begin(), places.end(), [&box](const std::optional<QRectF>& taken) {
                       return taken && taken->intersects(box);
                   });
        };
        const auto found = std::find_if(candidates.begin(), candidates.end(), isFree);
        places.push_back(found == candidates.end() ? std::nullopt : std::optional(*found));
    }
    return places;
}

} // namespace stoikal
