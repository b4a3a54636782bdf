#include "exercise/answer_judge.h"

#include "base/checked_integer.h"

#include <algorithm>

namespace stoikal {
namespace {

constexpr std::int32_t kWonByRightAnswer = 5;
constexpr std::int32_t kLostByWrongAnswer = 2;

constexpr std::array<int, 10> kPrimes{2, 3, 5, 7, 11, 13, 17, 19, 23, 29};

} // namespace

bool IsBalanced(const JudgedAnswer& answer)
{
    if (answer.reactants.TotalCount != answer.products.TotalCount)
        return false;
    return !answer.chargesPresent || answer.charges.reactants == answer.charges.products;
}

bool IsReducible(const std::array<int, 6>& coefficients, const std::array<bool, 6>& visible)
{
    // Raised once, not again for each prime.
    bool allDivide = true;
    for (const int prime : kPrimes) {
        if (coefficients[0] % prime != 0)
            continue;
        for (std::size_t slot = 1; slot < coefficients.size(); ++slot) {
            if (visible[slot] && coefficients[slot] % prime != 0)
                allDivide = false;
        }
        if (allDivide)
            return true;
    }
    return false;
}

Balance Judge(const JudgedAnswer& answer)
{
    if (!IsBalanced(answer))
        return Balance::Unbalanced;
    return IsReducible(answer.coefficients, answer.visible) ? Balance::Reducible : Balance::Right;
}

std::int32_t AfterRight(std::int32_t score)
{
    return Checked32(std::int64_t{score} + kWonByRightAnswer);
}

std::int32_t AfterWrong(std::int32_t score)
{
    return std::max(score, kLostByWrongAnswer) - kLostByWrongAnswer;
}

} // namespace stoikal
