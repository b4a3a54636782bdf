#include "simulation/reaction_quotient.h"

#include "base/fatal_fault.h"

#include <algorithm>

namespace stoikal {
namespace {

double Products(const KindNumbers& counts)
{
    return static_cast<double>(counts[kKindC]) * static_cast<double>(counts[kKindD]);
}

/// In this order: C x D, by A, by B.
double Quotient(const KindNumbers& counts)
{
    return Products(counts) / static_cast<double>(counts[kKindA]) / static_cast<double>(counts[kKindB]);
}

} // namespace

double QuotientOfTick(const KindNumbers& counts)
{
    const bool hasBoth = counts[kKindA] != 0 && counts[kKindB] != 0;
    return hasBoth ? Quotient(counts) : kQuotientWithoutReactant;
}

double QuotientOfStart(const KindNumbers& typed)
{
    double quotient = typed[kKindA] == 0 ? kQuotientWithoutReactant
                                         : Products(typed) / static_cast<double>(typed[kKindA]);
    quotient = typed[kKindB] == 0 ? kQuotientWithoutReactant : quotient / static_cast<double>(typed[kKindB]);
    return std::max(quotient, kLeastQuotientMax);
}

double QuotientOfNumbers(const KindNumbers& typed)
{
    double quotient = Products(typed);
    if (typed[kKindB] != 0)
        quotient /= static_cast<double>(typed[kKindB]);
    if (typed[kKindA] != 0)
        quotient /= static_cast<double>(typed[kKindA]);
    if (typed[kKindA] == 0 || typed[kKindB] == 0)
        quotient = kQuotientWithoutReactant;
    return std::max(quotient, kLeastQuotientMax);
}

double QuotientOfSample(const KindNumbers& counts)
{
    if (counts[kKindA] == 0)
        return Products(counts) == 0 ? 0 : kQuotientWithoutReactant;
    if (counts[kKindB] == 0) {
        throw FatalFault::WithoutFile(
            QStringLiteral("division par zéro dans la courbe du quotient de réaction Qr. "
                           "Il n'y a aucune particule B alors que A en compte %1\u00A0: "
                           "Qr = C x D / (A x B) n'est pas défini.")
                .arg(counts[kKindA]));
    }
    return Quotient(counts);
}

double QuotientOfNewestSample(const KindNumbers& counts)
{
    const bool hasOnlyA = counts[kKindA] != 0 && counts[kKindB] == 0;
    return hasOnlyA ? kQuotientWithoutReactant : QuotientOfSample(counts);
}

} // namespace stoikal
