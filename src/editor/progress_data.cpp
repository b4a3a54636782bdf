#include "editor/progress_data.h"

#include "base/number_text.h"

namespace stoikal {
namespace {

bool IsDecimalSign(QChar key)
{
    return key == QLatin1Char(',') || key == QLatin1Char('.');
}

/// The number of a datum, behind the letter of its kind; 0 where the species is
/// not there.
double NumberOf(const WorkEquation& equation, std::size_t slot)
{
    const QString& datum = equation.MVQ.at(slot);
    return equation.IsInUse(slot) && !datum.isEmpty() ? ReadNumber(QStringView(datum).sliced(1)) : 0;
}

bool HasDatum(const WorkEquation& equation)
{
    for (std::size_t slot = 0; slot < WorkEquation::kSlots; ++slot) {
        if (NumberOf(equation, slot) != 0)
            return true;
    }
    return false;
}

} // namespace

std::optional<QString> DatumKeyRefusal(QChar key, QStringView before)
{
    if (key >= QLatin1Char('0') && key <= QLatin1Char('9'))
        return std::nullopt;
    if (key == QLatin1Char('-'))
        return QStringLiteral("Une donnée ne peut pas être négative.");
    if (!IsDecimalSign(key))
        return QStringLiteral("Veuillez saisir un chiffre.");
    if (before.contains(QLatin1Char(',')) || before.contains(QLatin1Char('.')))
        return QStringLiteral("Ce nombre a déjà une virgule ou un point.");
    return std::nullopt;
}

std::optional<std::size_t> FirstNegativeDatum(const WorkEquation& equation)
{
    for (std::size_t slot = 0; slot < WorkEquation::kSlots; ++slot) {
        if (NumberOf(equation, slot) < 0)
            return slot;
    }
    return std::nullopt;
}

std::vector<int> EquationsWithoutDatum(const std::vector<WorkEquation>& equations)
{
    std::vector<int> numbers;
    int number = 0;
    for (const WorkEquation& equation : equations) {
        ++number;
        if (!HasDatum(equation))
            numbers.push_back(number);
    }
    return numbers;
}

} // namespace stoikal
