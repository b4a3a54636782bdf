#include "exercise/species_text.h"

#include <cstdlib>

namespace stoikal {
namespace {

QString ChargeText(int charge)
{
    const QString sign = charge > 0 ? QStringLiteral("+") : QStringLiteral("-");
    return std::abs(charge) == 1 ? sign : QString::number(std::abs(charge)) + sign;
}

CharacterHeight HeightOf(QChar c, bool inMolecule)
{
    if (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
        return inMolecule ? CharacterHeight::Subscript : CharacterHeight::Superscript;
    return c == QLatin1Char('+') || c == QLatin1Char('-') ? CharacterHeight::Superscript
                                                          : CharacterHeight::Line;
}

} // namespace

SpeciesText FormatSpecies(const SpeciesSlot& slot, bool showsCharges, bool isProgressFile)
{
    SpeciesText species;
    if (slot.Molecule.isEmpty())
        return species;
    species.text = slot.Molecule;
    if (showsCharges && slot.Charge != 0)
        species.text += ChargeText(slot.Charge);
    if (isProgressFile && !slot.Etat.isEmpty())
        species.text += QStringLiteral(" (%1)").arg(slot.Etat);
    species.heights.reserve(static_cast<size_t>(species.text.size()));
    for (qsizetype i = 0; i < species.text.size(); ++i)
        species.heights.push_back(HeightOf(species.text[i], i < slot.Molecule.size()));
    return species;
}

} // namespace stoikal
