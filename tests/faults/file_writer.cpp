// A program that changes one of the files that Stoikal writes, for the tests of
// power cuts, full disks and many programs at once:
//
//     file_writer KIND FOLDER TEXT
//
// It prints "ready", waits for a line of its input, writes, and prints "written"
// or "refused" and why. A refusal is exit code 1. The text is what the change
// brings in. "many" before the kind writes 50 times, the text with a number;
// "step" writes so for each further line of the input, and tells "done" each time.

#include "balancing/equation_search.h"
#include "base/full_disk.h"
#include "base/places.h"
#include "base/settings_store.h"
#include "base/shared_file.h"
#include "base/whole_file.h"
#include "editor/equation_file_io.h"
#include "editor/work_file.h"
#include "exercise/high_score_file.h"
#include "exercise/results_journal.h"
#include "platform/qt_platform.h"
#include "shell/data_folders.h"
#include "shell/password_store.h"
#include "tools/text_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <functional>
#include <iostream>
#include <limits>
#include <string>

using namespace stoikal;
using namespace Qt::StringLiterals;

namespace {

using Change = std::function<Outcome<QString>(const QString& folder, const QString& text)>;

/// An outcome of any kind as one of texts.
template <typename Value>
Outcome<QString> Told(const Outcome<Value>& outcome)
{
    if (!outcome)
        return Failure{outcome.Reason()};
    return QString();
}

Outcome<QString> Told(bool isWritten)
{
    if (!isWritten)
        return Failure{u"not written"_s};
    return QString();
}

Outcome<QString> ChangeSettings(const QString& folder, const QString& text)
{
    SettingsStore store;
    return Told(store.Change(folder + u"/settings.ini"_s, [&text](ProfileText& file) {
        file.Write(u"Options"_s, u"New "_s + text, text);
    }));
}

Outcome<QString> AddToJournal(const QString& folder, const QString& text)
{
    ResultsJournal journal;
    const auto opened = journal.Open(folder + u"/Resultat.txt"_s);
    if (!opened)
        return opened;
    return Told(journal.WriteLines({text}) && journal.Close());
}

Outcome<QString> RecordHighScore(const QString& folder, const QString& text)
{
    return Told(HighScoreFile(folder).Record(u"Serie.Equ"_s, {text, 12, 60}, u','));
}

/// What the next recording does first: it mends what a cut left.
Outcome<QString> MendHighScores(const QString& folder, const QString&)
{
    return FinishRewriting(folder + u"/HighScore.txt"_s, folder + u"/HighScore_Temp.txt"_s,
                           kScoresLimit.bytes);
}

Outcome<QString> SetPassword(const QString& folder, const QString& text)
{
    Places state;
    state.ModeReseau = true;
    state.DossierResultats = folder;
    SettingsStore store;
    Settings settings(store, state.IniUtilisateur);
    return Told(PasswordStore(state, settings).Write(text));
}

Outcome<QString> WriteEquations(const QString& folder, const QString& text)
{
    return Told(WriteEquationFile(folder, u"Serie.Equ"_s, text.toLatin1()));
}

Outcome<QString> AppendFound(const QString& folder, const QString& text)
{
    return Told(EquationAppender::AppendLines(folder + u"/Serie.Equ"_s, {text.toLatin1()}));
}

Outcome<QString> AppendBalanced(const QString& folder, const QString& text)
{
    return Told(EquationAppender::AppendEquation(folder + u"/Serie.Equ"_s, text));
}

Outcome<QString> StoreWork(const QString& folder, const QString& text)
{
    SettingsStore store;
    WorkFile work(store, folder + u"/FileTemp.txt"_s);
    WorkEquation equation;
    equation.Comment = text;
    WorkDesk desk;
    desk.isUnfinished = true;
    return Told(work.Store(1, equation, desk));
}

Outcome<QString> SaveText(const QString& folder, const QString& text)
{
    TextFile file(folder + u"/TipOfDayEqChm.txt"_s);
    const auto lines = file.Load();
    if (!lines)
        return Told(lines);
    return Told(file.Save(*lines + QStringList{text}));
}

/// What ships stands in FOLDER/ships and goes to FOLDER/documents/....
Outcome<QString> SeedFolder(const QString& folder, const QString&)
{
    QtDesktop desktop;
    struct Shipped final : Folders {
        QString folder;
        QString CommonAppData() const override { return folder; }
        QString CommonDocuments() const override { return folder; }
        QString Program() const override { return folder; }
        QStringList SeedFiles() const override
        {
            const QDir shipped(folder + u"/ships"_s);
            QStringList paths;
            const QStringList names = shipped.entryList(QDir::Files, QDir::Name);
            for (const QString& name : names)
                paths << shipped.filePath(name);
            return paths;
        }
        QString NetworkRoot() const override { return {}; }
        QString Cache() const override { return folder; }
    } shipped;
    shipped.folder = folder;
    const Platform doors{desktop.clock,   shipped,       desktop.user,      desktop.regional,
                         desktop.screen,  desktop.sound, desktop.dialogs,   desktop.programs,
                         desktop.browser, desktop.web,   desktop.clipboard, desktop.randomness,
                         desktop.trash};
    return Told(SeedEquationFolder(folder + u"/documents/Stoikal"_s, doors));
}

const QHash<QString, Change>& Kinds()
{
    static const QHash<QString, Change> kKinds{{u"settings"_s, ChangeSettings},
                                               {u"journal"_s, AddToJournal},
                                               {u"high_scores"_s, RecordHighScore},
                                               {u"shared_scores"_s, RecordHighScore},
                                               {u"mend_scores"_s, MendHighScores},
                                               {u"password"_s, SetPassword},
                                               {u"equations"_s, WriteEquations},
                                               {u"found"_s, AppendFound},
                                               {u"balanced"_s, AppendBalanced},
                                               {u"work_file"_s, StoreWork},
                                               {u"text"_s, SaveText},
                                               {u"seeds"_s, SeedFolder}};
    return kKinds;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    TreatFileSizeLimitAsFullDisk();
    QStringList arguments = QCoreApplication::arguments().sliced(1);
    const bool isMany = arguments.value(0) == u"many"_s;
    const bool isStep = arguments.value(0) == u"step"_s;
    if (isMany || isStep)
        arguments.removeFirst();
    if (arguments.size() != 3 || !Kinds().contains(arguments.at(0))) {
        std::cerr << "usage: file_writer [many | step] KIND FOLDER TEXT\n";
        return 2;
    }
    const Change change = Kinds().value(arguments.at(0));
    std::cout << "ready" << std::endl;
    std::string line;
    std::getline(std::cin, line);

    const int turns = isMany ? 50 : isStep ? std::numeric_limits<int>::max() : 1;
    for (int turn = 0; turn < turns && std::cin; ++turn) {
        const QString text = turns > 1 ? arguments.at(2) + QString::number(turn) : arguments.at(2);
        const auto outcome = change(arguments.at(1), text);
        if (!outcome) {
            std::cout << "refused " << outcome.Reason().toStdString() << std::endl;
            return 1;
        }
        if (isStep) {
            std::cout << "done" << std::endl;
            std::getline(std::cin, line);
        }
    }
    std::cout << "written" << std::endl;
    return 0;
}
