#pragma once

#include <QString>
#include <cstdint>

class QWidget;

namespace stoikal {

class Messages;

/// What shows help files. The name of a file may end in ">" and the name of a
/// window type; `caller` is the window that requests it.
class HelpViewer
{
public:
    virtual ~HelpViewer() = default;
    virtual void DisplayTopic(const QString& file, std::int32_t topic, QWidget* caller) = 0;
    virtual void DisplayContents(const QString& file, QWidget* caller) = 0;
    virtual void DisplayIndex(const QString& file, QWidget* caller) = 0;
};

/// The access to the help of the program: what to open is set, then one of the
/// displays is called. A file that cannot be one is reported in a message box, and nothing
/// else happens.
class HTMLHelp
{
public:
    HTMLHelp(HelpViewer& viewer, Messages& messages)
        : m_viewer(viewer)
        , m_messages(messages)
    {
    }

    QString CHMFile; ///< the full name of the help file
    std::int32_t HHTopicID = 0; ///< the number of a topic
    QString HHWindow; ///< the name of a window type, usually empty

    /// Opens the topic HHTopicID.
    void HHDisplayTopicID(QWidget* caller);
    /// Opens the contents of the file.
    void HHDisplayContents(QWidget* caller);
    /// Opens the index of the file.
    void HHDisplayIndex(QWidget* caller);

private:
    bool IsHelpFile(QWidget* caller) const;
    bool EnsureFileExists(QWidget* caller) const;
    bool CanDisplay(QWidget* caller) const;
    QString Target() const;

    HelpViewer& m_viewer;
    Messages& m_messages;
};

} // namespace stoikal
