#include "shell_fixture.h"

#include "base/fatal_fault.h"
#include "base/settings_store.h"
#include "shell/windows/frm_depot.h"
#include "support/file_size_limit.h"

#include <QFileInfo>
#include <QLabel>
#include <QPushButton>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The program runs from a share that holds a deposit folder.
class NetworkStart : public ShellTest
{
protected:
    NetworkStart()
    {
        desktop.folders.networkRoot = MadeFolder("share");
        desktop.folders.program = MadeFolder("share/prog");
        MadeFolder("share/Classe3");
    }

    void NameTheDeposit() { WriteSettings({u"[Réseau]"_s, u"Dossier Dépôt=Classe3"_s}); }
    QString Share(const char* below) const { return folder.filePath(u"share/"_s + QString::fromUtf8(below)); }

    FatalFault FaultOfStart()
    {
        try {
            MakeShell().Start();
        } catch (const FatalFault& fault) {
            return fault;
        }
        ADD_FAILURE() << "the start went on";
        return FatalFault(QString());
    }
};

class FrmDepot : public testing::Test
{
protected:
    QTemporaryDir folder;
    QString ini = folder.filePath(u"ConfEQU_dupont.ini"_s);
    SettingsStore store;
    Settings settings{store, ini};
    FakeMessages messages;
    frmDepot window{settings, messages, nullptr};
    QLineEdit& txtDepot = Control<QLineEdit>(window, "txtDepot");

    /// A person enters a name, and the disk takes nothing.
    void EnterOnAFullDisk(const QString& name)
    {
        window.show();
        window.activateWindow();
        Settle();
        txtDepot.clear();
        Type(txtDepot, name);
        LimitFileSize(0);
        Click(Control<QPushButton>(window, "cmdOK"));
        LimitFileSize(RLIM_INFINITY);
    }
};

} // namespace

TEST_F(NetworkStart, AsksForTheDepositFolderOnce)
{
    script.On("frmDepot", [](QWidget& window) {
        auto& name = Control<QLineEdit>(window, "txtDepot");
        EXPECT_EQ(name.text(), u"Dépôt"_s);
        name.clear();
        Type(name, u"Classe3"_s);
        Click(Control<QPushButton>(window, "cmdOK"));
    });
    Start();
    EXPECT_EQ(State().places.DossierDepot, u"Classe3"_s);
    EXPECT_EQ(Setting("Réseau", "Dossier Dépôt"), u"Classe3"_s);

    // No step for the window: a second question would keep the start waiting.
    Start();

    EXPECT_EQ(State().places.DossierDepot, u"Classe3"_s);
}

TEST_F(NetworkStart, AsksAgainWhileTheNameIsEmpty)
{
    script.On("frmDepot", [](QWidget& window) {
        Control<QLineEdit>(window, "txtDepot").clear();
        window.close();
    });
    script.On("frmDepot", [](QWidget& window) {
        Control<QLineEdit>(window, "txtDepot").setText(u"Classe3"_s);
        window.close();
    });

    Start();

    EXPECT_EQ(Setting("Réseau", "Dossier Dépôt"), u"Classe3"_s);
}

TEST_F(NetworkStart, MakesAJournalOfItsOwn)
{
    NameTheDeposit();

    Start();

    EXPECT_TRUE(State().places.ModeReseau);
    EXPECT_EQ(State().places.FichierResultat, Share("Classe3/EQU_dupont_5_3_2016_14_7.txt"));
    EXPECT_TRUE(QFileInfo::exists(State().places.FichierResultat));
}

TEST_F(NetworkStart, CallsAnUnknownUserInconnuInTheJournalsName)
{
    desktop.user.login.clear();
    const QString own = desktop.folders.appData + u"/Tovik_MARLEN/Stoikal"_s;
    ASSERT_TRUE(QDir().mkpath(own));
    WriteTextFile(own + u"/ConfEQU_Inconnu.ini"_s, {u"[Réseau]"_s, u"Dossier Dépôt=Classe3"_s});

    Start();

    EXPECT_EQ(State().places.FichierResultat, Share("Classe3/EQU_Inconnu_5_3_2016_14_7.txt"));
}

TEST_F(NetworkStart, AppendsToTheJournalOfTheSameMinute)
{
    NameTheDeposit();
    WriteTextFile(Share("Classe3/EQU_dupont_5_3_2016_14_7.txt"), {u"avant"_s});

    Start();

    EXPECT_EQ(JournalText(), u"avant\r\n"_s);
}

TEST_F(NetworkStart, TrimsTheNameOfTheDepositFolderInPaths)
{
    script.On("frmDepot", [](QWidget& window) {
        Control<QLineEdit>(window, "txtDepot").setText(u"   "_s);
        Click(Control<QPushButton>(window, "cmdOK"));
    });

    Start();

    // A name of blanks is taken; the files then lie in the root itself.
    EXPECT_TRUE(QFileInfo::exists(Share("EQU_dupont_5_3_2016_14_7.txt")));
    EXPECT_TRUE(QFileInfo::exists(Share("MotDePasse.txt")));
}

TEST_F(NetworkStart, MakesTheFileOfThePassword)
{
    NameTheDeposit();

    Start();

    EXPECT_EQ(TextOfFile(Share("Classe3/MotDePasse.txt")), QString());
}

TEST_F(NetworkStart, LeavesAPasswordAsItStands)
{
    NameTheDeposit();
    WriteTextFile(Share("Classe3/MotDePasse.txt"), {u"sesame"_s});

    Start();

    EXPECT_EQ(TextOfFile(Share("Classe3/MotDePasse.txt")), u"sesame\r\n"_s);
}

TEST_F(NetworkStart, LeavesTheDocumentsAlone)
{
    NameTheDeposit();
    Start();
    State().pupil.NomEleve = u"DUPONT"_s;
    desktop.dialogs.answers = {std::nullopt};

    Choose("Mnu_Open(0)");

    EXPECT_EQ(State().places.DossierDocuments, QString());
    EXPECT_FALSE(QFileInfo::exists(EquationFolder()));
    // The equation files are taken from the current folder then.
    ASSERT_EQ(desktop.dialogs.asked.size(), 1U);
    EXPECT_EQ(desktop.dialogs.asked[0].folder, u"Tovik_MARLEN/Stoikal"_s);
}

TEST_F(NetworkStart, NamesFileAndSettingOfAMissingDepositFolder)
{
    WriteSettings({u"[Réseau]"_s, u"Dossier Dépôt=Classe4"_s});

    const FatalFault fault = FaultOfStart();

    EXPECT_EQ(fault.File(), Share("Classe4/MotDePasse.txt"));
    EXPECT_TRUE(fault.Cause().contains(u"«\u00A0Dossier Dépôt\u00A0»"_s)) << fault.Cause().toStdString();
    EXPECT_TRUE(fault.Cause().contains(State().places.IniUtilisateur));
    EXPECT_FALSE(QFileInfo::exists(Share("Classe4")));
}

TEST_F(NetworkStart, NamesFileAndSettingOfAJournalThatCannotBeOpened)
{
    NameTheDeposit();
    MadeFolder("share/Classe3/EQU_dupont_5_3_2016_14_7.txt");

    const FatalFault fault = FaultOfStart();

    EXPECT_EQ(fault.File(), Share("Classe3/EQU_dupont_5_3_2016_14_7.txt"));
    EXPECT_TRUE(fault.Cause().contains(u"«\u00A0Dossier Dépôt\u00A0»"_s)) << fault.Cause().toStdString();
    EXPECT_TRUE(fault.Cause().contains(State().places.IniUtilisateur));
}

TEST_F(NetworkStart, ShowsOneSeparatorBehindADepositFolderNamedWithOne)
{
    WriteSettings({u"[Réseau]"_s, u"Dossier Dépôt=Classe3/"_s});
    MadeFolder("share/Classe3/EQU_dupont_5_3_2016_14_7.txt");

    const FatalFault fault = FaultOfStart();

    EXPECT_TRUE(
        fault.MessageText().contains(QDir::toNativeSeparators(Share("Classe3/EQU_dupont_5_3_2016_14_7.txt"))))
        << fault.MessageText().toStdString();
}

TEST(NetworkJournalName, HasPlainNumbers)
{
    EXPECT_EQ(NetworkJournalName(u"dupont"_s, QDateTime(QDate(2016, 3, 5), QTime(14, 7, 59))),
              u"EQU_dupont_5_3_2016_14_7.txt"_s);
    EXPECT_EQ(NetworkJournalName(u"Inconnu"_s, QDateTime(QDate(2024, 12, 31), QTime(0, 0))),
              u"EQU_Inconnu_31_12_2024_0_0.txt"_s);
    // What stands in a name is not read as a place for a number.
    EXPECT_EQ(NetworkJournalName(u"a%1/b"_s, QDateTime(QDate(2016, 3, 5), QTime(14, 7))),
              u"EQU_a%1_b_5_3_2016_14_7.txt"_s);
}

TEST_F(FrmDepot, ExplainsWhatIsAsked)
{
    EXPECT_EQ(window.windowTitle(), u"Stoikal - Réseau"_s);
    EXPECT_EQ(Control<QLabel>(window, "lblInfo").text(),
              u"Pour une utilisation en réseau, vous avez créé\n"
              "au préalable un répertoire sans droit pour les élèves.\n\n"
              "Par défaut, ce répertoire a pour nom 'Dépôt'\n"
              "Si vous souhaitez le changer, saisissez le nouveau nom\n"
              "dans la zone de texte ci-dessous."_s);
    EXPECT_EQ(Control<QLabel>(window, "lblTexte").text(), u"Nom du dossier  : "_s);
    EXPECT_EQ(Control<QPushButton>(window, "cmdOK").text(), u"OK"_s);
    EXPECT_EQ(window.FolderName(), u"Dépôt"_s);
}

TEST_F(FrmDepot, RefusesAnEmptyName)
{
    window.show();
    window.activateWindow();
    Settle();
    txtDepot.clear();
    Control<QPushButton>(window, "cmdOK").setFocus();

    Click(Control<QPushButton>(window, "cmdOK"));

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal - Erreur"_s);
    EXPECT_EQ(messages.shown[0].text, u"Veuillez saisir un nom valide"_s);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(txtDepot.hasFocus());
}

TEST_F(FrmDepot, StaysWhenTheNameCannotBeStored)
{
    messages.answers = {QMessageBox::Yes};

    EnterOnAFullDisk(u"Classe3"_s);

    ASSERT_EQ(messages.shown.size(), 1U);
    const QString text = messages.shown[0].text;
    EXPECT_TRUE(text.startsWith(u"Le nom du dossier n'a pas été enregistré.\n\n"_s)) << text.toStdString();
    EXPECT_TRUE(text.contains(ini)) << text.toStdString();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.FolderName(), u"Classe3"_s);

    Click(Control<QPushButton>(window, "cmdOK"));

    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(settings.Read(u"Réseau"_s, u"Dossier Dépôt"_s), u"Classe3"_s);
}

TEST_F(FrmDepot, NameThatCannotBeStoredServesThisOnceOnNo)
{
    messages.answers = {QMessageBox::No};

    EnterOnAFullDisk(u"Classe3"_s);

    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.FolderName(), u"Classe3"_s);
    EXPECT_EQ(settings.Read(u"Réseau"_s, u"Dossier Dépôt"_s), QString());
}

} // namespace stoikal
