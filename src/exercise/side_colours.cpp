#include "exercise/side_colours.h"

#include "base/number_text.h"
#include "base/settings_store.h"

#include <algorithm>

namespace stoikal {

namespace {

QString Section()
{
    return QStringLiteral("Options");
}

QString Key(Side side)
{
    return side == Side::Reactants ? QStringLiteral("BackGround Color Reactifs")
                                   : QStringLiteral("BackGround Color Produits");
}

SettingValue StoredColour(Side side, std::uint32_t colour)
{
    return {Section(), Key(side), QString::number(colour)};
}

} // namespace

std::uint32_t DefaultSideColour(Side side)
{
    return side == Side::Reactants ? 0xC0FFC0 : 0xFFFF80;
}

Outcome<QString> SetSideColour(Settings& settings, Side side, std::uint32_t colour)
{
    return settings.Write({StoredColour(side, colour)});
}

Outcome<QString> SetDefaultSideColours(Settings& settings)
{
    return settings.Write({StoredColour(Side::Reactants, DefaultSideColour(Side::Reactants)),
                           StoredColour(Side::Products, DefaultSideColour(Side::Products))});
}

std::uint32_t SideColour(const Settings& settings, Side side)
{
    const QString stored = settings.Read(Section(), Key(side));
    if (stored.isEmpty())
        return DefaultSideColour(side);
    return static_cast<std::uint32_t>(std::clamp(ReadFileNumber(stored), 0.0, 16777215.0));
}

} // namespace stoikal
