#include "fuzz.h"
#include "tools/tip_list.h"

using namespace stoikal;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    TipList tips;
    const auto count = tips.LoadTips(fuzz::FileOf(data, size, QStringLiteral("TipOfDayEqChm.txt")));
    fuzz::Require(count.Succeeded() && *count == tips.Count(), "the tips are those of the file");
    for (const double chance : {0.0, 0.5, 0.999999999999999999}) {
        tips.Choose(chance);
        if (!tips.IsEmpty())
            fuzz::Require(!tips.Tip().contains(QLatin1Char('\n')), "a tip is a line");
    }
    return 0;
}
