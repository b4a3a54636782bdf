#pragma once

#include "forms/form.h"

class QPlainTextEdit;

namespace stoikal {

class Clock;
class Dialogs;
class Messages;
class Settings;

/// A window of the main area that searches for a while and shows in a list what
/// it finds. The search can be given up; the window ends after it.
class SearchingForm : public Form
{
    Q_OBJECT

public:
    struct Doors {
        Clock& clock;
        Dialogs& dialogs;
        Messages& messages;
        Settings& settings;
        QString equationFolder;
        QString passwordFile; ///< the class's; empty where there is none
    };

    /// Gives up a search that is going on.
    void StopSearch() { m_isStopped = true; }

    /// A search is given up first.
    void Release() override;

protected:
    SearchingForm(const QString& name, const QString& caption, const Doors& doors, QWidget* parent);

    /// A list that can be read and copied only.
    static void SetUpList(QPlainTextEdit& list);
    /// Puts text behind what the list holds and shows it.
    static void ShowAtEnd(QPlainTextEdit& list, const QString& text);

    void BeginSearch();
    /// \returns false when the window was asked to close meanwhile: it ends here.
    bool EndSearch();
    bool IsSearching() const { return m_isSearching; }
    bool IsStopped() const { return m_isStopped; }

    const Doors& Desktop() const { return m_doors; }

private:
    Doors m_doors;
    bool m_isSearching = false;
    bool m_isStopped = false;
    bool m_isToClose = false;
};

} // namespace stoikal
