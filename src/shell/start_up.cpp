#include "shell/start_up.h"

#include "base/fatal_fault.h"
#include "base/file_access.h"
#include "base/places.h"
#include "base/settings_store.h"
#include "base/shown_path.h"
#include "base/whole_file.h"
#include "exercise/results_journal.h"
#include "forms/messages.h"
#include "platform/doors.h"
#include "shell/data_folders.h"
#include "shell/password_store.h"
#include "shell/product.h"
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

StartUp::StartUp(const Services& services, frmStoikal& mainWindow)
    : m_services(services)
    , m_mainWindow(mainWindow)
{
}

void StartUp::Run()
{
    Places& places = m_services.places;
    m_steps << QStringLiteral("update check");
    CheckForNewVersion();
    m_steps << QStringLiteral("window size");
    SizeMainWindow();
    m_steps << QStringLiteral("caption");
    m_mainWindow.SetCaption(product::Caption());
    m_steps << QStringLiteral("background");
    ChooseBackground();
    m_steps << QStringLiteral("user and settings");
    FindSettingsFile(places, m_services.desktop, m_services.messages, &m_mainWindow);
    ReportUnreadableSettings();
    // The package of the distribution enters the file types.
    m_steps << QStringLiteral("file types");
    // The clock itself knows how often it counts.
    m_steps << QStringLiteral("counter");
    m_steps << QStringLiteral("menus");
    m_steps << QStringLiteral("data folders");
    FindJournal();
    m_steps << QStringLiteral("journal");
    SweepLeftFiles(m_services.places, m_services.desktop.folders.Cache());
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
    const QString site = m_services.desktop.web.Site();
    if (site.isEmpty())
        return;
    m_services.desktop.web.Get(site + QStringLiteral("/chimie/stoikal/version_stoikal.txt"),
                               [this](const QByteArray& bytes) { TakeVersionFile(bytes); });
}

void StartUp::TakeVersionFile(const QByteArray& bytes)
{
    const QString folder = m_services.desktop.folders.Cache();
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
    m_services.messages.Information(&m_mainWindow, QStringLiteral("Stoikal - Nouvelle version"),
                                    QStringLiteral("La version %1 de Stoikal est téléchargeable sur\n%2")
                                        .arg(version, m_services.desktop.web.Site()));
}

void StartUp::SizeMainWindow()
{
    const QRect area = m_services.desktop.screen.WorkArea();
    m_services.places.HauteurUtile = FromPixels(area.height()) - 750;
    m_services.places.LargeurUtile = FromPixels(area.width()) - 50;
    m_mainWindow.resize(ToPixels(m_services.places.LargeurUtile), ToPixels(m_services.places.HauteurUtile));
    m_mainWindow.move(area.topLeft());
}

void StartUp::ChooseBackground()
{
    QString name;
    switch (m_services.desktop.screen.Width()) {
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
    m_background = WithSeparator(m_services.desktop.folders.Program()) + name;
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
    const QString& path = m_services.places.IniUtilisateur;
    const auto bytes = ReadOwnFile(path, kSettingsLimit);
    if (bytes || bytes.IsMissing())
        return;
    m_services.messages.Warning(
        &m_mainWindow, QStringLiteral("Stoikal"),
        QStringLiteral("Vos réglages ne peuvent pas être lus\u00A0:\n%1\n(%2)\n\n"
                       "Stoikal démarre avec les réglages d'origine, et les changements ne seront pas "
                       "enregistrés. Prévenez votre professeur.")
            .arg(ShownPath(path), bytes.Reason()));
}

void StartUp::FindJournal()
{
    Places& places = m_services.places;
    places.DossierResultats
        = ResolveDataFolders(places, m_services.desktop, m_services.messages, &m_mainWindow).results;
    if (places.ModeReseau) {
        places.FichierResultat = NetworkJournal();
        return;
    }
    const auto folder = SeedEquationFolder(places.DossierResultats, m_services.desktop);
    if (!folder) {
        throw FatalFault(QStringLiteral("le dossier des fichiers d'équations ne peut pas être créé (%1).")
                             .arg(folder.Reason()),
                         places.DossierResultats, 0, {});
    }
    places.FichierResultat = WithSeparator(places.DossierResultats) + QStringLiteral("Resultat.txt");
}

QString StartUp::NetworkJournal()
{
    Places& places = m_services.places;
    places.DossierDepot = DepositName(m_services.settings);
    while (places.DossierDepot.isEmpty()) {
        frmDepot window(m_services.settings, m_services.messages, nullptr);
        window.exec();
        places.DossierDepot = window.FolderName();
    }
    QString user = m_services.desktop.user.LoginName();
    if (user.isEmpty())
        user = QStringLiteral("Inconnu");
    // One password for all pupils: an empty file until a teacher sets one.
    const PasswordStore password(places, m_services.settings);
    const auto made = password.MakeCommonFile();
    if (!made) {
        throw FatalFault(
            QStringLiteral(
                "le fichier du mot de passe ne peut pas être ouvert dans le dossier de dépôt (%1).\n"
                "Vérifiez ce dossier, ou corrigez le réglage «\u00A0Dossier Dépôt\u00A0» (section "
                "«\u00A0Réseau\u00A0») du "
                "fichier %2")
                .arg(made.Reason(), ShownPath(places.IniUtilisateur)),
            CommonPasswordFile(places), 0, {});
    }
    return DepositFolder(places) + QLatin1Char('/')
        + NetworkJournalName(user, m_services.desktop.clock.Now());
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
    const Places& places = m_services.places;
    // A journal of one start is its account's: the others of the class may not alter it.
    const auto opened = m_services.journal.Open(places.FichierResultat,
                                                places.ModeReseau ? Sharing::FolderReads : Sharing::Folder);
    if (opened) {
        ReportTornJournal();
        return;
    }
    QString cause
        = QStringLiteral("le fichier des résultats ne peut pas être ouvert (%1).").arg(opened.Reason());
    if (places.ModeReseau) {
        cause += QStringLiteral(
                     "\nVérifiez le dossier de dépôt, ou corrigez le réglage «\u00A0Dossier Dépôt\u00A0» "
                     "(section «\u00A0Réseau\u00A0») du fichier %1")
                     .arg(ShownPath(places.IniUtilisateur));
    }
    throw FatalFault(cause, places.FichierResultat, 0, {});
}

void StartUp::ReportTornJournal()
{
    if (!m_services.journal.HadTornEnd())
        return;
    m_services.messages.Warning(
        &m_mainWindow, QStringLiteral("Stoikal"),
        QStringLiteral("Le fichier des résultats s'arrêtait au milieu d'une ligne\u00A0:\n%1\n"
                       "Une coupure de courant en est sans doute la cause.\n\n"
                       "La suite sera écrite sur une ligne à part. Prévenez votre professeur\u00A0: "
                       "la dernière réponse d'avant la coupure peut manquer.")
            .arg(ShownPath(m_services.journal.Path())));
}

void StartUp::ReportFoldersWithoutLocks()
{
    const QStringList folders = FoldersWithoutLocks(m_services.places);
    if (folders.isEmpty())
        return;
    QStringList shown;
    std::transform(folders.begin(), folders.end(), std::back_inserter(shown), ShownPath);
    m_services.messages.Warning(
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
    frmSplash splash(m_services.desktop.folders.Program(), m_services.desktop.user.RealName(), &m_mainWindow);
    m_canTell = true;
    QTimer::singleShot(0, this, &StartUp::TellNewVersion);
    splash.exec();
}

void StartUp::ShowTip()
{
    const QString key = QStringLiteral("Show Tips at Startup");
    const QString value = m_services.settings.Read(Options(), key);
    const bool shows = value.isEmpty() || value == QLatin1String("1");
    m_services.settings.Remember(Options(), key, shows ? QStringLiteral("1") : QStringLiteral("0"));
    if (shows)
        Q_EMIT TipAsked();
}

void StartUp::PresetBubbles()
{
    const QString key = QStringLiteral("Show info-bulles at Startup");
    if (m_services.settings.Read(Options(), key).isEmpty())
        m_services.settings.Remember(Options(), key, QStringLiteral("1"));
}

} // namespace stoikal
