#include "charts/histogram.h"

#include <algorithm>

namespace stoikal {

using namespace Qt::StringLiterals;

Histogram HistogramAt(const ProgressTable& table, double progress, Ordinate ordinate)
{
    const double largest = LargestLevel(table, ordinate);
    const ScaleUnit unit = VerticalUnit(largest);
    Histogram histogram;
    histogram.scale = ScaleFor(largest, unit.size, table.XmaxScale);
    histogram.verticalTitle = OrdinateTitle(ordinate, unit.text);
    histogram.horizontalTitle = u"Espèces chimiques présentes au cours de la réaction"_s;
    histogram.heading = {EvolutionHeading(ordinate), u"en fonction des espèces chimiques"_s};
    int position = 0;
    for (int slot = 0; slot < kSlots; ++slot) {
        if (!table.IsUsed(slot))
            continue;
        ++position;
        Bar bar;
        bar.slot = slot;
        bar.left = position - 0.85;
        bar.right = position - 0.15;
        if (slot < kReactantSlots)
            bar.initial = InitialLevel(table, slot, ordinate) / unit.size;
        bar.present = std::max(0.0, LevelAt(table, slot, progress, ordinate)) / unit.size;
        const auto place = static_cast<std::size_t>(slot);
        bar.label = InlineSpecies(table.Molecule.at(place), table.Charge.at(place));
        histogram.bars.push_back(bar);
    }
    return histogram;
}

} // namespace stoikal
