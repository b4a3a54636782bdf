#include "base/file_lock.h"
#include "base/settings_store.h"
#include "support/file_bytes.h"
#include "support/qt_printers.h"
#include "support/shared_folder.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// Another account put something in place of what the program makes or writes.
class PlantedFiles : public testing::Test
{
protected:
    /// What the victim's program does to its settings.
    void ChangeSettings(bool isWritten)
    {
        SettingsStore store;
        EXPECT_EQ(store.ReadSetting(settings, u"Options"_s, u"PassWord"_s), QString());
        const auto written = store.Change(
            settings, [](ProfileText& text) { text.Write(u"Options"_s, u"PassWord"_s, u"x"_s); });
        EXPECT_EQ(written.Succeeded(), isWritten);
    }

    void ExpectPrivateFileAsItWas() const
    {
        EXPECT_EQ(BytesOfFile(profile), QByteArray("[Options]\nPassWord=secret\n"));
        EXPECT_EQ(SharedFolder::RightsOf(profile), 0600U);
    }

    const SharedFolder place;
    const QString profile = place.PrivateFile("[Options]\nPassWord=secret\n");
    const QString settings = place.Path(u"ConfEQU_B.ini"_s);
};

} // namespace

TEST_F(PlantedFiles, LinkInPlaceOfALockIsNotFollowed)
{
    place.PlantLink(profile, u"ConfEQU_B.ini.lock"_s);
    {
        const AsOrdinaryUser victim(kVictim);
        EXPECT_FALSE(FileLock(settings, 0).IsHeld());
        ChangeSettings(false);
    }

    ExpectPrivateFileAsItWas();
    EXPECT_FALSE(QFile::exists(settings));
}

TEST_F(PlantedFiles, SecondNameOfAFileIsNoLock)
{
    place.PlantSecondName(profile, u"ConfEQU_B.ini.lock"_s);
    {
        const AsOrdinaryUser victim(kVictim);
        EXPECT_FALSE(FileLock(settings, 0).IsHeld());
    }

    ExpectPrivateFileAsItWas();
}

TEST_F(PlantedFiles, WhatIsNoFileIsNoLockAndIsNotWaitedFor)
{
    for (const SharedFolder::Kind kind : SharedFolder::Kinds()) {
        const QString name = u"%1.ini"_s.arg(static_cast<int>(kind));
        place.Plant(kind, name + u".lock"_s);
        const AsOrdinaryUser victim(kVictim);

        EXPECT_FALSE(FileLock(place.Path(name), 60000).IsHeld()) << static_cast<int>(kind);
    }
}

TEST_F(PlantedFiles, LinkInPlaceOfTheSettingsIsNeitherReadNorWrittenThrough)
{
    place.PlantLink(profile, u"ConfEQU_B.ini"_s);
    {
        const AsOrdinaryUser victim(kVictim);
        ChangeSettings(false);
    }

    ExpectPrivateFileAsItWas();
}

TEST_F(PlantedFiles, SettingsBehindALinkOfAnotherAccountAreNotWritten)
{
    if (!HasTwoAccounts())
        GTEST_SKIP() << "a link of another account needs the superuser to plant it";
    ASSERT_TRUE(QDir().mkdir(place.home + u"/dossier"_s));
    place.PlantLink(place.home + u"/dossier"_s, u"Stoikal"_s);
    ASSERT_EQ(::lchown(qPrintable(place.home + u"/dossier"_s), kVictim, kVictim), 0);
    SettingsStore store;
    const QString behind = place.Path(u"Stoikal/ConfEQU_B.ini"_s);
    {
        const AsOrdinaryUser victim(kVictim);
        EXPECT_FALSE(store.Change(behind, [](ProfileText& text) { text.Write(u"A"_s, u"b"_s, u"x"_s); }));
    }

    EXPECT_TRUE(QDir(place.home + u"/dossier"_s).isEmpty());
}

TEST_F(PlantedFiles, WhatIsNoFileHoldsNoSettingsAndIsNotWaitedFor)
{
    for (const SharedFolder::Kind kind : SharedFolder::Kinds()) {
        place.Plant(kind, u"ConfEQU_B.ini"_s);
        {
            const AsOrdinaryUser victim(kVictim);
            ChangeSettings(false);
        }
        ASSERT_EQ(::remove(qPrintable(settings)), 0);
    }
}

} // namespace stoikal
