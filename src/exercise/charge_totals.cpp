#include "exercise/charge_totals.h"

#include "base/checked_integer.h"

namespace stoikal {
namespace {

constexpr std::size_t kSlotsOfSide = 3;

std::int32_t TotalOfSide(const EquationRecord& record, const std::array<int, 6>& coefficients,
                         std::size_t first)
{
    std::int64_t total = 0;
    for (std::size_t slot = first; slot < first + kSlotsOfSide; ++slot)
        total += std::int64_t{coefficients[slot]} * record.Slots[slot].Charge;
    return Checked32(total);
}

} // namespace

ChargeTotals ComputeChargeTotals(const EquationRecord& record, const std::array<int, 6>& coefficients)
{
    return {TotalOfSide(record, coefficients, 0), TotalOfSide(record, coefficients, kSlotsOfSide)};
}

QString ChargeLabel(std::int32_t total)
{
    if (total == 0)
        return QStringLiteral("0");
    const QString digits = QString::number(total < 0 ? -std::int64_t{total} : std::int64_t{total});
    return (total < 0 ? QStringLiteral("- ") : QStringLiteral("+ ")) + digits;
}

} // namespace stoikal
