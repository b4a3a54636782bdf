#include "exercise/side_colours.h"

#include "base/settings_store.h"
#include "support/qt_printers.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

struct Bench {
    QTemporaryDir folder;
    QString file = folder.filePath(u"ConfEQU_dupont.ini"_s);
    SettingsStore store;
    Settings settings{store, file};

    void Write(const QString& key, const QString& value)
    {
        EXPECT_TRUE(settings.Write(u"Options"_s, key, value));
    }
};

const QString kReactants = u"BackGround Color Reactifs"_s;
const QString kProducts = u"BackGround Color Produits"_s;

} // namespace

TEST(SideColours, ArePaleGreenAndPaleBlueByDefault)
{
    Bench bench;

    EXPECT_EQ(SideColour(bench.settings, Side::Reactants), 12648384U); // C0FFC0
    EXPECT_EQ(SideColour(bench.settings, Side::Products), 16777088U); // FFFF80
}

TEST(SideColours, AreThoseOfTheSettings)
{
    Bench bench;
    bench.Write(kReactants, u"255"_s);
    bench.Write(kProducts, u"8388608"_s);

    EXPECT_EQ(SideColour(bench.settings, Side::Reactants), 0x0000FFU); // red is the low byte
    EXPECT_EQ(SideColour(bench.settings, Side::Products), 0x800000U);
}

TEST(SideColours, AreKeptApart)
{
    Bench bench;
    bench.Write(kProducts, u"255"_s);

    EXPECT_EQ(SideColour(bench.settings, Side::Reactants), 12648384U);
    EXPECT_EQ(SideColour(bench.settings, Side::Products), 255U);
}

TEST(SideColours, TakeAStoredZeroForBlack)
{
    Bench bench;
    bench.Write(kReactants, u"0"_s);

    EXPECT_EQ(SideColour(bench.settings, Side::Reactants), 0U);
}

TEST(SideColours, AreWrittenAsPlainDecimalNumbers)
{
    Bench bench;

    EXPECT_TRUE(SetSideColour(bench.settings, Side::Reactants, 0xC0FFC0));
    EXPECT_TRUE(SetSideColour(bench.settings, Side::Products, 0x0000FF));

    EXPECT_EQ(bench.settings.Read(u"Options"_s, u"BackGround Color Reactifs"_s), u"12648384"_s);
    EXPECT_EQ(bench.settings.Read(u"Options"_s, u"BackGround Color Produits"_s), u"255"_s);
    EXPECT_EQ(SideColour(bench.settings, Side::Products), 255U);
    EXPECT_EQ(DefaultSideColour(Side::Products), 16777088U);
}

TEST(SideColours, StayWithinTwentyFourBits)
{
    Bench bench;
    bench.Write(kReactants, u"99999999"_s);
    bench.Write(kProducts, u"-5"_s);

    EXPECT_EQ(SideColour(bench.settings, Side::Reactants), 0xFFFFFFU);
    EXPECT_EQ(SideColour(bench.settings, Side::Products), 0U);
}

} // namespace stoikal
