#include "shell/file_session.h"

#include "base/fatal_fault.h"
#include "base/password_file.h"
#include "equation_files/equation_file.h"
#include "exercise/journal_lines.h"
#include "exercise/mark.h"
#include "exercise/windows/frm_note.h"
#include "exercise/windows/journal_messages.h"
#include "forms/messages.h"
#include "shell/data_folders.h"
#include "shell/exercise_desk.h"
#include "shell/menu_tree.h"
#include "shell/password_store.h"
#include "shell/product.h"
#include "shell/session.h"
#include "shell/windows/frm_name.h"
#include "shell/windows/frm_stoikal.h"
#include "shell/windows/option_form.h"

#include <QFileInfo>

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

FileSession::FileSession(Session& session, frmStoikal& mainWindow, ExerciseDesk& desk)
    : m_session(session)
    , m_mainWindow(mainWindow)
    , m_desk(desk)
{
    // The mark's window comes once the click that ended the file is over.
    connect(&desk, &ExerciseDesk::EndOfFileReached, this, &FileSession::EndOfFile, Qt::QueuedConnection);
    connect(&desk, &ExerciseDesk::CloseAsked, this, &FileSession::Mnu_Close_Click);
}

void FileSession::Mnu_Open_Click(int index)
{
    Q_EMIT OpenConsidered();
    if (m_session.state.NomEleve.isEmpty() && !Identify())
        return;
    m_session.settings.Remember(Options(), FilesByDefault(),
                                index == 0 ? QStringLiteral("EQU") : QStringLiteral("AVT"));
    OpenEquationFile();
}

bool FileSession::Identify()
{
    SessionState& state = m_session.state;
    frmName window(m_session.messages, m_session.desktop.sound, &m_mainWindow);
    switch (window.exec()) {
    case frmName::Identified:
        state.NomEleve = window.Nom();
        state.PrenomEleve = window.Prenom();
        state.ClasseEleve = window.Classe();
        WriteToJournal(m_session.journal, m_session.messages, &m_mainWindow,
                       IdentityLines(state.NomEleve, state.PrenomEleve, state.ClasseEleve));
        break;
    case frmName::Cancelled:
        state.NomEleve.clear();
        state.PrenomEleve.clear();
        state.ClasseEleve.clear();
        m_mainWindow.activateWindow();
        break;
    case frmName::EndOfProgram:
        Q_EMIT EndAsked();
        return false;
    default:
        break;
    }
    return !state.NomEleve.isEmpty();
}

bool FileSession::ChooseFile()
{
    SessionState& state = m_session.state;
    QString byDefault = m_session.settings.Read(Options(), FilesByDefault());
    if (!IsFilterSetting(byDefault)) {
        m_session.settings.Remember(Options(), FilesByDefault(), QStringLiteral("EQU"));
        frmEtude window(&m_mainWindow);
        window.exec();
        const auto written
            = m_session.settings.Write(Options(), FilesByDefault(),
                                       window.Chosen() == 0 ? QStringLiteral("EQU") : QStringLiteral("AVT"));
        if (!written)
            m_session.messages.Critical(
                &m_mainWindow, QStringLiteral("Stoikal"),
                QStringLiteral("Votre choix n'a pas été enregistré\u00A0: il sera redemandé.\n\n%1")
                    .arg(written.Reason()));
        byDefault = m_session.settings.Read(Options(), FilesByDefault());
    }
    const auto choice = m_session.desktop.dialogs.OpenFile(
        &m_mainWindow,
        {QStringLiteral("cdgOpen"),
         QStringLiteral("Ouvrir un fichier d'équations"),
         state.DossierDocuments + OwnFolder(),
         {QStringLiteral("Stoikal Equilibrage (*.Equ)"), QStringLiteral("Stoikal Avancement (*.Avt)")},
         byDefault == QLatin1String("AVT") ? 1 : 0,
         {}});
    if (!choice)
        return false;
    state.CheminFichier = choice->path;
    state.TitreFichier = QFileInfo(choice->path).fileName();
    m_session.settings.Remember(Options(), FilesByDefault(),
                                choice->filter == 1 ? QStringLiteral("AVT") : QStringLiteral("EQU"));
    return true;
}

bool FileSession::OpenEquationFile()
{
    m_desk.ResetChrono();
    return ChooseFile() && ReadChosenFile();
}

void FileSession::OpenKnownFile(const QString& path)
{
    if (m_session.state.NomEleve.isEmpty() && !Identify())
        return;
    m_desk.ResetChrono();
    m_session.state.CheminFichier = path;
    m_session.state.TitreFichier = QFileInfo(path).fileName();
    ReadChosenFile();
}

bool FileSession::ReadChosenFile()
{
    SessionState& state = m_session.state;
    state.NumEquation = 0;
    if (IsPasswordFile(state.CheminFichier, CommonPasswordFile(state))) {
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
    state.FichierAvancement = pass.hasProgressData;
    state.SerieExercices = false;
    if (pass.equationCount == 0) {
        RefuseFile(EmptyFileText(state.TitreFichier));
        return false;
    }
    if (state.FichierAvancement) {
        frmChoixSimul window(&m_mainWindow);
        window.exec();
        state.SerieExercices = window.Chosen() == 0;
    }
    if (state.IsScored())
        m_desk.LockChrono(true);
    m_session.run.Open(*file);
    StartRun(pass.equationCount);
    return true;
}

void FileSession::RefuseFile(const QString& reason)
{
    m_session.state.CheminFichier.clear();
    m_session.state.TitreFichier.clear();
    m_session.messages.Critical(&m_mainWindow, QStringLiteral("Stoikal"), reason);
}

void FileSession::StartRun(int equationCount)
{
    const QString& title = m_session.state.TitreFichier;
    m_mainWindow.SetCaption(QStringLiteral("%1 - %2 - %3 équations")
                                .arg(product::Caption(), title, QString::number(equationCount)));
    WriteToJournal(m_session.journal, m_session.messages, &m_mainWindow,
                   HeaderLines(title, equationCount, m_session.desktop.clock.Now()));
    SetFileSessionMenus(m_session.menu, true);
    Q_EMIT ToolsToHide();
    Q_EMIT RunBegins();
    m_desk.Open();
}

void FileSession::LeaveRun()
{
    m_session.run.Close();
    Q_EMIT ToolsToHide();
    m_desk.CloseExercise();
    m_mainWindow.SetCaption(product::Caption());
    SetFileSessionMenus(m_session.menu, false);
    Q_EMIT RunEnded();
}

void FileSession::CloseRun()
{
    LeaveRun();
    ReturnHome();
}

void FileSession::ReturnHome()
{
    m_desk.CloseAtoms();
    m_session.state.CheminFichier.clear();
    m_session.state.TitreFichier.clear();
    m_desk.ResetChrono();
    m_mainWindow.activateWindow();
}

void FileSession::Mnu_Close_Click()
{
    if (!m_session.run.IsUnderWay())
        return;
    Q_EMIT CloseConsidered();
    m_desk.HideWindowsOfRun();
    const bool closes
        = m_session.messages.Ask(&m_mainWindow, QStringLiteral("Stoikal"),
                                 QStringLiteral("Etes-vous sûr de vouloir fermer ce fichier ?"));
    m_desk.ShowExercise();
    if (closes)
        CloseRun();
    else
        m_desk.ShowWindowsOfRun();
}

/// The table with the result in it; nothing when it could not be recorded, which was
/// told then.
std::optional<std::vector<HighScore>> FileSession::RecordHighScore(const NewResult& own, QChar separator)
{
    const SessionState& state = m_session.state;
    HighScoreFile file(state.ModeReseau ? DepositFolder(state) : state.DossierResultats);
    for (;;) {
        const auto section = file.Record(state.TitreFichier, own, separator);
        if (section)
            return *section;
        if (!file.WasBusy()) {
            m_session.messages.Critical(&m_mainWindow, QStringLiteral("Stoikal"), section.Reason());
            return std::nullopt;
        }
        if (!m_session.messages.AskRetry(&m_mainWindow, QStringLiteral("Stoikal"),
                                         BusyText(section.Reason())))
            return std::nullopt;
    }
}

void FileSession::EndOfFile()
{
    // The run may have been closed since, by the end of the program.
    if (!m_session.run.IsOver())
        return;
    SessionState& state = m_session.state;
    const QChar separator = m_session.desktop.regional.DecimalSeparator();
    const ExerciseState result = m_session.run.State();
    const bool isScored = state.IsScored();
    const NewResult own{state.NomEleve, Mark(result.Score, result.MaxScore), state.ElapsedSeconds};
    std::optional<frmNote::Earned> earned;
    if (isScored)
        earned = frmNote::Earned{own.mark, own.seconds};

    frmNote window(state, separator, state.TitreFichier, earned, &m_mainWindow);
    m_desk.HideAtoms();
    m_desk.StopChrono();
    if (isScored)
        WriteToJournal(m_session.journal, m_session.messages, &m_mainWindow,
                       {MarkLine(own.mark, own.seconds, separator)});
    LeaveRun();
    if (isScored) {
        if (const auto section = RecordHighScore(own, separator))
            window.ShowHighScores(*section, own);
    }
    window.Place(m_session.desktop.screen);
    switch (window.exec()) {
    case frmNote::Again:
        m_desk.CloseAtoms();
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
