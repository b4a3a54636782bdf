#pragma once

#include <QObject>
#include <QStringList>

namespace stoikal {

class frmStoikal;
class Messages;
class ResultsJournal;
class Settings;
struct Places;
struct Platform;

/// All that a run of the program needs before the user acts, in a fixed order.
class StartUp final : public QObject
{
    Q_OBJECT

public:
    struct Services {
        Places& places; ///< found here
        ResultsJournal& journal; ///< opened here
        Settings& settings;
        Messages& messages;
        const Platform& desktop;
    };

    StartUp(const Services& services, frmStoikal& mainWindow);

    /// Runs all steps; comes back once the splash and the tip are gone. A journal
    /// that cannot be opened is a FatalFault.
    void Run();

    /// The steps reached so far, in order.
    const QStringList& Steps() const { return m_steps; }

Q_SIGNALS:
    /// The tip of the day is due.
    void TipAsked();

private:
    void CheckForNewVersion();
    void TakeVersionFile(const QByteArray& bytes);
    void TellNewVersion();
    void SizeMainWindow();
    void ChooseBackground();
    void LoadBackground();
    void ReportUnreadableSettings();
    void FindJournal();
    QString NetworkJournal();
    void OpenJournal();
    void ReportTornJournal();
    void ReportFoldersWithoutLocks();
    void ShowSplash();
    void ShowTip();
    void PresetBubbles();

    Services m_services;
    frmStoikal& m_mainWindow;
    QStringList m_steps;
    QString m_background; ///< path of the picture that fits the screen; empty for none
    QString m_newVersion; ///< announced and not yet told
    bool m_canTell = false; ///< the window stands whole, a box may come over it
};

/// The name of a network journal, one a start: "EQU_dupont_5_3_2016_14_7.txt".
QString NetworkJournalName(const QString& user, const QDateTime& now);

} // namespace stoikal
