#include "exercise/composition_text.h"

#include "base/quote.h"

#include "chemistry/element_table.h"

#include <QLatin1String>

namespace stoikal {
namespace {

/// "d'hydrogène", "de fer". Only these letters call for the short form: an
/// accented one does not, so it is "de étain".
QString OfElement(const QString& name)
{
    const bool elided = !name.isEmpty() && QLatin1String("aeiouyh").contains(name.front());
    return (elided ? QStringLiteral("d'") : QStringLiteral("de ")) + name;
}

/// A number with the blank that stands in the sign's place before a positive one.
QString WithSignPlace(int count)
{
    return (count < 0 ? QString() : QStringLiteral(" ")) + QString::number(count);
}

} // namespace

QString CompositionText(const QString& molecule, const AtomList& list)
{
    QString text = QStringLiteral("La molécule %1 est composée de :").arg(Quoted(molecule));
    for (std::size_t kind = 0; kind < static_cast<std::size_t>(list.Kinds); ++kind) {
        if (kind > 0)
            text += QLatin1Char(';');
        const int count = list.TotalCount[kind];
        text
            += QStringLiteral("\n --> %1 %2 %3 de symbole %4")
                   .arg(WithSignPlace(count), count == 1 ? QStringLiteral("atome") : QStringLiteral("atomes"),
                        OfElement(ElementBySymbol(list.Symbol[kind]).name), list.Symbol[kind]);
    }
    return text + QLatin1Char('.');
}

} // namespace stoikal
