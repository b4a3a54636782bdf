#include "shell/shell.h"

#include "base/fatal_fault.h"
#include "forms/messages.h"
#include "shell/menu_tree.h"
#include "shell/windows/frm_about.h"

namespace stoikal {

Shell::Shell(const Platform& desktop, Messages& messages)
    : m_session(desktop, messages)
    , m_mainWindow((FillMenuState(m_session.menu), m_session.menu))
    , m_desk(m_session, m_mainWindow)
    , m_files(m_session, m_mainWindow, m_desk)
    , m_tools(m_session, m_mainWindow, m_desk, m_files)
    , m_startUp(m_session, m_mainWindow)
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
        {u"Mnu_Charge"_s, [this] { m_desk.Mnu_Charge_Click(); }},
        {u"Mnu_Chrono"_s, [this] { m_desk.Mnu_Chrono_Click(); }},
        {u"Mnu_Balance"_s, [this] { m_tools.Mnu_Balance_Click(); }},
        {u"Mnu_Tableau"_s, [this] { m_tools.Mnu_Tableau_Click(); }},
        {u"Mnu_Search"_s, [this] { m_tools.Mnu_Search_Click(); }},
        {u"Mnu_Calc"_s, [this] { Mnu_Calc_Click(); }},
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
}

void Shell::EndProgram()
{
    if (m_hasEnded)
        return;
    m_tools.StopTools();
    m_session.run.Close();
    bool isWritten = m_session.journal.Close();
    while (!isWritten) {
        const bool triesAgain = m_session.messages.Ask(
            &m_mainWindow, QStringLiteral("Stoikal"),
            QStringLiteral("Des résultats n'ont pas encore pu être écrits dans le fichier\n%1\n"
                           "Libérez de la place sur le disque.\n\nVoulez-vous essayer encore ?")
                .arg(m_session.journal.Path()));
        if (!triesAgain)
            break;
        isWritten = m_session.journal.Open(m_session.journal.Path()).Succeeded() && m_session.journal.Close();
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

void Shell::Mnu_Calc_Click()
{
    Programs& programs = m_session.desktop.programs;
    if (m_session.menu.IsChecked("Mnu_Calc")) {
        m_session.menu.SetChecked("Mnu_Calc", false);
        programs.CloseCalculator();
        return;
    }
    if (programs.StartCalculator())
        m_session.menu.SetChecked("Mnu_Calc", true);
    else
        m_session.messages.Critical(&m_mainWindow, QStringLiteral("Stoikal"),
                                    QStringLiteral("Erreur sur chemin d'accés"));
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
