#include "progress/progress_check.h"

#include "base/fatal_fault.h"

#include <algorithm>
#include <cmath>

namespace stoikal {
namespace {

constexpr double kMolarMassTolerance = 0.02;
constexpr double kTableTolerance = 0.05;
/// A limit met in decimals must not be missed by the rest of a binary fraction:
/// 1.05 - 1 is 0.050000000000000044.
constexpr double kBinaryRest = 1E-9;

bool IsWithin(double error, double tolerance)
{
    return error <= tolerance + kBinaryRest;
}

BoxVerdict VerdictOf(bool isRight)
{
    return isRight ? BoxVerdict::Right : BoxVerdict::Wrong;
}

} // namespace

bool IsMolarMassRight(double typed, double molarMass)
{
    return IsWithin(std::fabs(typed - molarMass) / typed, kMolarMassTolerance);
}

RowVerdicts CheckMolarMasses(const ProgressTable& table, const std::array<QString, 6>& typed)
{
    RowVerdicts verdicts{};
    for (std::size_t slot = 0; slot < 6; ++slot) {
        if (table.IsUsed(static_cast<int>(slot)))
            verdicts[slot] = VerdictOf(IsMolarMassRight(TypedNumber(typed[slot]), table.MolarMass[slot]));
    }
    return verdicts;
}

bool IsAmountRight(double typed, double amount)
{
    const double error = amount == 0 ? std::fabs(typed) : std::fabs(typed - amount) / amount;
    return IsWithin(error, kTableTolerance);
}

bool IsQuantityRight(double typed, double quantity)
{
    if (quantity == 0)
        throw FatalFault(QStringLiteral("une masse ou un volume du tableau d'avancement est nul."));
    return IsWithin(std::fabs(typed - quantity) / quantity, kTableTolerance);
}

bool AreAllRight(const RowVerdicts& row)
{
    return std::none_of(row.begin(), row.end(),
                        [](BoxVerdict verdict) { return verdict == BoxVerdict::Wrong; });
}

bool TableVerdicts::AreAllRight() const
{
    return stoikal::AreAllRight(txtMasse) && stoikal::AreAllRight(txtVolGaz) && stoikal::AreAllRight(txtQmat0)
        && stoikal::AreAllRight(txtQmatf);
}

void ReadTypedTable(const ProgressTexts& texts, ProgressTable& table)
{
    const auto read = [](const ProgressTexts::Row& row, ProgressTable::Numbers& numbers) {
        std::transform(row.begin(), row.end(), numbers.begin(), TypedNumber);
    };
    read(texts.txtMasse, table.TypedMass);
    read(texts.txtVolGaz, table.TypedVolume);
    read(texts.txtQmat0, table.TypedInitial);
    read(texts.txtQmatf, table.TypedFinal);
}

TableVerdicts CheckProgressTable(const ProgressTable& table, const std::array<bool, 6>& volumeAsked)
{
    TableVerdicts verdicts;
    for (std::size_t slot = 0; slot < 6; ++slot) {
        if (!table.IsUsed(static_cast<int>(slot)))
            continue;
        if (slot < 3) {
            verdicts.txtQmat0[slot]
                = VerdictOf(IsAmountRight(table.TypedInitial[slot], table.InitialAmount[slot]));
        }
        verdicts.txtQmatf[slot] = VerdictOf(IsAmountRight(table.TypedFinal[slot], table.FinalAmount[slot]));
        verdicts.txtMasse[slot] = VerdictOf(IsQuantityRight(table.TypedMass[slot], table.Mass[slot]));
        if (volumeAsked[slot])
            verdicts.txtVolGaz[slot]
                = VerdictOf(IsQuantityRight(table.TypedVolume[slot], table.Volume[slot]));
    }
    return verdicts;
}

bool IsTableComplete(const ProgressTable& table, const ProgressTexts& texts,
                     const std::array<bool, 6>& volumeAsked)
{
    for (std::size_t slot = 0; slot < 6; ++slot) {
        if (!table.IsUsed(static_cast<int>(slot)))
            continue;
        const bool isVolumeMissing = volumeAsked[slot] && texts.txtVolGaz[slot].isEmpty();
        if (texts.txtMasse[slot].isEmpty() || isVolumeMissing || texts.txtQmat0[slot].isEmpty()
            || texts.txtQmati[slot].isEmpty() || texts.txtQmatf[slot].isEmpty())
            return false;
    }
    return true;
}

} // namespace stoikal
