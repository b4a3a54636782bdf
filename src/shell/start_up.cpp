#include "shell/start_up.h"

#include "base/fatal_fault.h"
#include "base/file_access.h"
#include "base/shown_path.h"
#include "base/whole_file.h"
#include "forms/messages.h"
#include "shell/data_folders.h"
#include "shell/menu_tree.h"
#include "shell/password_store.h"
#include "shell/product.h"
#include "shell/session.h"
#include "shell/shared_folders.h"
#include "shell/version_check.h"
#include "shell/windows/frm_depot.h"
#include "shell/windows/frm_splash.h"
#include "shell/windows/frm_stoikal.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDeadlineTimer>
#include <QMenuBar>
#include <QPixmap>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <iterator>
#include <utility>

namespace stoikal {
namespace {

QString Options()
{
    return QStringLiteral("Options");
}

} // namespace

StartUp::StartUp(Session& session, frmStoikal& mainWindow)
    : m_session(session)
    , m_mainWindow(mainWindow)
{
}

void StartUp::Run()
{
    SessionState& state = m_session.state;
    m_steps << QStringLiteral("update check");
    CheckForNewVersion();
    m_steps << QStringLiteral("window size");
    SizeMainWindow();
    m_steps << QStringLiteral("caption");
    m_mainWindow.SetCaption(product::Caption());
    m_steps << QStringLiteral("background");
    ChooseBackground();
    m_steps << QStringLiteral("user and settings");
    FindSettingsFile(state, m_session.desktop, m_session.messages, &m_mainWindow);
    ReportUnreadableSettings();
    // The package of the distribution enters the file types.
    m_steps << QStringLiteral("file types");
    // The clock itself knows how often it counts.
    m_steps << QStringLiteral("counter");
    m_steps << QStringLiteral("menus");
    SetFileSessionMenus(m_session.menu, false);
    m_session.menu.SetChecked("Mnu_Atome", true);
    m_steps << QStringLiteral("data folders");
    FindJournal();
    m_steps << QStringLiteral("journal");
    SweepLeftFiles(state, m_session.desktop.folders.Cache());
    OpenJournal();
    ReportFoldersWithoutLocks();
    m_steps << QStringLiteral("splash");
    ShowSplash();
    m_steps << QStringLiteral("tip");
    ShowTip();
    m_steps << QStringLiteral("bubbles");
    PresetBubbles();
}

void StartUp::CheckForNewVersion()
{
    const QString site = m_session.desktop.web.Site();
    if (site.isEmpty())
        return;
    m_session.desktop.web.Get(site + QStringLiteral("/chimie/stoikal/version_stoikal.txt"),
                              [this](const QByteArray& bytes) { TakeVersionFile(bytes); });
}

void StartUp::TakeVersionFile(const QByteArray& bytes)
{
    const QString folder = m_session.desktop.folders.Cache();
    MakeFolders(folder);
    // The copy is a courtesy: the check goes on without it.
    (void)ReplaceFile(folder + QStringLiteral("/Delete_Me.txt"), bytes, Sharing::Account);
    const QString remote = RemoteVersion(QString::fromUtf8(bytes));
    if (!IsNewer(remote, product::MajorMinor()))
        return;
    m_newVersion = remote;
    TellNewVersion();
}

/// An answer that comes while the window is still being made waits for it.
void StartUp::TellNewVersion()
{
    if (!m_canTell || m_newVersion.isEmpty())
        return;
    const QString version = std::exchange(m_newVersion, QString());
    m_session.messages.Information(&m_mainWindow, QStringLiteral("Stoikal - Nouvelle version"),
                                   QStringLiteral("La version %1 de Stoikal est téléchargeable sur\n%2")
                                       .arg(version, m_session.desktop.web.Site()));
}

void StartUp::SizeMainWindow()
{
    const QRect area = m_session.desktop.screen.WorkArea();
    m_session.state.HauteurUtile = FromPixels(area.height()) - 750;
    m_session.state.LargeurUtile = FromPixels(area.width()) - 50;
    m_mainWindow.resize(ToPixels(m_session.state.LargeurUtile), ToPixels(m_session.state.HauteurUtile));
    m_mainWindow.move(area.topLeft());
}

void StartUp::ChooseBackground()
{
    QString name;
    switch (m_session.desktop.screen.Width()) {
    case 800:
        name = QStringLiteral("logo800x600.jpg");
        break;
    case 1024:
        name = QStringLiteral("logo1024x768.jpg");
        break;
    case 1280:
        name = QStringLiteral("logo1280x768.jpg");
        break;
    default:
        return;
    }
    m_background = WithSeparator(m_session.desktop.folders.Program()) + name;
}

void StartUp::LoadBackground()
{
    // A picture that cannot be loaded leaves the background empty.
    if (!m_background.isEmpty())
        m_mainWindow.SetBackground(QPixmap(m_background));
}

/// Without this word a pupil would find all as on the first day, and nobody knew why.
void StartUp::ReportUnreadableSettings()
{
    const QString& path = m_session.state.IniUtilisateur;
    const auto bytes = ReadOwnFile(path, kSettingsLimit);
    if (bytes || bytes.IsMissing())
        return;
    m_session.messages.Warning(
        &m_mainWindow, QStringLiteral("Stoikal"),
        QStringLiteral("Vos réglages ne peuvent pas être lus\u00A0:\n%1\n(%2)\n\n"
                       "Stoikal démarre avec les réglages d'origine, et les changements ne seront pas "
                       "enregistrés. Prévenez votre professeur.")
            .arg(ShownPath(path), bytes.Reason()));
}

void StartUp::FindJournal()
{
    SessionState& state = m_session.state;
    state.DossierResultats
        = ResolveDataFolders(state, m_session.desktop, m_session.messages, &m_mainWindow).results;
    if (state.ModeReseau) {
        state.FichierResultat = NetworkJournal();
        return;
    }
    const auto folder = SeedEquationFolder(state.DossierResultats, m_session.desktop);
    if (!folder) {
        throw FatalFault(QStringLiteral("le dossier des fichiers d'équations ne peut pas être créé (%1).")
                             .arg(folder.Reason()),
                         state.DossierResultats, 0, {});
    }
    state.FichierResultat = WithSeparator(state.DossierResultats) + QStringLiteral("Resultat.txt");
}

QString StartUp::NetworkJournal()
{
    SessionState& state = m_session.state;
    state.DossierDepot = DepositName(m_session.settings);
    while (state.DossierDepot.isEmpty()) {
        frmDepot window(m_session.settings, m_session.messages, nullptr);
        window.exec();
        state.DossierDepot = window.FolderName();
    }
    QString user = m_session.desktop.user.LoginName();
    if (user.isEmpty())
        user = QStringLiteral("Inconnu");
    // One password for all pupils: an empty file until a teacher sets one.
    const PasswordStore password(state, m_session.settings);
    const auto made = password.MakeCommonFile();
    if (!made) {
        throw FatalFault(
            QStringLiteral(
                "le fichier du mot de passe ne peut pas être ouvert dans le dossier de dépôt (%1).\n"
                "Vérifiez ce dossier, ou corrigez le réglage «\u00A0Dossier Dépôt\u00A0» (section "
                "«\u00A0Réseau\u00A0») du "
                "fichier %2")
                .arg(made.Reason(), ShownPath(state.IniUtilisateur)),
            CommonPasswordFile(state), 0, {});
    }
    return DepositFolder(state) + QLatin1Char('/') + NetworkJournalName(user, m_session.desktop.clock.Now());
}

QString NetworkJournalName(const QString& user, const QDateTime& now)
{
    const QDate day = now.date();
    const QTime time = now.time();
    QString bareName = user;
    bareName.replace(QLatin1Char('/'), QLatin1Char('_'));
    return QStringLiteral("EQU_%1_%2_%3_%4_%5_%6.txt")
        .arg(bareName, QString::number(day.day()), QString::number(day.month()), QString::number(day.year()),
             QString::number(time.hour()), QString::number(time.minute()));
}

void StartUp::OpenJournal()
{
    const SessionState& state = m_session.state;
    // A journal of one start is its account's: the others of the class may not alter it.
    const auto opened = m_session.journal.Open(state.FichierResultat,
                                               state.ModeReseau ? Sharing::FolderReads : Sharing::Folder);
    if (opened) {
        ReportTornJournal();
        return;
    }
    QString cause
        = QStringLiteral("le fichier des résultats ne peut pas être ouvert (%1).").arg(opened.Reason());
    if (state.ModeReseau) {
        cause += QStringLiteral(
                     "\nVérifiez le dossier de dépôt, ou corrigez le réglage «\u00A0Dossier Dépôt\u00A0» "
                     "(section «\u00A0Réseau\u00A0») du fichier %1")
                     .arg(ShownPath(state.IniUtilisateur));
    }
    throw FatalFault(cause, state.FichierResultat, 0, {});
}

void StartUp::ReportTornJournal()
{
    if (!m_session.journal.HadTornEnd())
        return;
    m_session.messages.Warning(
        &m_mainWindow, QStringLiteral("Stoikal"),
        QStringLiteral("Le fichier des résultats s'arrêtait au milieu d'une ligne\u00A0:\n%1\n"
                       "Une coupure de courant en est sans doute la cause.\n\n"
                       "La suite sera écrite sur une ligne à part. Prévenez votre professeur\u00A0: "
                       "la dernière réponse d'avant la coupure peut manquer.")
            .arg(ShownPath(m_session.journal.Path())));
}

void StartUp::ReportFoldersWithoutLocks()
{
    const QStringList folders = FoldersWithoutLocks(m_session.state);
    if (folders.isEmpty())
        return;
    QStringList shown;
    std::transform(folders.begin(), folders.end(), std::back_inserter(shown), ShownPath);
    m_session.messages.Warning(
        &m_mainWindow, QStringLiteral("Stoikal"),
        QStringLiteral(
            "Ce disque ou ce partage ne permet pas de réserver un fichier pendant qu'il est écrit\u00A0:\n"
            "%1\n\n"
            "Les réglages et les records y sont enregistrés sans cette protection\u00A0: si deux "
            "programmes écrivent au même instant, un des deux enregistrements peut se perdre. "
            "Prévenez la personne qui s'occupe de ce poste.")
            .arg(shown.join(QLatin1Char('\n'))));
}

void StartUp::ShowSplash()
{
    // A user who waits for the program sees its window as early as it can be
    // seen: what needs fonts and pictures comes behind its first paint.
    m_mainWindow.menuBar()->hide();
    m_mainWindow.show();
    constexpr int kLongestWaitMs = 250;
    const QDeadlineTimer deadline(kLongestWaitMs);
    while (!m_mainWindow.windowHandle()->isExposed() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 5);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_mainWindow.menuBar()->show();
    LoadBackground();
    frmSplash splash(m_session.desktop.folders.Program(), m_session.desktop.user.RealName(), &m_mainWindow);
    m_canTell = true;
    QTimer::singleShot(0, this, &StartUp::TellNewVersion);
    splash.exec();
}

void StartUp::ShowTip()
{
    const QString key = QStringLiteral("Show Tips at Startup");
    const QString value = m_session.settings.Read(Options(), key);
    const bool shows = value.isEmpty() || value == QLatin1String("1");
    m_session.settings.Remember(Options(), key, shows ? QStringLiteral("1") : QStringLiteral("0"));
    if (shows)
        Q_EMIT TipAsked();
}

void StartUp::PresetBubbles()
{
    const QString key = QStringLiteral("Show info-bulles at Startup");
    if (m_session.settings.Read(Options(), key).isEmpty())
        m_session.settings.Remember(Options(), key, QStringLiteral("1"));
}

} // namespace stoikal
