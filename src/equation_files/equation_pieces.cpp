#include "equation_files/equation_pieces.h"

#include "base/fatal_fault.h"

#include <QStringView>

namespace stoikal {
namespace {

constexpr QLatin1Char kPlus('+');

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
void SplitSide(QStringView side, EquationPieces& pieces, std::size_t first)
{
    if (!side.contains(kPlus)) {
        pieces.species[first] = side.toString();
        return;
    }
    const qsizetype plus = NextSeparator(side, 0);
    if (plus < 0)
        throw FatalFault(
            QStringLiteral("le seul signe « + » d'un côté de l'équation appartient à une charge."));
    pieces.species[first] = side.first(plus).toString();

    const QStringView rest = side.sliced(plus + 1);
    const qsizetype secondPlus = NextSeparator(rest, 0);
    if (secondPlus < 0) {
        pieces.species[first + 1] = rest.toString();
        return;
    }
    pieces.species[first + 1] = rest.first(secondPlus).toString();
    pieces.species[first + 2] = rest.sliced(secondPlus + 1).toString();
}

} // namespace

EquationPieces CutEquationLine(QString line)
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

    EquationPieces pieces;
    SplitSide(text.first(equals), pieces, 0);
    const qsizetype rightEnd = slash < 0 ? text.size() : slash;
    SplitSide(text.sliced(equals + 1, rightEnd - equals - 1), pieces, 3);
    if (slash >= 0 && (slash + 1 == text.size() || hash == slash + 1)) {
        pieces.coefficients = QString();
    } else if (slash >= 0) {
        if (hash >= 0 && hash < slash)
            throw FatalFault(QStringLiteral("le signe « # » se trouve avant la barre « / »."));
        const qsizetype fieldsEnd = hash < 0 ? text.size() : hash;
        pieces.coefficients = text.sliced(slash + 1, fieldsEnd - slash - 1).toString();
    }
    if (hash >= 0)
        pieces.data = text.sliced(hash + 1).toString();
    return pieces;
}

QString TakeState(QString& species)
{
    const qsizetype opening = species.indexOf(QLatin1Char('<'));
    if (opening < 0)
        return {};
    const qsizetype closing = species.indexOf(QLatin1Char('>'), opening);
    if (closing < 0)
        throw FatalFault(QStringLiteral("un état ouvert par « < » n'est pas fermé par « > »."));
    QString state = species.sliced(opening + 1, closing - opening - 1).trimmed().toLower();
    species.remove(opening, closing - opening + 1);
    return state;
}

} // namespace stoikal
