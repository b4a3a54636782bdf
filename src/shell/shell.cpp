#include "shell/shell.h"

#include "base/fatal_fault.h"
#include "base/shown_path.h"
#include "forms/messages.h"
#include "shell/help_topics.h"
#include "shell/windows/frm_about.h"

#include <iterator>

namespace stoikal {
namespace {

/// The same services with other dialogs of files.
Platform WithDialogs(const Platform& services, Dialogs& dialogs)
{
    return {services.clock,    services.folders,   services.user,
            services.regional, services.screen,    services.sound,
            dialogs,           services.programs,  services.browser,
            services.web,      services.clipboard, services.randomness,
            services.trash};
}

} // namespace

Shell::Shell(const Platform& desktop, Messages& messages)
    : m_messages(messages)
    , m_dialogs(desktop.dialogs, messages, m_state.places)
    , m_desktop(WithDialogs(desktop, m_dialogs))
    , m_settings(m_store, m_state.places.IniUtilisateur)
    , m_run(m_state.run)
    , m_host{m_mainWindow, m_desktop.screen, m_settings, m_state.places}
    , m_stopwatch({m_desktop.clock, m_desktop.sound, m_desktop.screen, m_desktop.regional, m_state.stopwatch},
                  m_mainWindow)
    , m_molarMasses({m_run, messages, m_desktop.regional}, m_host)
    , m_runWindows({m_run, m_state.view, m_stopwatch, m_molarMasses, m_journal, messages, m_desktop.sound,
                    m_desktop.clipboard, m_desktop.regional},
                   m_host)
    , m_files({m_state.pupil, m_run, m_journal, m_state.places, m_state.stopwatch, m_settings, messages,
               m_desktop.dialogs, m_desktop.sound, m_desktop.clock, m_desktop.screen, m_desktop.regional},
              m_mainWindow, m_runWindows, m_stopwatch)
    , m_tools({m_desktop.clock, m_desktop.dialogs, messages, m_settings, m_desktop.sound, m_desktop.clipboard,
               m_desktop.randomness, m_desktop.regional, m_run},
              m_host, m_runWindows, m_files)
    , m_editor({m_desktop.clock, m_desktop.folders, m_desktop.screen, m_desktop.dialogs, messages, m_settings,
                m_store, m_state.places},
               m_mainWindow)
    , m_teacher({m_state.places, m_state.ActionMotPasse, m_journal, m_settings, messages, m_desktop.dialogs,
                 m_desktop.programs, m_desktop.trash, m_desktop.screen},
                {m_mainWindow, m_runWindows, m_files, m_tools, m_editor})
    , m_preferences({m_desktop.dialogs, messages, m_desktop.randomness}, m_host, m_runWindows, m_files)
    , m_help({m_desktop.folders, m_desktop.screen, messages, m_settings}, m_mainWindow)
    , m_startUp({m_state.places, m_journal, m_settings, messages, m_desktop}, m_mainWindow)
    , m_calculator({m_desktop.programs, messages}, m_mainWindow)
    , m_commands(Commands())
{
    Connect();
}

std::map<Command, std::function<void()>> Shell::Commands()
{
    std::map<Command, std::function<void()>> commands{
        {Command::OpenBalancing, [this] { m_files.Mnu_Open_Click(0); }},
        {Command::OpenProgress, [this] { m_files.Mnu_Open_Click(1); }},
        {Command::CloseFile, [this] { m_files.Mnu_Close_Click(); }},
        {Command::CreateFile, [this] { m_teacher.Ask(TeacherAction::CreateFile); }},
        {Command::ModifyFile, [this] { m_teacher.Ask(TeacherAction::ModifyFile); }},
        {Command::KillFile, [this] { m_teacher.Ask(TeacherAction::KillFile); }},
        {Command::ShowAnswers, [this] { m_teacher.Ask(TeacherAction::ShowAnswers); }},
        {Command::CleanAnswers, [this] { m_teacher.Ask(TeacherAction::CleanAnswers); }},
        {Command::EndProgram, [this] { EndProgram(); }},
        {Command::CopyEquation, [this] { m_runWindows.Mnu_Copy_Click(); }},
        {Command::DeleteCoefficients, [this] { m_runWindows.Mnu_Del_Click(); }},
        {Command::Atoms, [this] { m_runWindows.Mnu_Atome_Click(); }},
        {Command::MassMol, [this] { m_molarMasses.Mnu_MassMol_Click(); }},
        {Command::Charge, [this] { m_runWindows.Mnu_Charge_Click(); }},
        {Command::Calc, [this] { m_calculator.Mnu_Calc_Click(); }},
        {Command::Chrono, [this] { m_stopwatch.Mnu_Chrono_Click(); }},
        {Command::Pref, [this] { m_preferences.Mnu_Pref_Click(); }},
        {Command::Expert, [this] { m_teacher.ToggleTool(TeacherAction::OpenBalance); }},
        {Command::Search, [this] { m_teacher.ToggleTool(TeacherAction::OpenSearch); }},
        {Command::PeriodicTable, [this] { m_tools.Toggle(Command::PeriodicTable); }},
        {Command::CalMol, [this] { m_teacher.ToggleTool(TeacherAction::OpenCalMol); }},
        {Command::SimulAnim, [this] { m_tools.Toggle(Command::SimulAnim); }},
        {Command::HelpContents, [this] { m_help.Mnu_Help_Contents_Click(); }},
        {Command::HelpIndex, [this] { m_help.Mnu_Help_Index_Click(); }},
        {Command::GlossaryOfAtoms, [this] { m_help.Mnu_Glossaire_Click(); }},
        {Command::GlossaryOfScientists, [this] { m_help.Mnu_Gloss_sc_Click(); }},
        {Command::Tip, [this] { m_preferences.Mnu_Tip_Click(); }},
        {Command::MoreTip, [this] { m_teacher.Ask(TeacherAction::AddTip); }},
        {Command::Solution, [this] { m_teacher.Ask(TeacherAction::ShowSolution); }},
        {Command::Password, [this] { m_teacher.Mnu_Password_Click(); }},
        {Command::Web, [this] { Mnu_Web_Click(); }},
        {Command::About, [this] { Mnu_About_Click(); }},
    };
    for (int index = 0; index < static_cast<int>(std::size(kAtomSizes)); ++index)
        commands[kAtomSizes[index]] = [this, index] { m_runWindows.Mnu_Taille_Click(index); };
    for (int slot = 0; slot < static_cast<int>(std::size(kCompositions)); ++slot)
        commands[kCompositions[slot]] = [this, slot] { m_runWindows.Mnu_Compo_Click(slot); };
    return commands;
}

void Shell::Connect()
{
    connect(&m_mainWindow, &frmStoikal::EntryChosen, this, &Shell::Choose);
    connect(&m_mainWindow, &frmStoikal::ChildChosen, &m_runWindows, &RunController::ReturnToExercise);
    connect(&m_mainWindow, &frmStoikal::CloseAsked, this, &Shell::EndProgram);
    connect(&m_files, &FileSession::EndAsked, this, &Shell::EndProgram);
    connect(&m_startUp, &StartUp::TipAsked, &m_preferences, &PreferencesController::Mnu_Tip_Click);
    connect(&m_editor, &EditorController::HelpRequested, &m_help, &HelpController::ShowTopic);
    connect(&m_windowEvents, &WindowEvents::HelpRequested, this, &Shell::ShowHelpOf);
    connect(&m_windowEvents, &WindowEvents::PointerMoved, &m_calculator,
            &CalculatorWatch::CheckCalculatorClosed);
    connect(&m_windowEvents, &WindowEvents::PointerMoved, &m_runWindows, &RunController::NotePointer);
    // Whatever the menu bar shows is shown anew once it has changed.
    connect(&m_files, &FileSession::RunBegins, this, &Shell::ShowMenu);
    connect(&m_files, &FileSession::RunEnded, this, &Shell::ShowMenu);
    connect(&m_runWindows, &RunController::Changed, this, &Shell::ShowMenu);
    connect(&m_molarMasses, &MolarMassesController::Shown, this, &Shell::ShowMenu);
    connect(&m_tools, &ToolWindows::Changed, this, &Shell::ShowMenu);
    connect(&m_preferences, &PreferencesController::Changed, this, &Shell::ShowMenu);
    connect(&m_stopwatch, &StopwatchController::Changed, this, &Shell::ShowMenu);
    connect(&m_calculator, &CalculatorWatch::Changed, this, &Shell::ShowMenu);
}

void Shell::Start()
{
    ShowMenu();
    m_startUp.Run();
}

ProgramState Shell::StateForMenu() const
{
    ProgramState state;
    state.hasRun = m_run.IsOpen();
    state.hasEquation = m_run.IsOpen() && m_state.run.NumEquation > 0;
    state.isCharged = m_state.run.ChargesPresentes;
    for (std::size_t slot = 0; slot < state.molecules.size(); ++slot)
        state.molecules.at(slot) = m_run.Record().Slots.at(slot).Molecule;
    state.showsAtoms = m_state.view.showsAtoms;
    state.atomSize = m_state.view.atomSize;
    state.open = m_tools.OpenEntries();
    if (m_molarMasses.IsShown())
        state.open.insert(Command::MassMol);
    if (m_runWindows.ShowsCharges())
        state.open.insert(Command::Charge);
    if (m_preferences.IsShown())
        state.open.insert(Command::Pref);
    if (m_stopwatch.IsShown())
        state.open.insert(Command::Chrono);
    if (m_calculator.IsMarked())
        state.open.insert(Command::Calc);
    return state;
}

void Shell::ShowMenu()
{
    m_mainWindow.ShowMenu(StateForMenu());
}

void Shell::Choose(Command command)
{
    const auto chosen = m_commands.find(command);
    if (chosen != m_commands.end())
        chosen->second();
    ShowMenu();
    // The menu bar has taken the keyboard to the main window.
    if (!m_hasEnded && !KeepsKeyboard(command))
        m_runWindows.ReturnToExercise();
}

bool Shell::KeepsKeyboard(Command command) const
{
    switch (command) {
    case Command::HelpContents:
    case Command::HelpIndex:
    case Command::GlossaryOfAtoms:
    case Command::GlossaryOfScientists:
        return true;
    case Command::MoreTip:
        return m_teacher.ShowsText();
    // Others have the keyboard while they are there.
    case Command::MassMol:
    case Command::Pref:
    case Command::Expert:
    case Command::Search:
    case Command::PeriodicTable:
    case Command::CalMol:
    case Command::SimulAnim:
    case Command::Calc:
        return StateForMenu().open.contains(command);
    default:
        return false;
    }
}

void Shell::ShowHelpOf(const QString& window)
{
    if (const auto topic = help_topics::TopicOf(window))
        m_help.ShowTopic(*topic);
}

void Shell::EndProgram()
{
    if (m_hasEnded)
        return;
    m_teacher.SaveTexts();
    m_tools.StopTools();
    m_help.Close();
    m_run.Close();
    bool isWritten = m_journal.Close();
    while (!isWritten) {
        const bool triesAgain = m_messages.Ask(
            &m_mainWindow, QStringLiteral("Stoikal"),
            QStringLiteral("Des résultats n'ont pas encore pu être écrits dans le fichier\n%1\n"
                           "Libérez de la place sur le disque.\n\nVoulez-vous essayer encore ?")
                .arg(ShownPath(m_journal.Path())));
        if (!triesAgain)
            break;
        isWritten = m_journal.Reopen().Succeeded() && m_journal.Close();
    }
    m_hasEnded = true;
    Q_EMIT EndAsked();
}

FatalFault Shell::WithPlace(const FatalFault& fault) const
{
    if (!m_run.IsOpen())
        return fault;
    return fault.At(m_state.run.CheminFichier, m_state.run.NumeroLigne, m_state.run.LigneEquation);
}

void Shell::Mnu_Web_Click()
{
    const QString site = m_desktop.web.Site();
    if (site.isEmpty()) {
        m_messages.Information(&m_mainWindow, QStringLiteral("Stoikal"),
                               QStringLiteral("Aucun site n'est configuré."));
        return;
    }
    if (!m_desktop.browser.IsOnline()) {
        m_messages.Critical(&m_mainWindow, QStringLiteral("Stoikal"),
                            QStringLiteral("Vous n'êtes pas actuellement connecté à Internet."));
        return;
    }
    if (!m_desktop.browser.Open(site)) {
        m_messages.Critical(
            &m_mainWindow, QStringLiteral("Stoikal"),
            QStringLiteral("Le navigateur n'a pas pu être ouvert.\nL'adresse du site est : %1").arg(site));
    }
}

void Shell::Mnu_About_Click()
{
    frmAbout window(m_desktop.folders.Program(), m_messages, &m_mainWindow);
    connect(&window, &frmAbout::WebAsked, this, &Shell::Mnu_Web_Click);
    window.exec();
}

} // namespace stoikal
