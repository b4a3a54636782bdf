// An editor that works until it is killed:
//
//     editor_at_work EQUATION_FOLDER WORK_FILE types|writes
//
// "types" opens Serie.Equ, types into it, waits for its draft and prints
// "ready"; "writes" replaces Serie.Equ again and again by files of one length
// and one letter each, from the first "ready" on.

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

int TypeOn(const QString& folder, const QString& workFile)
{
    FakeClock clock;
    FakeScreen screen;
    FakeMessages messages;
    SettingsStore store;
    const QString none;
    Settings settings(store, none);
    frmNewFile editor({clock, messages, screen, settings, store, workFile, folder}, nullptr);
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
        [&] { return store.ReadSetting(workFile, u"3"_s, u"Molecule1"_s) == u"Fe"_s; }, 5000);
    std::cout << (isSaved ? "ready" : "no draft") << std::endl;
    return QApplication::exec();
}

int WriteOn(const QString& folder)
{
    for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
        if (!WriteEquationFile(folder, u"Serie.Equ"_s, QByteArray(200000, letter)).Succeeded())
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
    return arguments[3] == u"types"_s ? TypeOn(arguments[1], arguments[2]) : WriteOn(arguments[1]);
}
