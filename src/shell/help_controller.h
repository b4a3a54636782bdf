#pragma once

#include "help/windows/html_help.h"
#include "help/windows/page_printer.h"

#include <QObject>
#include <QPointer>

namespace stoikal {

class frmHelp;
class Folders;
class frmStoikal;
class Screen;
class Settings;

/// The help of all windows: which file and which page an F1 key or a menu entry
/// opens. It keeps the one window that shows them.
class HelpController final : public QObject, private HelpViewer
{
    Q_OBJECT

public:
    struct Services {
        const Folders& folders;
        Screen& screen;
        Messages& messages;
        Settings& settings;
    };

    HelpController(const Services& services, frmStoikal& mainWindow);
    ~HelpController() override;

    /// The page of the manual with that number; its contents for the number of
    /// windows without a page of their own.
    void ShowTopic(int topic);
    void Mnu_Help_Contents_Click();
    void Mnu_Help_Index_Click();
    void Mnu_Glossaire_Click();
    void Mnu_Gloss_sc_Click();
    /// Takes the help away, at the end of the program.
    void Close();

private:
    void DisplayTopic(const QString& file, std::int32_t topic, QWidget* caller) override;
    void DisplayContents(const QString& file, QWidget* caller) override;
    void DisplayIndex(const QString& file, QWidget* caller) override;
    frmHelp& Window();
    QString FileNamed(const QString& name) const;
    QWidget* Caller() const;

    Services m_services;
    frmStoikal& m_mainWindow;
    DesktopPagePrinter m_printer;
    HTMLHelp m_help;
    QPointer<frmHelp> m_window;
};

} // namespace stoikal
