#include "equation_files/equation_line.h"

#include "base/checked_integer.h"
#include "base/fatal_fault.h"
#include "base/number_text.h"
#include "base/quote.h"
#include "equation_files/equation_pieces.h"

#include <QStringView>
#include <algorithm>
#include <utility>

namespace stoikal {
namespace {

constexpr int kPointsForCoefficients = 5;
constexpr int kPointsForData = 5;

constexpr QLatin1Char kComma(',');

/// Takes everything from "{" on out of the species and reads the charge in it.
/// A "-" anywhere in the species flips the sign of the number read, so `{2-}`
/// is -2, and `{-2}`, whose number is negative already, +2.
void CutCharge(SpeciesSlot& slot)
{
    const qsizetype opening = slot.Molecule.indexOf(QLatin1Char('{'));
    if (opening < 0)
        return;
    int charge = RoundToEven16(ReadFileNumber(QStringView(slot.Molecule).sliced(opening + 1)));
    if (charge == 0)
        charge = 1;
    if (slot.Molecule.contains(QLatin1Char('-')))
        charge = -charge;
    slot.Charge = Checked16(charge);
    slot.Molecule.truncate(opening);
}

void SetAllCoefficientsToOne(EquationRecord& record)
{
    for (SpeciesSlot& slot : record.Slots)
        slot.Coeff = 1;
}

/// Gives the fields to the species in slot order. An empty slot takes none;
/// species left over keep 0, fields left over are nobody's.
void ReadCoefficients(QStringView fields, EquationRecord& record)
{
    if (!fields.contains(kComma))
        throw FatalFault(QStringLiteral("il manque la virgule derrière le premier coefficient."));
    qsizetype from = 0;
    for (SpeciesSlot& slot : record.Slots) {
        if (slot.Molecule.isEmpty())
            continue;
        const qsizetype comma = fields.indexOf(kComma, from);
        const qsizetype end = comma < 0 ? fields.size() : comma;
        slot.Coeff = RoundToEven16(ReadNumber(fields.sliced(from, end - from)));
        if (comma < 0)
            return;
        from = comma + 1;
    }
}

/// Gives the items, in upper case, to the species in slot order.
///
/// Before each item the slot index moves over empty slots. What happens when it
/// finds no species depends on how it leaves the table:
/// - it passes 5 over an empty slot while more items follow this one: the
///   message about the syntax. `A=B/1,1#Q1,Q2,Q3,Q4` does so at Q3;
/// - it passes 5 over an empty slot at the last item (`A=B/1,1#Q1,Q2,Q3`), or
///   it stood behind slot 5 already, which held a species: a general fault.
void ReadData(QStringView data, EquationRecord& record)
{
    const QString items = data.toString().toUpper();
    std::size_t slot = 0;
    qsizetype from = 0;
    while (true) {
        const qsizetype comma = items.indexOf(kComma, from);
        const bool isLast = comma < 0;
        const bool stoodBehindTable = slot == record.Slots.size();
        while (slot < record.Slots.size() && record.Slots[slot].Molecule.isEmpty())
            ++slot;
        if (slot == record.Slots.size()) {
            if (isLast || stoodBehindTable)
                throw FatalFault(QStringLiteral("la ligne a plus de données d'avancement que d'espèces."));
            throw DataSyntaxError();
        }
        record.Slots[slot].MVQ = isLast ? items.sliced(from) : items.sliced(from, comma - from);
        if (isLast)
            return;
        ++slot;
        from = comma + 1;
    }
}

bool HoldsNoDatum(const EquationRecord& record)
{
    return std::all_of(record.Slots.begin(), record.Slots.end(), [](const SpeciesSlot& slot) {
        return slot.MVQ.isEmpty() || ReadNumber(QStringView(slot.MVQ).sliced(1)) == 0.0;
    });
}

} // namespace

QString DataSyntaxError::Title() const
{
    return QStringLiteral("Stoikal - Erreur de syntaxe");
}

QString DataSyntaxError::Text() const
{
    return QStringLiteral("Le fichier sélectionné comporte une erreur de syntaxe.\n"
                          "Assurez-vous que les nombres décimaux aient des points et non des virgules comme "
                          "séparateur.\n"
                          "L'application Stoikal va se fermer.");
}

MissingDataError::MissingDataError(QString line)
    : m_line(std::move(line))
{
}

QString MissingDataError::Title() const
{
    return QStringLiteral("Erreur dans fichier d'équations");
}

QString MissingDataError::Text() const
{
    return QStringLiteral("Il n'y a aucune donnée pour les paramètres d'avancement\n"
                          "pour l'équation en cours dans la ligne %1.\n"
                          "Veuillez corriger le fichier corrompu.\n\n"
                          "L'application va se fermer.")
        .arg(Quoted(m_line));
}

ParsedLine ParseEquationLine(QString line)
{
    line.remove(QLatin1Char(' '));
    const EquationPieces pieces = CutEquationLine(line);

    ParsedLine parsed;
    EquationRecord& record = parsed.record;
    for (std::size_t slot = 0; slot < record.Slots.size(); ++slot) {
        record.Slots[slot].Molecule = pieces.species[slot];
        record.Slots[slot].Etat = TakeState(record.Slots[slot].Molecule);
    }
    for (SpeciesSlot& slot : record.Slots)
        CutCharge(slot);
    parsed.chargesPresent = record.HasCharges();

    if (!pieces.coefficients) {
        SetAllCoefficientsToOne(record);
    } else if (pieces.coefficients->isEmpty()) {
        // "/" with nothing behind it: the reading of the line stops here.
        SetAllCoefficientsToOne(record);
        return parsed;
    } else {
        ReadCoefficients(*pieces.coefficients, record);
    }
    parsed.points = kPointsForCoefficients;

    if (pieces.data) {
        parsed.points += kPointsForData;
        ReadData(*pieces.data, record);
        if (HoldsNoDatum(record))
            throw MissingDataError(line);
    }
    return parsed;
}

} // namespace stoikal
