#include "shell/password_store.h"

#include "base/places.h"
#include "base/settings_store.h"
#include "support/file_bytes.h"
#include "support/file_size_limit.h"
#include "support/ordinary_user.h"
#include "support/qt_printers.h"
#include "support/reachable_folder.h"
#include "support/school.h"

#include <QDir>
#include <QFile>
#include <QThread>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class PasswordStoreTest : public testing::Test
{
protected:
    PasswordStoreTest() { state.IniUtilisateur = folder.filePath(u"ConfEQU_dupont.ini"_s); }

    /// The program runs from a share with a deposit folder.
    void OnAShare()
    {
        state.ModeReseau = true;
        state.DossierResultats = folder.path();
        state.DossierDepot = u" Dépôt "_s;
        QDir().mkpath(Deposit());
    }

    QString Deposit() const { return folder.filePath(u"Dépôt"_s); }
    QString Common() const { return Deposit() + u"/MotDePasse.txt"_s; }

    void Put(const QByteArray& bytes) const { WriteBytes(Common(), bytes); }
    QByteArray Content() const { return BytesOfFile(Common()); }

    mode_t RightsOfCommon() const
    {
        struct stat status {
        };
        return ::stat(qPrintable(Common()), &status) == 0 ? status.st_mode & 07777U : 0;
    }

    /// The next file is younger than the last one, by the clock of the files too.
    static void WaitForTheFileClock() { QThread::msleep(20); }

    /// The password, or what was told in its place behind an exclamation mark.
    QString Password()
    {
        const auto read = passwords.Read();
        return read ? *read : u'!' + read.Reason();
    }

    ReachableFolder folder;
    Places state;
    SettingsStore store;
    Settings settings{store, state.IniUtilisateur};
    PasswordStore passwords{state, settings};
};

} // namespace

TEST_F(PasswordStoreTest, IsTheEmptyTextUntilOneIsSet)
{
    EXPECT_EQ(Password(), QString());
}

TEST_F(PasswordStoreTest, StandsInTheSettingsOfTheUserInClearText)
{
    ASSERT_TRUE(passwords.Write(u"Sésame"_s));

    EXPECT_EQ(settings.Read(u"Options"_s, u"PassWord"_s), u"Sésame"_s);
    EXPECT_EQ(Password(), u"Sésame"_s);
}

TEST_F(PasswordStoreTest, ComesBackAsItWasTyped)
{
    for (const bool isOnAShare : {false, true}) {
        if (isOnAShare)
            OnAShare();
        for (const QString& typed : {u"  a b  "_s, u"\"a\""_s, u"'a'"_s, u"\""_s, u"a=b;c"_s, u"[a]"_s,
                                     u"Ł₂"_s, u"Ã©"_s, QString()}) {
            ASSERT_TRUE(passwords.Write(typed));
            EXPECT_EQ(Password(), typed) << isOnAShare;
        }
    }
}

TEST_F(PasswordStoreTest, IsAnotherForAnotherUserOfTheMachine)
{
    ASSERT_TRUE(passwords.Write(u"mien"_s));

    state.IniUtilisateur = folder.filePath(u"ConfEQU_durand.ini"_s);

    EXPECT_EQ(Password(), QString());
}

TEST_F(PasswordStoreTest, IsTheFirstLineOfTheCommonFileOnAShare)
{
    OnAShare();
    ASSERT_TRUE(settings.Read(u"Options"_s, u"PassWord"_s).isEmpty());
    Put("s\xE9same\r\nune note\r\n");

    EXPECT_EQ(CommonPasswordFile(state), Common());
    EXPECT_EQ(Password(), u"sésame"_s);
}

TEST_F(PasswordStoreTest, EmptyCommonFileIsTheEmptyPassword)
{
    OnAShare();
    EXPECT_TRUE(settings.Write(u"Options"_s, u"PassWord"_s, u"autre"_s));
    Put("");

    EXPECT_EQ(Password(), QString());
}

TEST_F(PasswordStoreTest, ReadsTheCommonFileWithoutALineEndAndWithAByteOrderMark)
{
    OnAShare();
    Put("abc");
    EXPECT_EQ(Password(), u"abc"_s);
    Put("\xEF\xBB\xBF"
        "abc\n");
    EXPECT_EQ(Password(), u"abc"_s);
}

TEST_F(PasswordStoreTest, ChangeOnAShareIsTheOnlyLineOfTheFile)
{
    OnAShare();
    Put("vieux\r\nune note\r\n");

    ASSERT_TRUE(passwords.Write(u"été"_s));

    EXPECT_EQ(Content(), "\xE9t\xE9\r\n");
    EXPECT_EQ(settings.Read(u"Options"_s, u"PassWord"_s), QString());
}

TEST_F(PasswordStoreTest, ChangeOnAShareIsSeenByAnotherUserAtOnce)
{
    OnAShare();
    Places other = state;
    other.IniUtilisateur = folder.filePath(u"ConfEQU_durand.ini"_s);
    Settings otherSettings(store, other.IniUtilisateur);
    const PasswordStore others(other, otherSettings);

    ASSERT_TRUE(passwords.Write(u"neuf"_s));
    EXPECT_EQ(*others.Read(), u"neuf"_s);
    ASSERT_TRUE(passwords.Write(QString()));
    EXPECT_EQ(*others.Read(), QString());
}

TEST_F(PasswordStoreTest, MissingCommonFileIsNoEmptyPassword)
{
    OnAShare();

    EXPECT_TRUE(Password().startsWith(u"!Le fichier du mot de passe ne peut pas être lu :\n"_s + Common()));
}

TEST_F(PasswordStoreTest, ShareThatIsGoneIsNoEmptyPassword)
{
    OnAShare();
    Put("sesame\r\n");
    ASSERT_TRUE(QDir(Deposit()).removeRecursively());

    EXPECT_TRUE(Password().startsWith(u'!'));
}

TEST_F(PasswordStoreTest, FolderInPlaceOfTheFileIsNoEmptyPassword)
{
    OnAShare();
    ASSERT_TRUE(QDir().mkpath(Common()));

    EXPECT_TRUE(Password().contains(u"(c'est un dossier)"_s)) << Password().toStdString();
}

TEST_F(PasswordStoreTest, ChangeThatFailsLeavesTheOldPassword)
{
    OnAShare();
    ASSERT_TRUE(QDir().mkpath(Common()));

    const auto written = passwords.Write(u"neuf"_s);

    ASSERT_FALSE(written);
    EXPECT_TRUE(
        written.Reason().startsWith(u"Le nouveau mot de passe n'a pas pu être enregistré :\n"_s + Common()))
        << written.Reason().toStdString();
    EXPECT_TRUE(QDir(Common()).exists());
}

TEST_F(PasswordStoreTest, HasNoCommonFileOnAMachineOfItsOwn)
{
    EXPECT_EQ(CommonPasswordFile(state), QString());
}

TEST_F(PasswordStoreTest, ChangeThatTheSettingsCannotTakeLeavesTheOldPassword)
{
    ASSERT_TRUE(passwords.Write(u"vieux"_s));

    LimitFileSize(0);
    const auto written = passwords.Write(u"neuf"_s);
    LimitFileSize(RLIM_INFINITY);

    ASSERT_FALSE(written);
    EXPECT_TRUE(written.Reason().startsWith(
        u"Le nouveau mot de passe n'a pas été enregistré\u00A0: l'ancien reste valable.\n\n"_s))
        << written.Reason().toStdString();
    EXPECT_TRUE(written.Reason().contains(state.IniUtilisateur)) << written.Reason().toStdString();
    EXPECT_EQ(Password(), u"vieux"_s);
}

TEST_F(PasswordStoreTest, IsNotTheEmptyTextWhereTheSettingsCannotBeRead)
{
    // A folder in the file's place stands for a disk that does not answer.
    ASSERT_TRUE(QDir().mkpath(state.IniUtilisateur));

    EXPECT_TRUE(Password().startsWith(
        u"!Le fichier des réglages, qui contient le mot de passe, ne peut pas être lu\u00A0:\n"_s
        + state.IniUtilisateur + u'\n'))
        << Password().toStdString();
}

TEST_F(PasswordStoreTest, CommonFileIsMadeEmptyAndLeftAsItStands)
{
    OnAShare();

    ASSERT_TRUE(passwords.MakeCommonFile());
    EXPECT_EQ(Content(), "");
    Put("sesame\r\n");
    ASSERT_TRUE(passwords.MakeCommonFile());

    EXPECT_EQ(Content(), "sesame\r\n");
}

TEST_F(PasswordStoreTest, CommonFileIsNotMadeWithoutItsFolder)
{
    OnAShare();
    ASSERT_TRUE(QDir(Deposit()).removeRecursively());

    EXPECT_FALSE(passwords.MakeCommonFile());
    EXPECT_FALSE(QDir(Deposit()).exists());
}

TEST_F(PasswordStoreTest, CommonFileIsReadByAllAndWrittenByItsAccountAlone)
{
    OnAShare();
    for (const mode_t mask : {0022U, 0077U, 0000U}) {
        const WithMask with(mask);
        ASSERT_EQ(::chmod(qPrintable(Deposit()), 0777), 0);

        ASSERT_TRUE(passwords.MakeCommonFile());
        EXPECT_EQ(RightsOfCommon(), 0644U);
        ASSERT_TRUE(QFile::remove(Common()));
        ASSERT_TRUE(passwords.Write(u"neuf"_s));
        EXPECT_EQ(RightsOfCommon(), 0644U);
        ASSERT_TRUE(passwords.Write(u"plus neuf"_s));
        EXPECT_EQ(RightsOfCommon(), 0644U);
        ASSERT_TRUE(QFile::remove(Common()));
    }
}

TEST_F(PasswordStoreTest, ChangeKeepsWhoMayReadTheCommonFileAndTakesWritingAway)
{
    OnAShare();
    Put("vieux\r\n");
    ASSERT_EQ(::chmod(qPrintable(Common()), 0660), 0);

    ASSERT_TRUE(passwords.Write(u"neuf"_s));

    EXPECT_EQ(RightsOfCommon(), 0640U);
}

TEST_F(PasswordStoreTest, EmptyCommonFileBesideOlderResultsHasBeenLost)
{
    OnAShare();
    WriteBytes(Deposit() + u"/EQU_durand_5_3_2016_9_0.txt"_s, "Nom\r\n");
    EXPECT_FALSE(passwords.HasBeenLost()); // It is not there: that is told where it is read.
    WaitForTheFileClock();
    ASSERT_TRUE(passwords.MakeCommonFile());

    EXPECT_TRUE(passwords.HasBeenLost());
    ASSERT_TRUE(passwords.Write(u"neuf"_s));
    EXPECT_FALSE(passwords.HasBeenLost());
    // A teacher may want none.
    ASSERT_TRUE(passwords.Write(QString()));
    EXPECT_FALSE(passwords.HasBeenLost());
}

TEST_F(PasswordStoreTest, CommonFileThatWasEmptiedHasBeenLost)
{
    OnAShare();
    Put("sesame\r\n");
    WriteBytes(Deposit() + u"/EQU_durand_5_3_2016_9_0.txt"_s, "Nom\r\n");
    WaitForTheFileClock();
    Put("");

    EXPECT_TRUE(passwords.HasBeenLost());
}

TEST_F(PasswordStoreTest, EmptyCommonFileOfANewFolderHasNotBeenLost)
{
    OnAShare();
    ASSERT_TRUE(passwords.MakeCommonFile());
    WaitForTheFileClock();
    WriteBytes(Deposit() + u"/EQU_durand_5_3_2016_9_0.txt"_s, "Nom\r\n");
    WriteBytes(Deposit() + u"/HighScore.txt"_s, "#a\r\n");

    EXPECT_FALSE(passwords.HasBeenLost());
}

TEST_F(PasswordStoreTest, PupilNeitherEmptiesNorTakesAwayNorReplacesTheCommonFile)
{
    const School school(03730);
    if (!school.IsPlayable())
        GTEST_SKIP() << School::WhyNot();
    state.ModeReseau = true;
    state.DossierResultats = school.shared;
    {
        const AsAccount teacher(kTeacher);
        ASSERT_TRUE(passwords.Write(u"sesame"_s));
    }
    {
        const AsAccount pupil(kPupilA);
        EXPECT_TRUE(passwords.MakeCommonFile());
        EXPECT_EQ(Password(), u"sesame"_s);
        EXPECT_FALSE(passwords.Write(u"facile"_s));
    }

    const QString name = u"MotDePasse.txt"_s;
    EXPECT_FALSE(school.MayOpen(kPupilA, name, O_WRONLY));
    EXPECT_FALSE(school.TakesAway(kPupilA, name));
    EXPECT_FALSE(school.Renames(kPupilA, name));
    EXPECT_EQ(Password(), u"sesame"_s);
}

TEST_F(PasswordStoreTest, SettingsThatAnotherAccountPutThereTellNoPassword)
{
    const School school(03770);
    if (!school.IsPlayable())
        GTEST_SKIP() << School::WhyNot();
    state.IniUtilisateur = school.Path(u"ConfEQU_prof.ini"_s);
    {
        const AsAccount pupil(kPupilA);
        WriteBytes(state.IniUtilisateur, "[Options]\nPassWord=facile\n");
    }
    const AsAccount other(kPupilB);

    EXPECT_TRUE(Password().contains(u"(ce fichier appartient à un autre compte)"_s))
        << Password().toStdString();
}

TEST_F(PasswordStoreTest, TeacherTakesOverTheFileThatAPupilsStartMade)
{
    const School school(03730);
    if (!school.IsPlayable())
        GTEST_SKIP() << School::WhyNot();
    state.ModeReseau = true;
    state.DossierResultats = school.shared;
    {
        const AsAccount pupil(kPupilA);
        ASSERT_TRUE(passwords.MakeCommonFile());
    }
    {
        const AsAccount pupil(kPupilB);
        EXPECT_FALSE(passwords.Write(u"facile"_s));
    }
    {
        const AsAccount teacher(kTeacher);
        ASSERT_TRUE(passwords.Write(u"sesame"_s));
    }

    EXPECT_EQ(school.OwnerOf(u"MotDePasse.txt"_s), kTeacher);
    EXPECT_FALSE(school.MayOpen(kPupilA, u"MotDePasse.txt"_s, O_WRONLY));
    const AsAccount pupil(kPupilA);
    EXPECT_EQ(Password(), u"sesame"_s);
}

TEST_F(PasswordStoreTest, DepositWithANameOfBlanksIsTheShareItself)
{
    OnAShare();
    state.DossierDepot = u"   "_s;

    EXPECT_EQ(CommonPasswordFile(state), folder.filePath(u"MotDePasse.txt"_s));
}

TEST_F(PasswordStoreTest, LinkInPlaceOfTheFileIsNotFollowed)
{
    OnAShare();
    WriteBytes(folder.filePath(u"eleve.txt"_s), "facile\r\n");
    ASSERT_TRUE(QFile::link(folder.filePath(u"eleve.txt"_s), Common()));

    EXPECT_EQ(Password(),
              u"!Le fichier du mot de passe ne peut pas être lu :\n%1\n(%2)\n\n"
              "Vérifiez que le dossier de dépôt est accessible, puis recommencez."_s.arg(
                  Common(), u"ce nom est celui d'un lien, et non d'un fichier"_s));
    EXPECT_FALSE(passwords.MakeCommonFile());
    EXPECT_FALSE(passwords.Write(u"neuf"_s));
    EXPECT_EQ(BytesOfFile(folder.filePath(u"eleve.txt"_s)), QByteArray("facile\r\n"));
}

TEST_F(PasswordStoreTest, WhatIsNoFileIsNoEmptyPasswordAndIsNotWaitedFor)
{
    OnAShare();
    ASSERT_EQ(::mkfifo(qPrintable(Common()), 0666), 0);

    EXPECT_TRUE(Password().contains(u"(ce n'est pas un fichier)"_s)) << Password().toStdString();
    EXPECT_FALSE(passwords.MakeCommonFile());
}

TEST_F(PasswordStoreTest, CommonFileThatAPupilMayOnlyReadIsThere)
{
    if (!folder.IsReachable())
        GTEST_SKIP() << ReachableFolder::WhyNot();
    OnAShare();
    Put("sesame\r\n");
    ASSERT_EQ(::chmod(qPrintable(folder.path()), 0755), 0);
    ASSERT_EQ(::chmod(qPrintable(Common()), 0444), 0);
    const AsOrdinaryUser pupil;
    ASSERT_TRUE(pupil.IsOrdinary());

    EXPECT_TRUE(passwords.MakeCommonFile());
    EXPECT_EQ(Password(), u"sesame"_s);
}

TEST_F(PasswordStoreTest, CommonFileThatAPupilMayNotReadIsAFailure)
{
    if (!folder.IsReachable())
        GTEST_SKIP() << ReachableFolder::WhyNot();
    OnAShare();
    Put("sesame\r\n");
    ASSERT_EQ(::chmod(qPrintable(folder.path()), 0755), 0);
    ASSERT_EQ(::chmod(qPrintable(Common()), 0), 0);
    const AsOrdinaryUser pupil;
    ASSERT_TRUE(pupil.IsOrdinary());

    const auto made = passwords.MakeCommonFile();

    ASSERT_FALSE(made);
    EXPECT_EQ(made.Reason(), u"l'accès est refusé"_s);
}

} // namespace stoikal
