#include "shell/help_controller.h"

#include "help/windows/frm_help.h"
#include "platform/doors.h"
#include "shell/data_folders.h"
#include "shell/help_topics.h"
#include "shell/windows/frm_stoikal.h"

#include <QApplication>

namespace stoikal {
namespace {

QString Manual()
{
    return QStringLiteral("Stoikal.chm");
}

} // namespace

HelpController::HelpController(const Services& services, frmStoikal& mainWindow)
    : m_services(services)
    , m_mainWindow(mainWindow)
    , m_help(*this, services.messages)
{
}

HelpController::~HelpController() = default;

QString HelpController::FileNamed(const QString& name) const
{
    return WithSeparator(m_services.folders.Program()) + name;
}

/// The window in front: what the help says is about it.
QWidget* HelpController::Caller() const
{
    QWidget* const modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : &m_mainWindow;
}

void HelpController::ShowTopic(int topic)
{
    m_help.CHMFile = FileNamed(Manual());
    m_help.HHTopicID = topic;
    if (topic == help_topics::kContents)
        m_help.HHDisplayContents(Caller());
    else
        m_help.HHDisplayTopicID(Caller());
}

void HelpController::Mnu_Help_Contents_Click()
{
    m_help.CHMFile = FileNamed(Manual());
    m_help.HHDisplayContents(Caller());
}

void HelpController::Mnu_Help_Index_Click()
{
    m_help.CHMFile = FileNamed(Manual());
    m_help.HHDisplayIndex(Caller());
}

void HelpController::Mnu_Glossaire_Click()
{
    m_help.CHMFile = FileNamed(QStringLiteral("Glossaire_Atomes.chm"));
    m_help.HHDisplayContents(Caller());
}

void HelpController::Mnu_Gloss_sc_Click()
{
    m_help.CHMFile = FileNamed(QStringLiteral("Glossaire_Scientifiques.chm"));
    m_help.HHDisplayContents(Caller());
}

void HelpController::Close()
{
    if (m_window != nullptr)
        m_window->Close();
}

frmHelp& HelpController::Window()
{
    if (m_window == nullptr) {
        m_window = new frmHelp({m_services.messages, m_printer, m_services.screen, m_services.settings},
                               &m_mainWindow);
        connect(m_window, &Form::CloseAsked, m_window, &frmHelp::Close);
    }
    return *m_window;
}

void HelpController::DisplayTopic(const QString& file, std::int32_t topic, QWidget* caller)
{
    Window().DisplayTopic(file, topic, caller);
}

void HelpController::DisplayContents(const QString& file, QWidget* caller)
{
    Window().DisplayContents(file, caller);
}

void HelpController::DisplayIndex(const QString& file, QWidget* caller)
{
    Window().DisplayIndex(file, caller);
}

} // namespace stoikal
