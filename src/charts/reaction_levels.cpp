#include "charts/reaction_levels.h"

#include <algorithm>
#include <cstdlib>

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

std::size_t Place(int slot)
{
    return static_cast<std::size_t>(slot);
}

bool IsReactant(int slot)
{
    return slot < kReactantSlots;
}

} // namespace

double LevelAt(const ProgressTable& table, int slot, double progress, Ordinate ordinate)
{
    const double reacted = table.Coeff.at(Place(slot)) * progress;
    const double amount = IsReactant(slot) ? table.InitialAmount.at(Place(slot)) - reacted : reacted;
    return ordinate == Ordinate::Mass ? amount * table.MolarMass.at(Place(slot)) : amount;
}

double InitialLevel(const ProgressTable& table, int slot, Ordinate ordinate)
{
    return ordinate == Ordinate::Mass ? table.Mass.at(Place(slot)) : table.InitialAmount.at(Place(slot));
}

double LargestLevel(const ProgressTable& table, Ordinate ordinate)
{
    double largest = 0;
    for (int slot = 0; slot < kSlots; ++slot) {
        if (!table.IsUsed(slot))
            continue;
        const ProgressTable::Numbers& amounts = IsReactant(slot) ? table.InitialAmount : table.FinalAmount;
        const ProgressTable::Numbers& values = ordinate == Ordinate::Mass ? table.Mass : amounts;
        largest = std::max(largest, values.at(Place(slot)));
    }
    return largest;
}

QString InlineSpecies(const QString& formula, int charge)
{
    if (charge == 0)
        return formula;
    const QString sign = charge > 0 ? u"+"_s : u"-"_s;
    const QString number = std::abs(charge) == 1 ? QString() : QString::number(std::abs(charge));
    return u"%1{%2%3}"_s.arg(formula, number, sign);
}

QString OrdinateTitle(Ordinate ordinate, const QString& unitText)
{
    if (ordinate == Ordinate::Mass)
        return u"Masse (%1g)"_s.arg(unitText);
    return u"Quantité de matière (%1mol)"_s.arg(unitText);
}

QString EvolutionHeading(Ordinate ordinate)
{
    return ordinate == Ordinate::Mass ? u"Evolution des masses"_s : u"Evolution des quantités de matière"_s;
}

} // namespace stoikal
