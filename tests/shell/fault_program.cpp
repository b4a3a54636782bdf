// A whole program that meets a fault, for tests of what a fault does: it ends
// the process, so a test can only look on from outside.
//
// Arguments: a folder, a case ("open", "vanish", "nested", "internal", "twice", "start",
// "network") and, for a run, the coefficients of the first answer ("2,1,,2"). The folder
// holds documents/Tovik_MARLEN/Stoikal/Serie1.Equ. On the standard output it
// tells, as one line of JSON, what stands on the screen at each message box.

#include "base/fatal_fault.h"
#include "exercise/windows/frm_equation.h"
#include "shell/application.h"
#include "shell/shell.h"

#include "support/fake_platform.h"

#include <QAbstractButton>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <unistd.h>

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

void Say(const QJsonObject& what)
{
    const QByteArray line = QJsonDocument(what).toJson(QJsonDocument::Compact) + '\n';
    std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), stdout);
    // The process ends without looking back.
    std::fflush(stdout);
}

/// The user chooses the one file; before the program gets to it, it may be gone.
struct ScriptedDialogs final : Dialogs {
    QString path;
    bool vanishes = false;
    std::optional<Choice> OpenFile(QWidget* /*parent*/, const Request& /*request*/) override
    {
        if (vanishes)
            QFile::remove(path);
        return Choice{path, 0};
    }
    std::optional<Choice> AppendToFile(QWidget* /*parent*/, const Request& /*request*/) override
    {
        return std::nullopt;
    }
    std::optional<QColor> ChooseColour(QWidget* /*parent*/, const QColor& /*initial*/,
                                       const QList<QColor>& /*ownColours*/) override
    {
        return std::nullopt;
    }
};

/// What a person sees while a message box is open.
QJsonObject LookAround(const QMessageBox& box, Shell& shell)
{
    QJsonArray windows;
    QJsonArray timers;
    const auto widgets = QApplication::topLevelWidgets();
    for (const QWidget* const widget : widgets) {
        if (widget->isVisible())
            windows << widget->objectName();
        const auto children = widget->findChildren<QTimer*>();
        for (const QTimer* const timer : children) {
            if (timer->isActive() && !timer->objectName().isEmpty())
                timers << timer->objectName();
        }
    }
    return {{u"title"_s, box.windowTitle()},
            {u"text"_s, box.text()},
            {u"icon"_s, static_cast<int>(box.icon())},
            {u"windows"_s, windows},
            {u"timers"_s, timers},
            {u"journalIsOpen"_s, shell.Journal().IsOpen()}};
}

/// The person before the screen: leaves the splash, keeps what is preset, reads
/// each box and closes it.
void ServeModalWindow(Shell& shell)
{
    QWidget* const modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible())
        return;
    if (const auto* const box = qobject_cast<QMessageBox*>(modal)) {
        Say(LookAround(*box, shell));
        box->button(QMessageBox::Ok)->click();
    } else if (modal->objectName() == u"frmSplash"_s || modal->objectName() == u"frmTip"_s) {
        static_cast<QDialog*>(modal)->done(QDialog::Accepted);
    } else if (auto* const choose = modal->findChild<QAbstractButton*>(u"cmdChoix"_s)) {
        choose->click();
    }
}

void AnswerFirstEquation(Shell& shell, const QString& coefficients)
{
    frmEquation& exercise = *shell.RunWindows().Exercise();
    const QStringList texts = coefficients.split(u',');
    for (int slot = 0; slot < texts.size(); ++slot)
        exercise.findChild<QLineEdit*>(ArrayName("txtCoef", slot))->setText(texts.at(slot));
    exercise.findChild<QAbstractButton*>(u"cmdOther"_s)->click();
}

void Play(Shell& shell, const QString& name, const QString& coefficients)
{
    shell.State().pupil.NomEleve = u"DUPONT"_s;
    if (name == u"nested"_s) {
        QDialog question;
        question.setObjectName(u"question"_s);
        QTimer::singleShot(0, &question, [&shell] { shell.Files().Mnu_Open_Click(0); });
        question.exec();
        Say({{u"ranOn"_s, true}});
        return;
    }
    if (name == u"twice"_s)
        QTimer::singleShot(0, [] { throw std::out_of_range("nothing at 8"); });
    if (name == u"internal"_s || name == u"twice"_s)
        throw std::out_of_range("nothing at 7");
    shell.Files().Mnu_Open_Click(0);
    if (!coefficients.isEmpty())
        AnswerFirstEquation(shell, coefficients);
}

/// What a process does when it ends the usual way, taking itself down: after a fault
/// nothing of it may run any more.
void WatchForTheUsualEnd()
{
    std::atexit([] { Say({{u"ranOn"_s, true}}); });
}

int Run(int argc, char** argv)
{
    WatchForTheUsualEnd();
    Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    const QString folder = arguments.at(1);
    const QString name = arguments.at(2);
    FakePlatform fakes;
    fakes.folders.appData = folder + u"/appdata"_s;
    fakes.folders.documents = folder + u"/documents"_s;
    fakes.folders.program = folder;
    fakes.folders.cache = folder + u"/cache"_s;
    if (name == u"network"_s)
        fakes.folders.networkRoot = folder + u"/share"_s;
    ScriptedDialogs dialogs;
    dialogs.path = folder + u"/documents/Tovik_MARLEN/Stoikal/Serie1.Equ"_s;
    dialogs.vanishes = name == u"vanish"_s;
    const Platform doors{fakes.clock,     fakes.folders,    fakes.user,     fakes.regional, fakes.screen,
                         fakes.sound,     dialogs,          fakes.programs, fakes.browser,  fakes.web,
                         fakes.clipboard, fakes.randomness, fakes.trash};

    DesktopMessages messages;
    Shell shell(doors, messages);
    QTimer person;
    person.setInterval(10);
    QObject::connect(&person, &QTimer::timeout, [&shell] { ServeModalWindow(shell); });
    person.start();
    application.RunGuarded([&] {
        application.SetFaultCleaner([&shell] { shell.Journal().Close(); });
        application.SetFaultPlace([&shell](const FatalFault& fault) { return shell.WithPlace(fault); });
        shell.Start();
        QTimer::singleShot(0, [&] { Play(shell, name, arguments.value(3)); });
        QTimer::singleShot(20000, [] { QApplication::exit(0); });
        QApplication::exec();
    });
    Say({{u"ranOn"_s, true}});
    return 0;
}

} // namespace
} // namespace stoikal

#ifdef STOIKAL_COVERAGE
extern "C" void __gcov_dump();

// The end by a fault leaves out what a process does at its end, and with it the
// writing of the counted lines: here it goes in front.
extern "C" void _Exit(int code) noexcept
{
    __gcov_dump();
    ::_exit(code);
}
#endif

int main(int argc, char** argv)
{
    return stoikal::Run(argc, argv);
}
