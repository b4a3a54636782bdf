#include "shell/help_desk.h"

#include "help/windows/frm_help.h"
#include "shell/data_folders.h"
#include "shell/help_topics.h"
#include "shell/session.h"
#include "shell/windows/frm_stoikal.h"

#include <QApplication>

namespace stoikal {
namespace {

QString Manual()
{
    return QStringLiteral("Stoikal.chm");
}

} // namespace

HelpDesk::HelpDesk(Session& session, frmStoikal& mainWindow)
    : m_session(session)
    , m_mainWindow(mainWindow)
    , m_help(*this, session.messages)
{
}

HelpDesk::~HelpDesk() = default;

QString HelpDesk::FileNamed(const QString& name) const
{
    return WithSeparator(m_session.desktop.folders.Program()) + name;
}

/// The window in front: what the help says is about it.
QWidget* HelpDesk::Caller() const
{
    QWidget* const modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : &m_mainWindow;
}

void HelpDesk::ShowTopic(int topic)
{
    m_help.CHMFile = FileNamed(Manual());
    m_help.HHTopicID = topic;
    if (topic == help_topics::kContents)
        m_help.HHDisplayContents(Caller());
    else
        m_help.HHDisplayTopicID(Caller());
}

void HelpDesk::Mnu_Help_Contents_Click()
{
    m_help.CHMFile = FileNamed(Manual());
    m_help.HHDisplayContents(Caller());
}

void HelpDesk::Mnu_Help_Index_Click()
{
    m_help.CHMFile = FileNamed(Manual());
    m_help.HHDisplayIndex(Caller());
}

void HelpDesk::Mnu_Glossaire_Click()
{
    m_help.CHMFile = FileNamed(QStringLiteral("Glossaire_Atomes.chm"));
    m_help.HHDisplayContents(Caller());
}

void HelpDesk::Mnu_Gloss_sc_Click()
{
    m_help.CHMFile = FileNamed(QStringLiteral("Glossaire_Scientifiques.chm"));
    m_help.HHDisplayContents(Caller());
}

void HelpDesk::Close()
{
    if (m_window != nullptr)
        m_window->Close();
}

frmHelp& HelpDesk::Window()
{
    if (m_window == nullptr) {
        m_window = new frmHelp({m_session.messages, m_printer, m_session.desktop.screen, m_session.settings},
                               &m_mainWindow);
        connect(m_window, &Form::CloseAsked, m_window, &frmHelp::Close);
    }
    return *m_window;
}

void HelpDesk::DisplayTopic(const QString& file, std::int32_t topic, QWidget* caller)
{
    Window().DisplayTopic(file, topic, caller);
}

void HelpDesk::DisplayContents(const QString& file, QWidget* caller)
{
    Window().DisplayContents(file, caller);
}

void HelpDesk::DisplayIndex(const QString& file, QWidget* caller)
{
    Window().DisplayIndex(file, caller);
}

} // namespace stoikal
