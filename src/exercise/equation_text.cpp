#include "exercise/equation_text.h"

namespace stoikal {

QString EquationText(const EquationRecord& record, const std::array<JournalTerm, 6>& terms)
{
    const auto inUse = [&record](size_t slot) { return !record.Slots.at(slot).Molecule.isEmpty(); };
    const auto term = [&terms](size_t slot) { return terms.at(slot).coefficient + terms.at(slot).species; };
    const QString plus = QStringLiteral(" + ");
    QString text = term(0) + plus + term(1);
    if (inUse(2))
        text += plus + term(2);
    text += QStringLiteral("---->") + term(3);
    if (inUse(4))
        text += plus + term(4);
    if (inUse(5))
        text += plus + term(5);
    return text;
}

} // namespace stoikal
