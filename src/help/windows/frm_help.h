#pragma once

#include "forms/form.h"
#include "help/page_history.h"
#include "help/windows/html_help.h"

#include <QPointer>
#include <memory>

class QLabel;
class QLineEdit;
class QTabWidget;
class QToolButton;

namespace stoikal {

class ContentsPane;
class FindBar;
class HelpFile;
class HelpPage;
class IndexPane;
class Messages;
class PagePrinter;
class Screen;
class SearchPane;
class Settings;

/// The reader of help files: contents, index and search at the left, the page at
/// the right. There is one for all windows of the program; opening another file
/// in it keeps the path back.
class frmHelp final : public Form, public HelpViewer
{
    Q_OBJECT

public:
    struct Services {
        Messages& messages;
        PagePrinter& printer;
        Screen& screen;
        Settings& settings;
    };

    /// `home` stays the parent while no modal window requests help.
    frmHelp(const Services& services, QWidget* home);

    void DisplayTopic(const QString& file, std::int32_t topic, QWidget* caller) override;
    void DisplayContents(const QString& file, QWidget* caller) override;
    void DisplayIndex(const QString& file, QWidget* caller) override;
    /// Closes the window; its position and size are stored.
    void Close();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Build();
    QWidget* BuildTools();
    void ConnectPanes();
    bool OpenFile(const QString& named);
    void Present(QWidget* caller);
    void ReturnHome();
    void Go(const PageAddress& address);
    void Follow(const PageAddress& address);
    void GoTo(const PageHistory::Stop& stop);
    void ShowNotice(const QString& text);
    void ShowState();
    void ChangeZoom(int percent);
    void ConvertSizeInPixels();
    void RestoreSize();
    void StoreSize();
    QToolButton* NewTool(const QString& name, const QString& picture, const QString& words,
                         const QKeySequence& key);

    Services m_services;
    QWidget* m_home;
    QPointer<QWidget> m_before; ///< the window that was in front of the user before this one
    std::shared_ptr<const HelpFile> m_file;
    PageHistory m_history;
    bool m_hasBeenShown = false;

    QToolButton* cmdBack = nullptr;
    QToolButton* cmdForward = nullptr;
    QToolButton* cmdHome = nullptr;
    QToolButton* cmdZoomOut = nullptr;
    QToolButton* cmdZoomIn = nullptr;
    QToolButton* cmdFind = nullptr;
    QToolButton* cmdPrint = nullptr;
    QLabel* lblZoom = nullptr;
    QLabel* lblNotice = nullptr;
    QTabWidget* tabHelp = nullptr;
    ContentsPane* m_contents = nullptr;
    IndexPane* m_index = nullptr;
    SearchPane* m_search = nullptr;
    FindBar* m_find = nullptr;
    HelpPage* m_page = nullptr;
};

} // namespace stoikal
