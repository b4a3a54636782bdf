#include "shell/shell.h"

#include "base/fatal_fault.h"
#include "base/shown_path.h"
#include "forms/messages.h"
#include "shell/help_topics.h"
#include "shell/menu_tree.h"
#include "shell/windows/frm_about.h"

namespace stoikal {

Shell::Shell(const Platform& desktop, Messages& messages)
    : m_session(desktop, messages)
    , m_mainWindow((FillMenuState(m_session.menu), m_session.menu))
    , m_desk(m_session, m_mainWindow)
    , m_files(m_session, m_mainWindow, m_desk)
    , m_tools(m_session, m_mainWindow, m_desk, m_files)
    , m_editor(m_session, m_mainWindow)
    , m_teacher(m_session, {m_mainWindow, m_desk, m_files, m_tools, m_editor})
    , m_home(m_session, m_mainWindow, m_desk, m_files)
    , m_help(m_session, m_mainWindow)
    , m_startUp(m_session, m_mainWindow)
    , m_calculator({m_session.desktop.programs, m_session.messages}, m_mainWindow)
{
    using namespace Qt::StringLiterals;
    m_commands = {
        {u"Mnu_Open(0)"_s, [this] { m_files.Mnu_Open_Click(0); }},
        {u"Mnu_Open(1)"_s, [this] { m_files.Mnu_Open_Click(1); }},
        {u"Mnu_Close"_s, [this] { m_files.Mnu_Close_Click(); }},
        {u"Mnu_End"_s, [this] { EndProgram(); }},
        {u"Mnu_Copy"_s, [this] { m_desk.Mnu_Copy_Click(); }},
        {u"Mnu_Del"_s, [this] { m_desk.Mnu_Del_Click(); }},
        {u"Mnu_Atome"_s, [this] { m_desk.Mnu_Atome_Click(); }},
        {u"Mnu_MassMol"_s, [this] { m_desk.Mnu_MassMol_Click(); }},
        {u"Mnu_Charge"_s, [this] { m_desk.Mnu_Charge_Click(); }},
        {u"Mnu_Chrono"_s, [this] { m_desk.Mnu_Chrono_Click(); }},
        {u"Mnu_Create"_s, [this] { m_teacher.Ask(TeacherAction::CreateFile); }},
        {u"Mnu_Modify"_s, [this] { m_teacher.Ask(TeacherAction::ModifyFile); }},
        {u"Mnu_Kill"_s, [this] { m_teacher.Ask(TeacherAction::KillFile); }},
        {u"Mnu_Answer"_s, [this] { m_teacher.Ask(TeacherAction::ShowAnswers); }},
        {u"Mnu_MoreTip"_s, [this] { m_teacher.Ask(TeacherAction::AddTip); }},
        {u"Mnu_Clean"_s, [this] { m_teacher.Ask(TeacherAction::CleanAnswers); }},
        {u"Mnu_Solution"_s, [this] { m_teacher.Ask(TeacherAction::ShowSolution); }},
        {u"Mnu_Password"_s, [this] { m_teacher.Mnu_Password_Click(); }},
        {u"Mnu_Pref"_s, [this] { m_home.Mnu_Pref_Click(); }},
        {u"Mnu_Tip"_s, [this] { m_home.Mnu_Tip_Click(); }},
        {u"Mnu_Balance"_s, [this] { m_teacher.Mnu_Balance_Click(); }},
        {u"Mnu_Tableau"_s, [this] { m_tools.Mnu_Tableau_Click(); }},
        {u"Mnu_CalMol"_s, [this] { m_teacher.Mnu_CalMol_Click(); }},
        {u"Mnu_Search"_s, [this] { m_teacher.Mnu_Search_Click(); }},
        {u"Mnu_SimulAnim"_s, [this] { m_tools.Mnu_SimulAnim_Click(); }},
        {u"Mnu_Calc"_s, [this] { m_calculator.Mnu_Calc_Click(); }},
        {u"Mnu_Help_Contents"_s, [this] { m_help.Mnu_Help_Contents_Click(); }},
        {u"Mnu_Help_Index"_s, [this] { m_help.Mnu_Help_Index_Click(); }},
        {u"Mnu_Glossaire"_s, [this] { m_help.Mnu_Glossaire_Click(); }},
        {u"Mnu_Gloss_sc"_s, [this] { m_help.Mnu_Gloss_sc_Click(); }},
        {u"Mnu_Web"_s, [this] { Mnu_Web_Click(); }},
        {u"Mnu_About"_s, [this] { Mnu_About_Click(); }},
    };
    for (int i = 0; i < 4; ++i)
        m_commands.insert(QStringLiteral("Mnu_Taille(%1)").arg(i), [this, i] { m_desk.Mnu_Taille_Click(i); });
    for (int slot = 0; slot < 6; ++slot) {
        m_commands.insert(
            (slot < 3 ? QStringLiteral("Mnu_Reactif(%1)") : QStringLiteral("Mnu_Produit(%1)")).arg(slot),
            [this, slot] { m_desk.Mnu_Compo_Click(slot); });
    }
    connect(&m_mainWindow, &frmStoikal::EntryChosen, this, &Shell::Choose);
    connect(&m_mainWindow, &frmStoikal::CloseAsked, this, &Shell::EndProgram);
    connect(&m_files, &FileSession::EndAsked, this, &Shell::EndProgram);
    connect(&m_startUp, &StartUp::TipAsked, &m_home, &HomeDesk::Mnu_Tip_Click);
    connect(&m_editor, &EditorDesk::HelpRequested, &m_help, &HelpDesk::ShowTopic);
    connect(&m_windowEvents, &WindowEvents::HelpRequested, this, &Shell::ShowHelpOf);
    connect(&m_windowEvents, &WindowEvents::PointerMoved, &m_calculator, &Calculator::CheckCalculatorClosed);
    connect(&m_windowEvents, &WindowEvents::PointerMoved, &m_desk, &ExerciseDesk::NotePointer);
    connect(&m_calculator, &Calculator::MarkChanged, this,
            [this](bool isMarked) { m_session.menu.SetChecked("Mnu_Calc", isMarked); });
}

void Shell::Start()
{
    m_startUp.Run();
}

void Shell::Choose(const QString& entry)
{
    const auto place = m_commands.constFind(entry);
    if (place != m_commands.constEnd())
        (*place)();
    // The menu bar has taken the keyboard to the main window.
    if (!m_hasEnded && !KeepsKeyboard(entry))
        m_desk.ReturnToExercise();
}

bool Shell::KeepsKeyboard(const QString& entry) const
{
    using namespace Qt::StringLiterals;
    static const QStringList kHelp{u"Mnu_Help_Contents"_s, u"Mnu_Help_Index"_s, u"Mnu_Glossaire"_s,
                                   u"Mnu_Gloss_sc"_s};
    if (kHelp.contains(entry))
        return true;
    if (entry == u"Mnu_MoreTip"_s)
        return m_teacher.ShowsText();
    // The mark says that the window is there; one that was closed has no keyboard.
    static const QStringList kMarked{u"Mnu_MassMol"_s, u"Mnu_Pref"_s,   u"Mnu_Balance"_s,   u"Mnu_Search"_s,
                                     u"Mnu_Tableau"_s, u"Mnu_CalMol"_s, u"Mnu_SimulAnim"_s, u"Mnu_Calc"_s};
    return kMarked.contains(entry) && m_session.menu.IsChecked(qPrintable(entry));
}

void Shell::EndProgram()
{
    if (m_hasEnded)
        return;
    m_teacher.SaveTexts();
    m_tools.StopTools();
    m_help.Close();
    m_session.run.Close();
    bool isWritten = m_session.journal.Close();
    while (!isWritten) {
        const bool triesAgain = m_session.messages.Ask(
            &m_mainWindow, QStringLiteral("Stoikal"),
            QStringLiteral("Des résultats n'ont pas encore pu être écrits dans le fichier\n%1\n"
                           "Libérez de la place sur le disque.\n\nVoulez-vous essayer encore ?")
                .arg(ShownPath(m_session.journal.Path())));
        if (!triesAgain)
            break;
        isWritten = m_session.journal.Reopen().Succeeded() && m_session.journal.Close();
    }
    m_hasEnded = true;
    Q_EMIT EndAsked();
}

FatalFault Shell::WithPlace(const FatalFault& fault) const
{
    const SessionState& state = m_session.state;
    if (!m_session.run.IsOpen())
        return fault;
    return fault.At(state.CheminFichier, state.NumeroLigne, state.LigneEquation);
}

void Shell::ShowHelpOf(const QString& window)
{
    if (const auto topic = help_topics::TopicOf(window))
        m_help.ShowTopic(*topic);
}

void Shell::Mnu_Web_Click()
{
    const QString site = m_session.desktop.web.Site();
    if (site.isEmpty()) {
        m_session.messages.Information(&m_mainWindow, QStringLiteral("Stoikal"),
                                       QStringLiteral("Aucun site n'est configuré."));
        return;
    }
    if (!m_session.desktop.browser.IsOnline()) {
        m_session.messages.Critical(&m_mainWindow, QStringLiteral("Stoikal"),
                                    QStringLiteral("Vous n'êtes pas actuellement connecté à Internet."));
        return;
    }
    if (!m_session.desktop.browser.Open(site)) {
        m_session.messages.Critical(
            &m_mainWindow, QStringLiteral("Stoikal"),
            QStringLiteral("Le navigateur n'a pas pu être ouvert.\nL'adresse du site est : %1").arg(site));
    }
}

void Shell::Mnu_About_Click()
{
    frmAbout window(m_session.desktop.folders.Program(), m_session.messages, &m_mainWindow);
    connect(&window, &frmAbout::WebAsked, this, &Shell::Mnu_Web_Click);
    window.exec();
}

} // namespace stoikal
