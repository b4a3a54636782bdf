#include "base/settings_store.h"
#include "base/whole_file.h"
#include "support/file_bytes.h"
#include "support/qt_printers.h"
#include "support/school.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The settings of each account lie in one folder of all accounts.
class OwnFiles : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!school.IsPlayable())
            GTEST_SKIP() << School::WhyNot();
    }

    /// What an account's program makes of its settings.
    Outcome<QString> Write(uid_t account, const QString& password) const
    {
        const AsAccount as(account);
        SettingsStore store;
        return store.WriteSetting(school.Path(name), u"Options"_s, u"PassWord"_s, password);
    }
    QString Read(uid_t account) const
    {
        const AsAccount as(account);
        return SettingsStore().ReadSetting(school.Path(name), u"Options"_s, u"PassWord"_s);
    }

    void PlantSettings(uid_t account, mode_t rights) const
    {
        WriteBytes(school.Path(name), "[Options]\nPassWord=facile\n");
        ASSERT_EQ(::chown(qPrintable(school.Path(name)), account, kClass), 0);
        ASSERT_EQ(::chmod(qPrintable(school.Path(name)), rights), 0);
    }

    const School school{03770};
    const QString name = u"ConfEQU_anna.ini"_s;
};

} // namespace

TEST_F(OwnFiles, SettingsAreReadAndWrittenByTheirAccountAlone)
{
    for (const mode_t mask : {0022U, 0077U, 0002U}) {
        const WithMask with(mask);
        ASSERT_TRUE(Write(kPupilA, u"secret"_s));

        EXPECT_EQ(school.RightsOf(name), 0600U) << mask;
        EXPECT_EQ(Read(kPupilA), u"secret"_s);
        EXPECT_FALSE(school.MayOpen(kPupilB, name, O_RDONLY));
        EXPECT_FALSE(school.MayOpen(kPupilB, name, O_WRONLY));
        EXPECT_FALSE(school.TakesAway(kPupilB, name));
        EXPECT_FALSE(school.Renames(kPupilB, name));
        ASSERT_TRUE(QFile::remove(school.Path(name)));
    }
}

TEST_F(OwnFiles, SettingsThatOthersMightReadAreClosedWithTheNextChange)
{
    PlantSettings(kPupilA, 0664);

    ASSERT_TRUE(Write(kPupilA, u"secret"_s));

    EXPECT_EQ(school.RightsOf(name), 0600U);
}

TEST_F(OwnFiles, SettingsThatAnotherAccountPutThereAreNeitherReadNorWritten)
{
    PlantSettings(kPupilB, 0666);

    EXPECT_EQ(Read(kPupilA), QString());
    const auto written = Write(kPupilA, u"secret"_s);

    ASSERT_FALSE(written);
    EXPECT_EQ(written.Reason(), u"ce fichier appartient à un autre compte"_s);
    EXPECT_EQ(BytesOfFile(school.Path(name)), QByteArray("[Options]\nPassWord=facile\n"));
}

TEST_F(OwnFiles, SettingsOfTheSuperuserAndOfTheFoldersOwnerAreTaken)
{
    for (const uid_t owner : {uid_t{0}, kTeacher}) {
        PlantSettings(owner, 0666);

        EXPECT_EQ(Read(kPupilA), u"facile"_s) << owner;
    }
}

TEST_F(OwnFiles, SettingsInAFolderThatNobodyElseWritesAreTakenFromAnyone)
{
    // As after files were brought back from elsewhere.
    PlantSettings(kPupilB, 0666);
    ASSERT_EQ(::chown(qPrintable(school.shared), kPupilA, kClass), 0);
    ASSERT_EQ(::chmod(qPrintable(school.shared), 0755), 0);

    EXPECT_EQ(Read(kPupilA), u"facile"_s);
    EXPECT_TRUE(Write(kPupilA, u"secret"_s));
}

} // namespace stoikal
