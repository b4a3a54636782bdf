#include "equation_files/equation_line.h"

#include "base/checked_integer.h"
#include "base/fatal_fault.h"
#include "base/number_text.h"

#include <QStringView>
#include <algorithm>
#include <utility>

namespace stoikal {
namespace {

constexpr int kPointsForCoefficients = 5;
constexpr int kPointsForData = 5;

constexpr QLatin1Char kPlus('+');
constexpr QLatin1Char kComma(',');

/// The "+" of `{+}`, `{2+}` and `{+2}` says the sign of a charge.
bool BelongsToCharge(QStringView side, qsizetype plus)
{
    return (plus > 0 && side[plus - 1] == QLatin1Char('{'))
        || (plus + 1 < side.size() && side[plus + 1] == QLatin1Char('}'));
}

/// Where the next "+" between two species stands, -1 if nowhere. One "+" of a
/// charge is passed over; the "+" behind it is taken without a look at it.
qsizetype NextSeparator(QStringView side, qsizetype from)
{
    const qsizetype plus = side.indexOf(kPlus, from);
    return plus >= 0 && BelongsToCharge(side, plus) ? side.indexOf(kPlus, plus + 1) : plus;
}

/// Cuts a side into the three slots from `first` on. The third takes all the
/// rest, be it several species.
///
/// The two searches answer differently to a "+" of a charge with no other "+"
/// behind it. The first search was only begun because the side holds a "+", so
/// it must end on one: a charged species alone on its side (`Na{+}=...`) cannot
/// be cut and is a fault. The second may fail: then there are two species, as
/// in `Fe{2+}+Cu{2+}`.
void SplitSide(QStringView side, EquationRecord& record, std::size_t first)
{
    if (!side.contains(kPlus)) {
        record.Slots[first].Molecule = side.toString();
        return;
    }
    const qsizetype plus = NextSeparator(side, 0);
    if (plus < 0)
        throw FatalFault(
            QStringLiteral("le seul signe « + » d'un côté de l'équation appartient à une charge."));
    record.Slots[first].Molecule = side.first(plus).toString();

    const QStringView rest = side.sliced(plus + 1);
    const qsizetype secondPlus = NextSeparator(rest, 0);
    if (secondPlus < 0) {
        record.Slots[first + 1].Molecule = rest.toString();
        return;
    }
    record.Slots[first + 1].Molecule = rest.first(secondPlus).toString();
    record.Slots[first + 2].Molecule = rest.sliced(secondPlus + 1).toString();
}

/// Takes `<state>` out of the species, before or behind its charge.
void CutState(SpeciesSlot& slot)
{
    const qsizetype opening = slot.Molecule.indexOf(QLatin1Char('<'));
    if (opening < 0)
        return;
    const qsizetype closing = slot.Molecule.indexOf(QLatin1Char('>'), opening);
    if (closing < 0)
        throw FatalFault(QStringLiteral("un état ouvert par « < » n'est pas fermé par « > »."));
    slot.Etat = slot.Molecule.sliced(opening + 1, closing - opening - 1).trimmed().toLower();
    slot.Molecule.remove(opening, closing - opening + 1);
}

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
        .arg(m_line);
}

ParsedLine ParseEquationLine(QString line)
{
    line.remove(QLatin1Char(' '));
    const QStringView text(line);
    const qsizetype equals = text.indexOf(QLatin1Char('='));
    const qsizetype slash = text.indexOf(QLatin1Char('/'));
    const qsizetype hash = text.indexOf(QLatin1Char('#'));
    if (equals < 0)
        throw FatalFault(QStringLiteral("la ligne n'a pas de signe « = »."));
    if (slash >= 0 && slash < equals)
        throw FatalFault(QStringLiteral("la barre « / » se trouve avant le signe « = »."));

    ParsedLine parsed;
    EquationRecord& record = parsed.record;
    SplitSide(text.first(equals), record, 0);
    // Without "/" the right side is all the rest, data included.
    const qsizetype rightEnd = slash < 0 ? text.size() : slash;
    SplitSide(text.sliced(equals + 1, rightEnd - equals - 1), record, 3);
    for (SpeciesSlot& slot : record.Slots)
        CutState(slot);
    for (SpeciesSlot& slot : record.Slots)
        CutCharge(slot);
    parsed.chargesPresent = record.HasCharges();

    if (slash < 0) {
        SetAllCoefficientsToOne(record);
    } else if (slash + 1 == text.size() || hash == slash + 1) {
        // "/" with nothing behind it: the reading of the line stops here.
        SetAllCoefficientsToOne(record);
        return parsed;
    } else {
        if (hash >= 0 && hash < slash)
            throw FatalFault(QStringLiteral("le signe « # » se trouve avant la barre « / »."));
        const qsizetype fieldsEnd = hash < 0 ? text.size() : hash;
        ReadCoefficients(text.sliced(slash + 1, fieldsEnd - slash - 1), record);
    }
    parsed.points = kPointsForCoefficients;

    if (hash >= 0) {
        parsed.points += kPointsForData;
        ReadData(text.sliced(hash + 1), record);
        if (HoldsNoDatum(record))
            throw MissingDataError(line);
    }
    return parsed;
}

} // namespace stoikal
