#pragma once

#include "exercise/windows/frm_equation.h"
#include "shell/shell.h"
#include "tools/windows/frm_chrono.h"

#include "support/fake_messages.h"
#include "support/fake_platform.h"
#include "support/file_bytes.h"
#include "support/window_driver.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace stoikal {

/// Writes a text file of lines ended by CRLF, in the code page of equation files.
inline void WriteTextFile(const QString& path, const QStringList& lines)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("cannot write " + path.toStdString());
    for (const QString& line : lines)
        file.write(line.toLatin1() + "\r\n");
}

/// The whole file as text; "(no file)" where there is none.
inline QString TextOfFile(const QString& path)
{
    return QString::fromLatin1(BytesOfFile(path));
}

/// The lines as they stand in a file: each ended by CRLF.
inline QString AsFileText(const QStringList& lines)
{
    return lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
}

inline QString Stars()
{
    return QStringLiteral("**************************************");
}

inline QString Hyphens()
{
    return QStringLiteral("--------------------------------------");
}

/// What the entries of a menu bar show, by their names.
class ShownMenu
{
public:
    explicit ShownMenu(QWidget& window)
        : m_window(window)
    {
    }

    bool IsEnabled(const char* name) const { return Entry(name).isEnabled(); }
    bool IsChecked(const char* name) const { return Entry(name).isChecked(); }
    bool IsVisible(const char* name) const { return Entry(name).isVisible(); }

private:
    QAction& Entry(const char* name) const { return Control<QAction>(m_window, name); }

    QWidget& m_window;
};

/// A shell on a desktop of fakes whose folders are real and empty. Every step
/// written into the script must have been taken by the test's end.
class ShellTest : public testing::Test
{
protected:
    ShellTest()
    {
        desktop.folders.appData = MadeFolder("appdata");
        desktop.folders.documents = MadeFolder("documents");
        desktop.folders.program = MadeFolder("program");
        desktop.folders.cache = folder.filePath(QStringLiteral("cache"));
        // An unforeseen modal window would keep the test waiting for ever.
        m_watch.setSingleShot(true);
        QObject::connect(&m_watch, &QTimer::timeout, [] {
            const QWidget* const modal = QApplication::activeModalWidget();
            qFatal("left waiting in %s", modal == nullptr ? "-" : qPrintable(modal->objectName()));
        });
        m_watch.start(30000);
        m_bystander.setInterval(1);
        QObject::connect(&m_bystander, &QTimer::timeout, [this] { ServeBystanders(); });
        m_bystander.start();
    }

    void TearDown() override
    {
        shell.reset();
        Settle();
        EXPECT_EQ(script.Left(), 0U) << "a window of the script never came";
    }

    QString MadeFolder(const char* name)
    {
        const QString path = folder.filePath(QLatin1String(name));
        QDir().mkpath(path);
        return path;
    }

    /// The settings file of the user as an earlier start left it.
    void WriteSettings(const QStringList& lines)
    {
        const QString own = desktop.folders.appData + QStringLiteral("/Tovik_MARLEN/Stoikal");
        QDir().mkpath(own);
        WriteTextFile(own + QStringLiteral("/ConfEQU_dupont.ini"), lines);
    }

    /// The shell as the process makes it, before its start.
    Shell& MakeShell()
    {
        shell = std::make_unique<Shell>(desktop.Doors(), messages);
        QObject::connect(shell.get(), &Shell::EndAsked, [this] { ++ends; });
        return *shell;
    }

    /// The splash goes when its timer fires.
    void LeaveTheSplash()
    {
        script.On("frmSplash", [](QWidget& splash) { Tick(Control<QTimer>(splash, "tmrSplash")); });
    }

    /// The whole start-up, up to the moment when the user may act.
    void Start()
    {
        LeaveTheSplash();
        MakeShell().Start();
    }

    SessionState& State() { return shell->State(); }
    /// The menu bar as it stands on the screen.
    ShownMenu Menu() { return ShownMenu(shell->MainWindow()); }

    QString Setting(const char* section, const char* key)
    {
        return shell->UserSettings().Read(QString::fromUtf8(section), QString::fromUtf8(key));
    }

    QString EquationFolder() const
    {
        return desktop.folders.documents + QStringLiteral("/Tovik_MARLEN/Stoikal");
    }

    QString JournalText() { return TextOfFile(State().places.FichierResultat); }

    QAction& Entry(const char* name) { return Control<QAction>(shell->MainWindow(), name); }

    /// Chooses a menu entry as a person can: it is shown, enabled, in an enabled
    /// menu, and no modal window stands before it.
    void Choose(const char* name)
    {
        QAction& action = Entry(name);
        bool isReachable
            = action.isVisible() && action.isEnabled() && QApplication::activeModalWidget() == nullptr;
        const auto holders = action.associatedObjects();
        for (QObject* const holder : holders) {
            if (const auto* const menu = qobject_cast<QMenu*>(holder))
                isReachable = isReachable && menu->menuAction()->isEnabled();
        }
        if (!isReachable)
            throw std::runtime_error(std::string("not reachable: ") + name);
        action.trigger();
    }

    /// Paul Dupont of 3B says who he is when he is asked.
    void IdentifyWhenAsked()
    {
        script.On("frmName", [](QWidget& window) {
            Type(Control<QLineEdit>(window, "txtIdent(1)"), QStringLiteral("DUPONT"));
            Type(Control<QLineEdit>(window, "txtIdent(2)"), QStringLiteral("Paul"));
            Type(Control<QLineEdit>(window, "txtIdent(3)"), QStringLiteral("3B"));
            Click(Control<QAbstractButton>(window, "cmdOK"));
        });
    }

    /// An equation file in the folder of equation files; its path.
    QString WriteEquations(const QStringList& lines, const QString& name = QStringLiteral("Serie1.Equ"))
    {
        const QString path = EquationFolder() + QLatin1Char('/') + name;
        WriteTextFile(path, lines);
        return path;
    }

    /// The next file dialog is answered by this file.
    void AnswerDialog(const QString& path, int filter = 0)
    {
        desktop.dialogs.answers.push_back(Dialogs::Choice{path, filter});
    }

    /// A pupil opens a file of these lines through the menu; for one with data he
    /// is asked what he wants to do with it.
    void OpenFile(const QStringList& lines, const QString& name = QStringLiteral("Serie1.Equ"),
                  const ModalScript::Step& choose = {})
    {
        AnswerDialog(WriteEquations(lines, name));
        if (State().pupil.NomEleve.isEmpty())
            IdentifyWhenAsked();
        if (choose)
            script.On("frmChoixSimul", choose);
        Choose("Mnu_Open(0)");
        Settle();
    }

    /// A file opened for free simulation: one equation, and data in a comment.
    void OpenFreeSimulation(const QString& equation)
    {
        OpenFile({QStringLiteral("'Voir #2"), equation}, QStringLiteral("Serie1.Equ"), [](QWidget& window) {
            Click(Control<QAbstractButton>(window, "optSimul(1)"));
            Click(Control<QAbstractButton>(window, "cmdChoix"));
        });
    }

    frmEquation& Exercise()
    {
        frmEquation* const window = shell->RunWindows().Exercise();
        if (window == nullptr)
            throw std::runtime_error("no exercise is open");
        return *window;
    }

    QLineEdit& Box(int slot)
    {
        return Control<QLineEdit>(Exercise(), qPrintable(ArrayName("txtCoef", slot)));
    }

    /// Types the coefficients, one text a slot, and validates. The flash is over
    /// afterwards, so that the next answer can follow.
    void Answer(const QStringList& coefficients)
    {
        for (int slot = 0; slot < coefficients.size(); ++slot) {
            if (!coefficients.at(slot).isEmpty())
                Type(Box(slot), coefficients.at(slot));
        }
        Click(Control<QAbstractButton>(Exercise(), "cmdOther"));
        Tick(Control<QTimer>(Exercise(), "Timer1"));
    }

    /// The stopwatch reaches a time: ten counts a second.
    void ClockReaches(std::int64_t counter)
    {
        desktop.clock.counter = counter;
        Tick(Control<QTimer>(shell->Stopwatch().Window(), "tmrChrono"));
    }

    /// In the window of the mark a button is pressed.
    void PressInNote(const char* button)
    {
        script.On("frmNote", [button](QWidget& note) { Click(Control<QAbstractButton>(note, button)); });
    }

    /// All that makes the session free: no file, no windows of a run.
    void ExpectFreeMode()
    {
        EXPECT_TRUE(Menu().IsEnabled("Mnu_Open(0)"));
        EXPECT_FALSE(Menu().IsEnabled("Mnu_Close"));
        EXPECT_FALSE(Menu().IsEnabled("Mnu_Charge"));
        EXPECT_FALSE(Menu().IsChecked("Mnu_Charge"));
        EXPECT_EQ(shell->MainWindow().windowTitle(), QStringLiteral("Stoikal v.4.0"));
        EXPECT_EQ(State().run.CheminFichier, QString());
        EXPECT_EQ(State().run.TitreFichier, QString());
        EXPECT_EQ(State().run.NumEquation, 0);
        for (const char* const window : {"frmEquation", "frmReactif", "frmProduit", "frmCharge", "frmNote"})
            EXPECT_EQ(FindWindow(window), nullptr) << window;
    }

    QTemporaryDir folder;
    FakePlatform desktop;
    FakeMessages messages;
    ModalScript script;
    /// The tip of the day is clicked away by itself.
    bool leavesTheTip = true;
    /// The question for the password is answered by itself: none was ever set.
    bool passesAsTeacher = true;
    int ends = 0; ///< how often the process was asked to end
    std::unique_ptr<Shell> shell;

private:
    void ServeBystanders()
    {
        QWidget* const modal = QApplication::activeModalWidget();
        if (modal == nullptr || !modal->isVisible())
            return;
        const bool isServed = (leavesTheTip && modal->objectName() == QLatin1String("frmTip"))
            || (passesAsTeacher && modal->objectName() == QLatin1String("frmMotPasse"));
        if (isServed)
            Click(Control<QAbstractButton>(*modal, "cmdOK"));
    }

    QTimer m_watch;
    QTimer m_bystander;
};

/// Tests of a session that has started.
class StartedShellTest : public ShellTest
{
protected:
    void SetUp() override { Start(); }
};

} // namespace stoikal
