#include "charts/progress_curves.h"

#include <algorithm>

namespace stoikal {

using namespace Qt::StringLiterals;

ProgressCurves ProgressCurvesAt(const ProgressTable& table, double progress, Ordinate ordinate)
{
    const double largest = LargestLevel(table, ordinate);
    const ScaleUnit vertical = VerticalUnit(largest);
    const ScaleUnit horizontal = HorizontalUnit(table.Xmax);
    ProgressCurves drawing;
    drawing.vertical = ScaleFor(largest, vertical.size, table.XmaxScale);
    drawing.horizontal = ScaleFor(table.Xmax, horizontal.size, table.XmaxScale);
    drawing.verticalTitle = OrdinateTitle(ordinate, vertical.text);
    drawing.horizontalTitle = u"x avancement ("_s + horizontal.text;
    drawing.heading = {EvolutionHeading(ordinate), u"en fonction de l'avancement"_s};
    const double slopeEnd = std::min(progress, table.Xmax);
    for (int slot = 0; slot < kSlots; ++slot) {
        if (!table.IsUsed(slot))
            continue;
        const auto at = [&](double place, double level) {
            return QPointF(place / horizontal.size, level / vertical.size);
        };
        const double reached = LevelAt(table, slot, slopeEnd, ordinate);
        const auto place = static_cast<std::size_t>(slot);
        ProgressCurve curve;
        curve.slot = slot;
        curve.from = at(0, LevelAt(table, slot, 0, ordinate));
        curve.to = at(slopeEnd, reached);
        if (progress > table.Xmax)
            curve.levelTo = at(progress, reached);
        curve.label = InlineSpecies(table.Molecule.at(place), table.Charge.at(place));
        drawing.curves.push_back(curve);
    }
    return drawing;
}

} // namespace stoikal
