#include "shell/editor_controller.h"

#include "balancing/windows/save_request.h"
#include "base/fatal_fault.h"
#include "base/places.h"
#include "editor/windows/frm_new_file.h"
#include "editor/work_file.h"
#include "forms/messages.h"
#include "platform/doors.h"
#include "shell/data_folders.h"
#include "shell/help_topics.h"
#include "shell/windows/frm_stoikal.h"

#include <QApplication>
#include <QFileInfo>

namespace stoikal {
namespace {

/// The pointer waits while this lives.
class WaitingPointer
{
public:
    WaitingPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitingPointer() { QApplication::restoreOverrideCursor(); }
    WaitingPointer(const WaitingPointer&) = delete;
    WaitingPointer& operator=(const WaitingPointer&) = delete;
};

QString OfferText(const WorkDesk& desk)
{
    const QString name = desk.name.isEmpty() ? QStringLiteral("un fichier sans nom")
                                             : QStringLiteral("le fichier «\u00A0%1\u00A0»").arg(desk.name);
    const QString count
        = desk.count == 1 ? QStringLiteral("1 équation") : QStringLiteral("%1 équations").arg(desk.count);
    return QStringLiteral("Stoikal s'est arrêté pendant que vous écriviez %1 (%2).\n"
                          "Voulez-vous reprendre ce travail\u00A0?\n\n"
                          "Si vous répondez «\u00A0Non\u00A0», il sera supprimé.")
        .arg(name, count);
}

} // namespace

EditorController::EditorController(const Services& services, frmStoikal& mainWindow)
    : m_services(services)
    , m_mainWindow(mainWindow)
{
}

frmNewFile::Doors EditorController::DoorsFor(const QString& workFile)
{
    return {m_services.clock, m_services.messages, m_services.screen, m_services.settings, m_services.store,
            workFile,         EquationFolder()};
}

QString EditorController::EquationFolder() const
{
    return m_services.places.DossierDocuments + OwnFolder();
}

/// Offers each unfinished work in turn. True when one was taken up, and its
/// editor is closed again.
bool EditorController::OfferLeftWork()
{
    const auto places = PlacesWithLeftWork(m_services.folders.Cache(), m_services.store);
    for (const WorkPlace& place : places) {
        WorkFile work(m_services.store, place.path);
        const std::optional<WorkDesk> desk = work.LeftBehind();
        if (!desk)
            continue;
        if (!m_services.messages.Ask(&m_mainWindow, QStringLiteral("Stoikal"), OfferText(*desk))) {
            work.Remove();
            continue;
        }
        frmNewFile window(DoorsFor(place.path), &m_mainWindow);
        window.TakeUp(*desk);
        Run(window);
        return true;
    }
    return false;
}

void EditorController::OpenNew()
{
    if (OfferLeftWork())
        return;
    const auto place = FreePlace();
    if (!place)
        return;
    frmNewFile window(DoorsFor(place->path), &m_mainWindow);
    if (window.StartNew())
        Run(window);
}

void EditorController::OpenExisting()
{
    if (OfferLeftWork())
        return;
    const auto choice = m_services.dialogs.OpenFile(
        &m_mainWindow,
        EquationFileRequest(m_services.settings, EquationFolder(), QStringLiteral("cdgModif"),
                            QStringLiteral("Modifier un fichier d'équations")));
    if (!choice)
        return;
    RememberFilter(m_services.settings, choice->filter);
    const FileType type = choice->filter == 0 ? FileType::Equ : FileType::Avt;
    const QFileInfo file(choice->path);
    const QString suffix = type == FileType::Equ ? QStringLiteral("equ") : QStringLiteral("avt");
    // The editor only knows the name up to its first point, in its own folder.
    const bool isReachable = QFileInfo(file.path()) == QFileInfo(EquationFolder())
        && file.completeSuffix().compare(suffix, Qt::CaseInsensitive) == 0;
    if (!isReachable)
        return;
    const auto place = FreePlace();
    if (!place)
        return;
    frmNewFile window(DoorsFor(place->path), &m_mainWindow);
    bool isLoaded = false;
    try {
        const WaitingPointer waiting;
        isLoaded = window.LoadFileIntoEditor(file.fileName(), type);
    } catch (const FatalFault& fault) {
        m_services.messages.OperationFault(&m_mainWindow, fault.OperationText());
    }
    if (isLoaded)
        Run(window);
}

std::optional<WorkPlace> EditorController::FreePlace()
{
    const auto place = FreeWorkPlace(m_services.folders.Cache());
    if (place)
        return *place;
    m_services.messages.Critical(&m_mainWindow, QStringLiteral("Stoikal"), place.Reason());
    return std::nullopt;
}

void EditorController::Run(frmNewFile& window)
{
    connect(&window, &frmNewFile::HelpRequested, this,
            [this] { Q_EMIT HelpRequested(help_topics::kEditor); });
    window.exec();
    m_mainWindow.activateWindow();
}

} // namespace stoikal
