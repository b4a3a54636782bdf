// An editor that works until it is killed:
//
//     editor_at_work EQUATION_FOLDER WORK_FILE types|resumes|writes
//
// "types" opens Serie.Equ, types into it, waits for its draft and prints
// "ready"; "resumes" takes up what was left and prints "ready"; "writes" replaces Serie.Equ again and again
// by files of one length and one letter each, from the first "ready" on.

#include "editor/equation_file_io.h"

#include "base/settings_store.h"
#include "editor/windows/frm_new_file.h"
#include "support/fake_messages.h"
#include "support/fake_platform.h"
#include "support/window_driver.h"

#include <QLineEdit>
#include <QPushButton>
#include <iostream>

using namespace stoikal;
using namespace Qt::StringLiterals;

namespace {

/// An editor over folders of its own, not opened yet.
struct Editor {
    Editor(const QString& folder, const QString& workFile)
        : window({clock, messages, screen, settings, store, workFile, folder}, nullptr)
    {
    }

    FakeClock clock;
    FakeScreen screen;
    FakeMessages messages;
    SettingsStore store;
    QString none;
    Settings settings{store, none};
    frmNewFile window;
};

int TypeOn(const QString& folder, const QString& workFile)
{
    Editor work(folder, workFile);
    frmNewFile& editor = work.window;
    if (!editor.LoadFileIntoEditor(u"Serie.Equ"_s, FileType::Equ))
        return 1;
    editor.show();
    Settle();
    Click(Control<QPushButton>(editor, "cmdInsEqu"));
    Type(Control<QLineEdit>(editor, "txtMolecule(0)"), u"C"_s);
    Type(Control<QLineEdit>(editor, "txtMolecule(1)"), u"O2"_s);
    Type(Control<QLineEdit>(editor, "txtMolecule(3)"), u"CO2"_s);
    Click(Control<QPushButton>(editor, "cmdInsEqu"));
    Type(Control<QLineEdit>(editor, "txtMolecule(0)"), u"Fe"_s);
    // No timer is fired by hand: the draft comes by itself, within a moment.
    const bool isSaved = QTest::qWaitFor(
        [&] { return work.store.ReadSetting(workFile, u"3"_s, u"Molecule1"_s) == u"Fe"_s; }, 5000);
    std::cout << (isSaved ? "ready" : "no draft") << std::endl;
    return QApplication::exec();
}

int Resume(const QString& folder, const QString& workFile)
{
    Editor work(folder, workFile);
    const auto left = WorkFile(work.store, workFile).LeftBehind();
    if (!left)
        return 1;
    work.window.TakeUp(*left);
    work.window.show();
    Settle();
    std::cout << "ready" << std::endl;
    return QApplication::exec();
}

int WriteOn(const QString& folder)
{
    for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
        if (!WriteEquationFile(folder, u"Serie.Equ"_s, (QByteArray(1998, letter) + "\r\n").repeated(100))
                 .Succeeded())
            return 1;
        std::cout << "ready" << std::endl;
    }
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 4)
        return 2;
    if (arguments[3] == u"writes"_s)
        return WriteOn(arguments[1]);
    const auto work = arguments[3] == u"types"_s ? TypeOn : Resume;
    return work(arguments[1], arguments[2]);
}
