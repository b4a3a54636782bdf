#include "scarce_memory.h"

#include "base/places.h"
#include "base/settings_store.h"
#include "editor/work_file.h"
#include "equation_files/equation_file.h"
#include "equation_files/equation_line.h"
#include "exercise/high_score_file.h"
#include "help/help_file.h"
#include "shell/password_store.h"
#include "tools/text_file.h"
#include "tools/tip_list.h"

#include "support/file_bytes.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <new>
#include <optional>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// How many files this program holds open.
qsizetype OpenFiles()
{
    return QDir(u"/proc/self/fd"_s).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size();
}

/// A reader while memory runs out at its first piece, its second, and so on until it
/// needs no more. It gives what it always gives, fails with a reason, or lets
/// std::bad_alloc through; it ends nothing, holds no file open, and reads well again.
template <typename Read>
void ReadWithoutMemory(Read read)
{
    const auto whole = read();
    ASSERT_TRUE(whole);
    const qsizetype openFiles = OpenFiles();
    int refusals = 0;
    for (int pieces = 0;; pieces += 1 + pieces / 20) {
        std::optional<decltype(read())> got;
        bool hasRefused = false;
        {
            const ScarceMemory scarce(pieces);
            try {
                got = read();
            } catch (const std::bad_alloc&) {
            }
            hasRefused = ScarceMemory::HasRefused();
        }
        if (!hasRefused)
            break;
        ++refusals;
        if (got && *got) {
            EXPECT_EQ(**got, *whole) << "at piece " << pieces;
        }
        ASSERT_EQ(OpenFiles(), openFiles) << "at piece " << pieces;
    }
    EXPECT_GT(refusals, 3);
    const auto again = read();
    ASSERT_TRUE(again);
    EXPECT_EQ(*again, *whole);
}

constexpr const char* kSettings
    = "[Options]\r\nFiles by default=EQU\r\nPassWord=un mot de passe\r\n[Autre]\r\nx=1\r\n";
constexpr const char* kLines = "Une premi\xE8re ligne\r\nla deuxi\xE8me ligne\r\nune troisi\xE8me\r\n";

class FailingAllocations : public testing::Test
{
protected:
    QString File(const QString& name, const QByteArray& bytes) const
    {
        const QString path = folder.filePath(name);
        WriteBytes(path, bytes);
        return path;
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(FailingAllocations, ExerciseIsReadOrNot)
{
    const QString path = File(u"Serie.Equ"_s,
                              "'T\xEAte\r\nFe{3+}+Cu<s>=Fe{2+}+Cu{2+}/2,1,2,1\r\n\r\n"
                              "CH4+O2=CO2+H2O/1,2,1,2#Q1,Q2,Q0,Q0\r\n");

    ReadWithoutMemory([&path]() -> Outcome<QStringList> {
        auto file = EquationFile::Open(path);
        if (!file)
            return file.Why();
        QStringList read;
        while (file->NextLine()) {
            const ParsedLine parsed = ParseEquationLine(file->Line());
            for (const SpeciesSlot& slot : parsed.record.Slots)
                read << slot.Molecule << slot.Etat << slot.MVQ;
        }
        return read;
    });
}

TEST_F(FailingAllocations, SettingsAreReadOrNot)
{
    const QString path = File(u"ConfEQU_dupont.ini"_s, kSettings);

    ReadWithoutMemory([&path]() -> Outcome<QString> {
        const SettingsStore store;
        return store.ReadSetting(path, u"Options"_s, u"PassWord"_s);
    });
}

TEST_F(FailingAllocations, SettingsAreReadByAStoreThatCouldNotReadThemBefore)
{
    const QString path = File(u"ConfEQU_dupont.ini"_s, kSettings);

    ReadWithoutMemory([&path]() -> Outcome<QString> {
        const SettingsStore store;
        try {
            (void)store.ReadSetting(path, u"Options"_s, u"PassWord"_s);
        } catch (const std::bad_alloc&) {
        }
        return store.ReadSetting(path, u"Options"_s, u"PassWord"_s);
    });
}

TEST_F(FailingAllocations, PasswordOfAClassIsReadOrNot)
{
    File(u"MotDePasse.txt"_s, "un mot de passe assez long\r\n");
    Places state;
    state.ModeReseau = true;
    state.DossierResultats = folder.path();
    SettingsStore store;
    Settings settings(store, state.IniUtilisateur);
    const PasswordStore password(state, settings);

    ReadWithoutMemory([&password] { return password.Read(); });
}

TEST_F(FailingAllocations, TipsAreReadOrNot)
{
    const QString path = File(u"TipOfDayEqChm.txt"_s, kLines);

    ReadWithoutMemory([&path]() -> Outcome<QString> {
        TipList tips;
        const auto loaded = tips.LoadTips(path);
        if (!loaded)
            return loaded.Why();
        tips.Choose(0.5);
        return tips.Tip();
    });
}

TEST_F(FailingAllocations, ResultsAreReadOrNot)
{
    TextFile results(File(u"Resultat.txt"_s, kLines));

    ReadWithoutMemory([&results] { return results.LoadEnd(); });
}

TEST_F(FailingAllocations, WorkOfTheEditorIsReadOrNot)
{
    SettingsStore store;
    WorkFile work(store, folder.filePath(u"FileTemp.txt"_s));
    WorkDesk desk;
    desk.head = u"Une série\nde deux lignes"_s;
    desk.isUnfinished = true;
    WorkEquation equation;
    equation.Molecule = {u"H2"_s, u"O2"_s, QString(), u"H2O"_s};
    equation.Comment = QString(300, u'é');
    ASSERT_TRUE(work.BeginWith(desk, {equation}));

    ReadWithoutMemory([path = work.Path()]() -> Outcome<WorkEquation> {
        SettingsStore anew;
        const WorkFile left(anew, path);
        if (!left.LeftBehind())
            return Failure{u"nothing is left behind"_s};
        return left.Equation(1);
    });
}

TEST_F(FailingAllocations, HighScoresAreReadOrNot)
{
    const QStringList lines{u"'mot"_s, u"#Serie.Equ"_s, u"DUPONT©19.2©60"_s, u"#Autre.Equ"_s};

    ReadWithoutMemory([&lines]() -> Outcome<QString> {
        const HighScoreTable table(lines, u"Serie.Equ"_s);
        return table.Section().at(0).name;
    });
}

TEST_F(FailingAllocations, ResultIsEnteredInTheHighScoresOrNot)
{
    const QByteArray before("#Serie.Equ\r\nDUPONT\xA9"
                            "19.2\xA9"
                            "60\r\n#Autre.Equ\r\n");
    const QString path = File(u"HighScore.txt"_s, before);

    ReadWithoutMemory([this]() -> Outcome<QByteArray> {
        {
            const auto entered
                = HighScoreFile(folder.path()).Record(u"Serie.Equ"_s, {u"PETIT"_s, 12, 70}, u',');
            if (!entered)
                return entered.Why();
        }
        return QByteArray("entered");
    });
}

TEST_F(FailingAllocations, HelpIsReadOrNot)
{
    const QString path = QStringLiteral(STOIKAL_HELP_DIR) + u"/Glossaire_Atomes.chm"_s;

    ReadWithoutMemory([&path]() -> Outcome<QString> {
        const auto file = HelpFile::Open(path);
        if (!file)
            return file.Why();
        return (*file)->Text((*file)->StartPage());
    });
}

} // namespace stoikal
