#include "shell/data_folders.h"

#include "base/places.h"

#include "support/failing_file.h"
#include "support/fake_messages.h"
#include "support/fake_platform.h"
#include "support/file_bytes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A session and a desktop without folders, as they are before the start.
class DataFolders : public testing::Test
{
protected:
    void FindSettings() { FindSettingsFile(session, desktop.Doors(), messages, nullptr); }
    ResultFolders Resolve() { return ResolveDataFolders(session, desktop.Doors(), messages, nullptr); }

    QTemporaryDir folder;
    FakePlatform desktop;
    FakeMessages messages;
    Places session;
};

/// A new program folder with two shipped exercises and a tips file.
class EquationFolder : public DataFolders
{
protected:
    EquationFolder()
    {
        QDir(folder.path()).mkpath(u"program/exercises"_s);
        for (const char* const name : {"Serie.Equ", "Combustions.Equ", "TipOfDayEqChm.txt"}) {
            const QString path = folder.filePath(u"program/exercises/"_s + QLatin1String(name));
            WriteBytes(path, QByteArray("shipped ") + name);
            QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::ReadOther);
            desktop.folders.seeds << path;
        }
    }

    void Seed() { EXPECT_TRUE(SeedEquationFolder(own, desktop.Doors()).Succeeded()); }

    const QString own = folder.filePath(u"documents/Tovik_MARLEN/Stoikal"_s);
};

} // namespace

TEST_F(DataFolders, NameTheSettingsFileAfterTheUser)
{
    desktop.folders.appData = folder.path();

    FindSettings();

    EXPECT_EQ(session.DossierDonnees, folder.path() + u"/"_s);
    EXPECT_EQ(session.IniUtilisateur, folder.path() + u"/Tovik_MARLEN/Stoikal/ConfEQU_dupont.ini"_s);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DataFolders, CallAnUnknownUserInconnu)
{
    desktop.folders.appData = folder.path();
    desktop.user.login.clear();

    FindSettings();

    EXPECT_EQ(session.IniUtilisateur, folder.path() + u"/Tovik_MARLEN/Stoikal/ConfEQU_Inconnu.ini"_s);
}

TEST_F(DataFolders, KeepAStrangeUserNameInsideTheFolder)
{
    desktop.folders.appData = folder.path();
    desktop.user.login = u"../chef"_s;

    FindSettings();

    EXPECT_EQ(session.IniUtilisateur, folder.path() + u"/Tovik_MARLEN/Stoikal/ConfEQU_.._chef.ini"_s);
}

TEST_F(DataFolders, MakeTheFolderOfSettings)
{
    desktop.folders.appData = folder.filePath(u"new"_s);

    FindSettings();

    EXPECT_TRUE(QFileInfo(folder.filePath(u"new/Tovik_MARLEN/Stoikal"_s)).isDir());
    // The file itself comes into being at the first write.
    EXPECT_FALSE(QFileInfo::exists(session.IniUtilisateur));
}

TEST_F(DataFolders, AskForALostFolderOfSettings)
{
    const QString found = folder.filePath(u"found/Tovik_MARLEN/Stoikal/Conf_EQU.ini"_s);
    desktop.dialogs.answers = {Dialogs::Choice{found, 0}};

    FindSettings();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal - Gestion erreurs"_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_EQ(messages.shown[0].text,
              u"Le fichier suivant est introuvable :\n"
              "/Documents and Settings/All Users/Application Data/Tovik_MARLEN/Stoikal/Conf_EQU.ini\n"
              "Veuillez le localiser."_s);
    ASSERT_EQ(desktop.dialogs.asked.size(), 1U);
    EXPECT_EQ(desktop.dialogs.asked[0].folder,
              u"/Documents and Settings/All Users/Application Data/Tovik_MARLEN/Stoikal/"_s);
    EXPECT_EQ(desktop.dialogs.asked[0].name, u"cdgOpen"_s);
    EXPECT_EQ(desktop.dialogs.asked[0].filters, QStringList{u"Fichier configuration (*.ini)"_s});
    EXPECT_EQ(desktop.dialogs.asked[0].fileName, u"Conf_EQU.ini"_s);
    EXPECT_EQ(session.DossierDonnees, folder.filePath(u"found/"_s));
}

TEST_F(DataFolders, AskAgainAfterACancelAndAfterAStrangePlace)
{
    const QString strange = folder.filePath(u"elsewhere/Conf_EQU.ini"_s);
    const QString found = folder.filePath(u"found/Tovik_MARLEN/Stoikal/Conf_EQU.ini"_s);
    desktop.dialogs.answers
        = {std::nullopt, Dialogs::Choice{strange, 0}, std::nullopt, Dialogs::Choice{found, 0}};

    FindSettings();

    EXPECT_EQ(messages.shown.size(), 4U);
    EXPECT_EQ(desktop.dialogs.asked.size(), 4U);
    EXPECT_EQ(session.DossierDonnees, folder.filePath(u"found/"_s));
}

TEST_F(DataFolders, CutTheChosenPathWhereItsTailBegins)
{
    // Twice the same names: the first counts. The case of the letters does not.
    const QString twice
        = folder.path() + u"/a/tovik_marlen/stoikal/CONF_EQU.INI/b/Tovik_MARLEN/Stoikal/Conf_EQU.ini"_s;
    desktop.dialogs.answers = {Dialogs::Choice{twice, 0}};

    FindSettings();

    EXPECT_EQ(session.DossierDonnees, folder.filePath(u"a/"_s));
}

TEST_F(DataFolders, LeadALocalProgramToTheCommonDocuments)
{
    desktop.folders.documents = folder.path();
    session.ModeReseau = true;

    const ResultFolders found = Resolve();

    EXPECT_FALSE(session.ModeReseau);
    EXPECT_EQ(session.DossierDocuments, folder.path() + u"/"_s);
    EXPECT_EQ(found.results, folder.path() + u"/Tovik_MARLEN/Stoikal"_s);
    EXPECT_EQ(found.programOnNetwork, QString());
}

TEST_F(DataFolders, AskForLostDocumentsUntilTheyAreKnown)
{
    const QString found = folder.filePath(u"d/Tovik_MARLEN/Stoikal/Resultat.txt"_s);
    desktop.dialogs.answers = {std::nullopt, Dialogs::Choice{found, 0}};

    const ResultFolders folders = Resolve();

    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_EQ(messages.shown[1].title, u"Stoikal - Gestion erreurs"_s);
    EXPECT_EQ(messages.shown[1].icon, QMessageBox::Critical);
    EXPECT_EQ(messages.shown[1].text,
              u"Le fichier suivant est introuvable :\n"
              "/Documents and Settings/All Users/Documents partagés/Tovik_MARLEN/Stoikal/Resultat.txt\n"
              "Veuillez le localiser."_s);
    EXPECT_EQ(desktop.dialogs.asked[1].folder,
              u"/Documents and Settings/All Users/Documents partagés/Tovik_MARLEN/Stoikal/"_s);
    EXPECT_EQ(desktop.dialogs.asked[1].filters, QStringList{u"Fichier texte (*.txt)"_s});
    EXPECT_EQ(desktop.dialogs.asked[1].fileName, u"Resultat.txt"_s);
    EXPECT_EQ(session.DossierDocuments, folder.filePath(u"d/"_s));
    EXPECT_EQ(folders.results, folder.filePath(u"d/Tovik_MARLEN/Stoikal"_s));
}

TEST_F(DataFolders, AskForTheDocumentsOnlyOnce)
{
    const QString found = folder.filePath(u"d/Tovik_MARLEN/Stoikal/Resultat.txt"_s);
    desktop.dialogs.answers = {Dialogs::Choice{found, 0}};
    Resolve();

    const ResultFolders again = Resolve();

    EXPECT_EQ(desktop.dialogs.asked.size(), 1U);
    EXPECT_EQ(again.results, folder.filePath(u"d/Tovik_MARLEN/Stoikal"_s));
}

TEST_F(DataFolders, LeadANetworkProgramToItsRoot)
{
    desktop.folders.documents = folder.path();
    desktop.folders.networkRoot = u"//server/share"_s;
    desktop.folders.program = u"//server/share/prog/app"_s;

    const ResultFolders found = Resolve();

    EXPECT_TRUE(session.ModeReseau);
    EXPECT_EQ(found.results, u"//server/share"_s);
    EXPECT_TRUE(found.programOnNetwork.endsWith(u"/server/share/prog/app"_s));
    // The common documents play no part there.
    EXPECT_EQ(session.DossierDocuments, QString());
}

TEST_F(DataFolders, AskForNothingOnANetwork)
{
    desktop.folders.networkRoot = folder.path();

    Resolve();

    EXPECT_TRUE(desktop.dialogs.asked.empty());
    EXPECT_TRUE(messages.shown.empty());
}

TEST(WithSeparator, AddsOneOnlyWhereItIsMissing)
{
    EXPECT_EQ(WithSeparator(u"/a/b"_s), u"/a/b/"_s);
    EXPECT_EQ(WithSeparator(u"/a/b/"_s), u"/a/b/"_s);
}

TEST_F(EquationFolder, IsMadeAndFilledWithWhatShips)
{
    Seed();

    EXPECT_EQ(QDir(own).entryList(QDir::Files, QDir::Name),
              QStringList({u"Combustions.Equ"_s, u"Serie.Equ"_s, u"TipOfDayEqChm.txt"_s}));
    EXPECT_EQ(BytesOfFile(own + u"/Serie.Equ"_s), QByteArray("shipped Serie.Equ"));
}

TEST_F(EquationFolder, HoldsCopiesThatCanBeChanged)
{
    Seed();

    EXPECT_TRUE(QFile::permissions(own + u"/Serie.Equ"_s).testFlag(QFileDevice::WriteOwner));
}

TEST_F(EquationFolder, IsFilledOnlyOnce)
{
    Seed();
    ASSERT_TRUE(QFile::remove(own + u"/Serie.Equ"_s));
    WriteBytes(own + u"/Combustions.Equ"_s, "the teacher's");

    Seed();

    EXPECT_FALSE(QFileInfo::exists(own + u"/Serie.Equ"_s));
    EXPECT_EQ(BytesOfFile(own + u"/Combustions.Equ"_s), QByteArray("the teacher's"));
}

TEST_F(EquationFolder, IsLeftAsItStandsWhenItWasThereBefore)
{
    QDir().mkpath(own);
    WriteBytes(own + u"/Serie.Equ"_s, "the teacher's");

    Seed();

    EXPECT_EQ(QDir(own).entryList(QDir::Files), QStringList{u"Serie.Equ"_s});
    EXPECT_EQ(BytesOfFile(own + u"/Serie.Equ"_s), QByteArray("the teacher's"));
}

TEST_F(EquationFolder, IsBegunAgainWhenAnEarlierStartWasCutShort)
{
    QDir().mkpath(own + u".nouveau"_s);
    WriteBytes(own + u".nouveau/Serie.Equ"_s, "half of");
    WriteBytes(own + u".nouveau/Autre.Equ"_s, "half of");

    Seed();

    EXPECT_EQ(QDir(own).entryList(QDir::Files, QDir::Name),
              QStringList({u"Combustions.Equ"_s, u"Serie.Equ"_s, u"TipOfDayEqChm.txt"_s}));
    EXPECT_EQ(BytesOfFile(own + u"/Serie.Equ"_s), QByteArray("shipped Serie.Equ"));
    EXPECT_FALSE(QFileInfo::exists(own + u".nouveau"_s));
}

TEST_F(EquationFolder, IsNotMadeWhenAFileCannotBeCopied)
{
    desktop.folders.seeds << u"/nowhere/Perdu.Equ"_s;

    const auto seeded = SeedEquationFolder(own, desktop.Doors());

    ASSERT_FALSE(seeded.Succeeded());
    EXPECT_TRUE(seeded.Reason().contains(u"/nowhere/Perdu.Equ"_s)) << seeded.Reason().toStdString();
    EXPECT_FALSE(QFileInfo::exists(own));
    EXPECT_FALSE(QFileInfo::exists(own + u".nouveau"_s));
}

TEST_F(EquationFolder, IsNotMadeWhenAFileCannotBeReadToItsEnd)
{
    const QString broken = folder.filePath(u"program/exercises/Perdu.Equ"_s);
    ASSERT_TRUE(MakeFailingFile(broken));
    desktop.folders.seeds << broken;

    const auto seeded = SeedEquationFolder(own, desktop.Doors());

    ASSERT_FALSE(seeded.Succeeded());
    EXPECT_EQ(seeded.Reason(), u"«\u00A0%1\u00A0»\u00A0: %2"_s.arg(broken, FailingFileReason()));
    EXPECT_FALSE(QFileInfo::exists(own));
    EXPECT_FALSE(QFileInfo::exists(own + u".nouveau"_s));
}

TEST_F(EquationFolder, IsNotMadeWhereNothingCanBeWritten)
{
    // A file stands where the folder around it would be.
    WriteBytes(folder.filePath(u"documents"_s), "");

    const auto seeded = SeedEquationFolder(folder.filePath(u"documents/Stoikal"_s), desktop.Doors());

    ASSERT_FALSE(seeded.Succeeded());
    EXPECT_EQ(seeded.Reason(), u"le dossier qui doit le contenir ne peut pas être écrit"_s);
}

TEST_F(EquationFolder, LinkWhereItWouldGrowGoesAndWhatItLeadsToStays)
{
    ASSERT_TRUE(QDir().mkpath(folder.filePath(u"documents de la victime"_s)));
    WriteBytes(folder.filePath(u"documents de la victime/lettre.txt"_s), "mine");
    ASSERT_TRUE(QDir().mkpath(QFileInfo(own).absolutePath()));
    ASSERT_TRUE(QFile::link(folder.filePath(u"documents de la victime"_s), own + u".nouveau"_s));

    Seed();

    EXPECT_EQ(BytesOfFile(folder.filePath(u"documents de la victime/lettre.txt"_s)), QByteArray("mine"));
    EXPECT_FALSE(QFileInfo(own).isSymLink());
    EXPECT_EQ(BytesOfFile(own + u"/Serie.Equ"_s), QByteArray("shipped Serie.Equ"));
}

TEST_F(EquationFolder, IsNotMadeWhenAFileStandsWhereItWouldGrow)
{
    ASSERT_TRUE(QDir().mkpath(QFileInfo(own).absolutePath()));
    WriteBytes(own + u".nouveau"_s, "another's");

    const auto seeded = SeedEquationFolder(own, desktop.Doors());

    ASSERT_FALSE(seeded.Succeeded());
    EXPECT_EQ(seeded.Reason(),
              u"le dossier «\u00A0%1\u00A0» ne peut pas être créé"_s.arg(own + u".nouveau"_s));
    EXPECT_FALSE(QFileInfo::exists(own));
    EXPECT_EQ(BytesOfFile(own + u".nouveau"_s), QByteArray("another's"));
}

} // namespace stoikal
