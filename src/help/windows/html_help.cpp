#include "help/windows/html_help.h"

#include "forms/messages.h"

#include <QFileInfo>

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

QString MessageTitle()
{
    return u"HTML Help Class"_s;
}

} // namespace

void HTMLHelp::HHDisplayTopicID(QWidget* caller)
{
    if (CanDisplay(caller))
        m_viewer.DisplayTopic(Target(), HHTopicID, caller);
}

void HTMLHelp::HHDisplayContents(QWidget* caller)
{
    if (CanDisplay(caller))
        m_viewer.DisplayContents(Target(), caller);
}

void HTMLHelp::HHDisplayIndex(QWidget* caller)
{
    if (CanDisplay(caller))
        m_viewer.DisplayIndex(Target(), caller);
}

bool HTMLHelp::CanDisplay(QWidget* caller) const
{
    return IsHelpFile(caller) && EnsureFileExists(caller);
}

bool HTMLHelp::IsHelpFile(QWidget* caller) const
{
    if (QFileInfo(CHMFile).suffix().compare("chm"_L1, Qt::CaseInsensitive) == 0)
        return true;
    m_messages.Critical(caller, MessageTitle(), CHMFile + u" is not a valid HTML Help file."_s);
    return false;
}

bool HTMLHelp::EnsureFileExists(QWidget* caller) const
{
    if (QFileInfo(CHMFile).isFile())
        return true;
    m_messages.Critical(
        caller, MessageTitle(),
        u"The file %1 does not exist.\n"
        "Please make sure the correct path and file name have been specified."_s.arg(CHMFile));
    return false;
}

QString HTMLHelp::Target() const
{
    return HHWindow.isEmpty() ? CHMFile : CHMFile + u'>' + HHWindow;
}

} // namespace stoikal
