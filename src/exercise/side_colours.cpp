#include "exercise/side_colours.h"

#include "base/number_text.h"
#include "base/settings_store.h"

#include <algorithm>

namespace stoikal {

std::uint32_t SideColour(const Settings& settings, Side side)
{
    constexpr std::uint32_t kReactants = 0xC0FFC0;
    constexpr std::uint32_t kProducts = 0xFFFF80;
    const bool isReactants = side == Side::Reactants;
    const QString stored = settings.Read(QStringLiteral("Options"),
                                         isReactants ? QStringLiteral("BackGround Color Reactifs")
                                                     : QStringLiteral("BackGround Color Produits"));
    if (stored.isEmpty())
        return isReactants ? kReactants : kProducts;
    return static_cast<std::uint32_t>(std::clamp(ReadFileNumber(stored), 0.0, 16777215.0));
}

} // namespace stoikal
