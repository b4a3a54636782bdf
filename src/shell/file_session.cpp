#include "shell/file_session.h"

#include "base/fatal_fault.h"
#include "base/password_file.h"
#include "base/settings_store.h"
#include "equation_files/equation_file.h"
#include "exercise/exercise_run.h"
#include "exercise/journal_lines.h"
#include "exercise/mark.h"
#include "exercise/results_journal.h"
#include "exercise/windows/frm_note.h"
#include "exercise/windows/journal_messages.h"
#include "forms/messages.h"
#include "platform/doors.h"
#include "shell/data_folders.h"
#include "shell/password_store.h"
#include "shell/product.h"
#include "shell/run_controller.h"
#include "shell/session_state.h"
#include "shell/stopwatch_controller.h"
#include "shell/windows/frm_name.h"
#include "shell/windows/frm_stoikal.h"
#include "shell/windows/option_form.h"

namespace stoikal {
namespace {

QString Options()
{
    return QStringLiteral("Options");
}

QString FilesByDefault()
{
    return QStringLiteral("Files by default");
}

bool IsFilterSetting(const QString& value)
{
    return value == QLatin1String("EQU") || value == QLatin1String("AVT");
}

/// Nothing is wrong with the files: others are writing them.
QString BusyText(const QString& reason)
{
    return QStringLiteral("%1\n\nD'autres programmes écrivent ces fichiers en ce moment.\n"
                          "Si vous annulez, votre résultat ne figurera pas dans le tableau des records.")
        .arg(reason);
}

QString EmptyFileText(const QString& title)
{
    return QStringLiteral("Le fichier sélectionné ne contient aucune équation.\n"
                          "Dans le menu Fichier, cliquez sur Modifier un fichier d'équations existant ...\n"
                          "Sélectionnez le fichier %1 et rajoutez une série d'équations.")
        .arg(title);
}

} // namespace

FileSession::FileSession(const Services& services, frmStoikal& mainWindow, RunController& windows,
                         StopwatchController& stopwatch)
    : m_services(services)
    , m_mainWindow(mainWindow)
    , m_windows(windows)
    , m_stopwatch(stopwatch)
{
    // The mark's window comes once the click that ended the file is over.
    connect(&windows, &RunController::EndOfFileReached, this, &FileSession::EndOfFile, Qt::QueuedConnection);
    connect(&windows, &RunController::CloseAsked, this, &FileSession::Mnu_Close_Click);
}

void FileSession::Mnu_Open_Click(int index)
{
    Q_EMIT OpenConsidered();
    if (!m_services.pupil.IsIdentified() && !Identify())
        return;
    m_services.settings.Remember(Options(), FilesByDefault(),
                                 index == 0 ? QStringLiteral("EQU") : QStringLiteral("AVT"));
    OpenEquationFile();
}

bool FileSession::Identify()
{
    Pupil& pupil = m_services.pupil;
    frmName window(m_services.messages, m_services.sound, &m_mainWindow);
    switch (window.exec()) {
    case frmName::Identified:
        pupil = {window.Nom(), window.Prenom(), window.Classe()};
        WriteToJournal(m_services.journal, m_services.messages, &m_mainWindow,
                       IdentityLines(pupil.NomEleve, pupil.PrenomEleve, pupil.ClasseEleve));
        break;
    case frmName::Cancelled:
        pupil = {};
        m_mainWindow.activateWindow();
        break;
    case frmName::EndOfProgram:
        Q_EMIT EndAsked();
        return false;
    default:
        break;
    }
    return pupil.IsIdentified();
}

bool FileSession::ChooseFile()
{
    QString byDefault = m_services.settings.Read(Options(), FilesByDefault());
    if (!IsFilterSetting(byDefault)) {
        m_services.settings.Remember(Options(), FilesByDefault(), QStringLiteral("EQU"));
        frmEtude window(&m_mainWindow);
        window.exec();
        const auto written
            = m_services.settings.Write(Options(), FilesByDefault(),
                                        window.Chosen() == 0 ? QStringLiteral("EQU") : QStringLiteral("AVT"));
        if (!written)
            m_services.messages.Critical(
                &m_mainWindow, QStringLiteral("Stoikal"),
                QStringLiteral("Votre choix n'a pas été enregistré\u00A0: il sera redemandé.\n\n%1")
                    .arg(written.Reason()));
        byDefault = m_services.settings.Read(Options(), FilesByDefault());
    }
    const auto choice = m_services.dialogs.OpenFile(
        &m_mainWindow,
        {QStringLiteral("cdgOpen"),
         QStringLiteral("Ouvrir un fichier d'équations"),
         m_services.places.DossierDocuments + OwnFolder(),
         {QStringLiteral("Stoikal Equilibrage (*.Equ)"), QStringLiteral("Stoikal Avancement (*.Avt)")},
         byDefault == QLatin1String("AVT") ? 1 : 0,
         {}});
    if (!choice)
        return false;
    m_services.run.ChooseFile(choice->path);
    m_services.settings.Remember(Options(), FilesByDefault(),
                                 choice->filter == 1 ? QStringLiteral("AVT") : QStringLiteral("EQU"));
    return true;
}

bool FileSession::OpenEquationFile()
{
    m_stopwatch.Reset();
    return ChooseFile() && ReadChosenFile();
}

void FileSession::OpenKnownFile(const QString& path)
{
    if (!m_services.pupil.IsIdentified() && !Identify())
        return;
    m_stopwatch.Reset();
    m_services.run.ChooseFile(path);
    ReadChosenFile();
}

bool FileSession::ReadChosenFile()
{
    ExerciseRun& run = m_services.run;
    const RunState& state = run.State();
    if (IsPasswordFile(state.CheminFichier, CommonPasswordFile(m_services.places))) {
        RefuseFile(PasswordFileRefusal());
        return false;
    }
    auto file = EquationFile::Open(state.CheminFichier);
    if (!file && EquationFile::IsNone(state.CheminFichier)) {
        RefuseFile(file.Reason() + QStringLiteral("\n\nChoisissez un autre fichier."));
        return false;
    }
    if (!file)
        throw FatalFault(file.Reason(), state.CheminFichier, 0, {});
    const FirstPass pass = file->Pass();
    if (pass.equationCount == 0) {
        RefuseFile(EmptyFileText(state.TitreFichier));
        return false;
    }
    run.SetKind(pass.hasProgressData ? AskForKind() : RunKind::Balancing);
    if (state.IsScored())
        m_stopwatch.Lock(true);
    run.Open(*file);
    StartRun(pass.equationCount);
    return true;
}

RunKind FileSession::AskForKind()
{
    frmChoixSimul window(&m_mainWindow);
    window.exec();
    return window.Chosen() == 0 ? RunKind::Series : RunKind::FreeSimulation;
}

void FileSession::RefuseFile(const QString& reason)
{
    m_services.run.ForgetFile();
    m_services.messages.Critical(&m_mainWindow, QStringLiteral("Stoikal"), reason);
}

void FileSession::StartRun(int equationCount)
{
    const QString& title = m_services.run.State().TitreFichier;
    m_mainWindow.SetCaption(QStringLiteral("%1 - %2 - %3 équations")
                                .arg(product::Caption(), title, QString::number(equationCount)));
    WriteToJournal(m_services.journal, m_services.messages, &m_mainWindow,
                   HeaderLines(title, equationCount, m_services.clock.Now()));
    m_windows.CloseMolarMasses();
    Q_EMIT ToolsToHide();
    Q_EMIT RunBegins();
    m_windows.Open();
}

void FileSession::LeaveRun()
{
    m_services.run.Close();
    m_windows.CloseMolarMasses();
    Q_EMIT ToolsToHide();
    m_windows.CloseExercise();
    m_mainWindow.SetCaption(product::Caption());
    Q_EMIT RunEnded();
}

void FileSession::CloseRun()
{
    LeaveRun();
    ReturnHome();
}

void FileSession::ReturnHome()
{
    m_windows.CloseAtoms();
    m_services.run.ForgetFile();
    m_stopwatch.Reset();
    m_mainWindow.activateWindow();
}

void FileSession::Mnu_Close_Click()
{
    if (!m_services.run.IsUnderWay())
        return;
    Q_EMIT CloseConsidered();
    m_windows.HideWindowsOfRun();
    const bool closes
        = m_services.messages.Ask(&m_mainWindow, QStringLiteral("Stoikal"),
                                  QStringLiteral("Etes-vous sûr de vouloir fermer ce fichier ?"));
    m_windows.ShowExercise();
    if (closes)
        CloseRun();
    else
        m_windows.ShowWindowsOfRun();
}

/// The table with the result in it; nothing when it could not be recorded, which was
/// told then.
std::optional<std::vector<HighScore>> FileSession::RecordHighScore(const NewResult& own, QChar separator)
{
    const Places& places = m_services.places;
    HighScoreFile file(places.ModeReseau ? DepositFolder(places) : places.DossierResultats);
    for (;;) {
        const auto section = file.Record(m_services.run.State().TitreFichier, own, separator);
        if (section)
            return *section;
        if (!file.WasBusy()) {
            m_services.messages.Critical(&m_mainWindow, QStringLiteral("Stoikal"), section.Reason());
            return std::nullopt;
        }
        if (!m_services.messages.AskRetry(&m_mainWindow, QStringLiteral("Stoikal"),
                                          BusyText(section.Reason())))
            return std::nullopt;
    }
}

void FileSession::EndOfFile()
{
    // The run may have been closed since, by the end of the program.
    if (!m_services.run.IsOver())
        return;
    const RunState& state = m_services.run.State();
    const QChar separator = m_services.regional.DecimalSeparator();
    const bool isScored = state.IsScored();
    const NewResult own{m_services.pupil.NomEleve, Mark(state.Score, state.MaxScore),
                        m_services.seconds.ElapsedSeconds};
    std::optional<frmNote::Earned> earned;
    if (isScored)
        earned = frmNote::Earned{own.mark, own.seconds};

    frmNote window(m_services.places, separator, state.TitreFichier, earned, &m_mainWindow);
    m_windows.HideAtoms();
    m_stopwatch.Stop();
    if (isScored)
        WriteToJournal(m_services.journal, m_services.messages, &m_mainWindow,
                       {MarkLine(own.mark, own.seconds, separator)});
    LeaveRun();
    if (isScored) {
        if (const auto section = RecordHighScore(own, separator))
            window.ShowHighScores(*section, own);
    }
    window.Place(m_services.screen);
    switch (window.exec()) {
    case frmNote::Again:
        m_windows.CloseAtoms();
        if (!OpenEquationFile())
            ReturnHome();
        break;
    case frmNote::End:
        Q_EMIT EndAsked();
        break;
    default:
        ReturnHome();
        break;
    }
}

} // namespace stoikal
