#include "exercise/disc_rows.h"

#include <algorithm>
#include <cmath>

namespace stoikal {
namespace {

constexpr double kTwipsPerBallRadius = 150;
constexpr Twips kGap = 50; ///< between discs, between rows and at the window's edges

Twips RoomFor(Twips radius)
{
    return 2 * radius + kGap;
}

/// The largest disc of the row that begins at that atom of that kind. The first
/// disc belongs to its row even where it is too wide for the window.
Twips RowMaxRadius(std::span<const DiscKind> kinds, std::size_t kind, int atom, Twips rightEdge)
{
    Twips x = 0;
    Twips largest = 0;
    for (; kind < kinds.size(); ++kind, atom = 0) {
        const Twips radius = kinds[kind].radius;
        for (; atom < kinds[kind].count; ++atom) {
            const bool opensRow = x == 0;
            x += RoomFor(radius);
            if (x > rightEdge && !opensRow)
                return largest;
            largest = std::max(largest, radius);
        }
    }
    return largest;
}

} // namespace

Twips DiscRadius(double ballRadius, int taille)
{
    return static_cast<Twips>(std::lround(ballRadius * kTwipsPerBallRadius * taille));
}

std::vector<Disc> LayOutDiscs(std::span<const DiscKind> kinds, Twips windowWidth)
{
    const Twips rightEdge = windowWidth - kGap;
    std::vector<Disc> discs;
    Twips x = 0;
    Twips rowRadius = RowMaxRadius(kinds, 0, 0, rightEdge);
    Twips y = rowRadius + kGap;
    for (std::size_t kind = 0; kind < kinds.size(); ++kind) {
        const Twips radius = kinds[kind].radius;
        for (int atom = 0; atom < kinds[kind].count; ++atom) {
            x += RoomFor(radius);
            if (x > rightEdge) {
                y += rowRadius;
                rowRadius = RowMaxRadius(kinds, kind, atom, rightEdge);
                x = RoomFor(radius);
                y += rowRadius + kGap;
            }
            discs.push_back({static_cast<int>(kind), x - radius, y, radius});
        }
    }
    return discs;
}

} // namespace stoikal
