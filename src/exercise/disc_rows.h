#pragma once

#include "base/twips.h"

#include <span>
#include <vector>

namespace stoikal {

/// A disc that stands for one atom: its kind, centre and radius.
struct Disc {
    int kind = 0; ///< index in the kinds that were laid out
    Twips x = 0;
    Twips y = 0;
    Twips radius = 0;
};

/// The atoms of one kind: the radius of their discs and how many there are.
struct DiscKind {
    Twips radius = 0;
    int count = 0; ///< 0 and less: nothing is drawn
};

/// The radius of an element's disc: 150 twips times the element's ball radius
/// and the scale (1 to 4), to the nearest twip.
Twips DiscRadius(double ballRadius, int taille);

/// Places the discs in rows from the left, kind after kind, in a window of that
/// width. The largest disc of a row gives the row its height. A disc that is too
/// wide for the window has a row of its own and reaches beyond the edge.
std::vector<Disc> LayOutDiscs(std::span<const DiscKind> kinds, Twips windowWidth);

} // namespace stoikal
