#include "platform/qt_platform.h"

#include "support/environment.h"
#include "support/qt_printers.h"
#include "support/window_driver.h"

#include <QColorDialog>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// Programs that note what they were given.
struct NotingPrograms {
    QTemporaryDir folder;
    QString note = folder.filePath(u"note"_s);
    Environment environment;

    /// A program that notes `words`, in which the shell puts its values, and then
    /// does `further`. The note stands there whole or not at all.
    void Add(const QString& name, const QByteArray& words, const QByteArray& further = {}) const
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        const QByteArray target = note.toLocal8Bit();
        file.write("#!/bin/sh\n/bin/echo \"" + words + "\" > '" + target + ".part'\n/bin/mv '" + target
                   + ".part' '" + target + "'\n" + further);
        ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }

    QString Note() const
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return QFile::exists(note); }, 60000));
        QFile file(note);
        return file.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(file.readAll()).trimmed() : QString();
    }
};

/// A desktop with the programs of one folder, and no editor named by the variable.
/// Each notes its name and the file that it was given.
struct EditorFolder : NotingPrograms {
    EditorFolder()
    {
        environment.Set("PATH", folder.path());
        environment.Unset("STOIKAL_EDITOR");
    }

    void Add(const QString& name) const { NotingPrograms::Add(name, name.toLocal8Bit() + ": $1"); }
};

/// A calculator that notes its process and what it was given, and stays. The
/// variable names it.
struct CalculatorProgram : NotingPrograms {
    QString path;

    explicit CalculatorProgram(const QString& name = u"calc (old)"_s)
        : path(folder.filePath(name))
    {
        Add(name, "$$ $1", "exec /bin/sleep 300\n");
        environment.Set("STOIKAL_CALCULATOR", u"\"%1\""_s.arg(path));
    }

    int Process() const { return Note().section(u' ', 0, 0).toInt(); }
};

/// What the system tells of a process; nothing when there is none.
QByteArray StateOf(int process)
{
    QFile state(u"/proc/%1/stat"_s.arg(process));
    return state.open(QIODevice::ReadOnly) ? state.readAll() : QByteArray();
}

/// Its work is over, and it waits only to be counted.
bool IsLeftUncounted(int process)
{
    return StateOf(process).contains(") Z ");
}

bool IsOver(int process)
{
    return StateOf(process).isEmpty() || IsLeftUncounted(process);
}

} // namespace

TEST(QtProgramsEditor, IsTheDesktopsOpener)
{
    const EditorFolder programs;
    programs.Add(u"gedit"_s);
    programs.Add(u"xdg-open"_s);

    EXPECT_TRUE(QtPrograms().EditText(u"/srv/classe/Résultats à lire.txt"_s));

    EXPECT_EQ(programs.Note(), u"xdg-open: /srv/classe/Résultats à lire.txt"_s);
}

TEST(QtProgramsEditor, IsAnEditorThatIsThereWithoutTheOpener)
{
    const EditorFolder programs;
    programs.Add(u"mousepad"_s);

    EXPECT_TRUE(QtPrograms().EditText(u"/srv/a.txt"_s));

    EXPECT_EQ(programs.Note(), u"mousepad: /srv/a.txt"_s);
}

TEST(QtProgramsEditor, IsTheCommandOfItsVariable)
{
    EditorFolder programs;
    programs.Add(u"xdg-open"_s);
    programs.Add(u"mine"_s);
    programs.environment.Set("STOIKAL_EDITOR", u"mine"_s);

    EXPECT_TRUE(QtPrograms().EditText(u"/srv/a.txt"_s));

    EXPECT_EQ(programs.Note(), u"mine: /srv/a.txt"_s);
}

TEST(QtProgramsEditor, MayBeMissing)
{
    const EditorFolder programs;

    EXPECT_FALSE(QtPrograms().EditText(u"/srv/a.txt"_s));
}

TEST(QtProgramsCalculator, IsTheCommandOfItsVariableWithItsArguments)
{
    CalculatorProgram calculator;
    calculator.environment.Set("STOIKAL_CALCULATOR", u"\"%1\" \"two words\""_s.arg(calculator.path));
    QtPrograms programs;
    ASSERT_FALSE(programs.CalculatorRuns());

    ASSERT_TRUE(programs.StartCalculator());

    EXPECT_EQ(calculator.Note().section(u' ', 1), u"two words"_s);
    EXPECT_TRUE(programs.CalculatorRuns());
    EXPECT_FALSE(IsOver(calculator.Process()));
    programs.CloseCalculator();
}

TEST(QtProgramsCalculator, IsTheFirstInstalledOneOfTheListWithoutItsVariable)
{
    CalculatorProgram calculator(u"galculator"_s);
    calculator.environment.Unset("STOIKAL_CALCULATOR");
    calculator.environment.Set("PATH", calculator.folder.path());
    QtPrograms programs;

    ASSERT_TRUE(programs.StartCalculator());

    EXPECT_FALSE(IsOver(calculator.Process()));
    programs.CloseCalculator();
}

TEST(QtProgramsCalculator, IsSeenToBeClosedByItsUser)
{
    const CalculatorProgram calculator;
    QtPrograms programs;
    ASSERT_TRUE(programs.StartCalculator());
    const int process = calculator.Process();
    EXPECT_TRUE(programs.CalculatorRuns());

    ASSERT_EQ(::kill(process, SIGKILL), 0);

    EXPECT_TRUE(QTest::qWaitFor([&] { return !programs.CalculatorRuns(); }, 20000));
}

TEST(QtProgramsCalculator, IsOverThoughNobodyHasAskedHowItEnded)
{
    const CalculatorProgram calculator;
    // What loses its parent comes to this process, which does not ask.
    ASSERT_EQ(::prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0), 0);
    QtPrograms programs;
    ASSERT_TRUE(programs.StartCalculator());
    const int process = calculator.Process();
    EXPECT_TRUE(programs.CalculatorRuns());

    ASSERT_EQ(::kill(process, SIGKILL), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return IsLeftUncounted(process); }, 20000));

    EXPECT_FALSE(programs.CalculatorRuns());
    EXPECT_TRUE(IsLeftUncounted(process));
    ::waitpid(process, nullptr, 0);
    ::prctl(PR_SET_CHILD_SUBREAPER, 0, 0, 0, 0);
}

TEST(QtProgramsCalculator, IsClosedByTheProgram)
{
    const CalculatorProgram calculator;
    QtPrograms programs;
    ASSERT_TRUE(programs.StartCalculator());
    const int process = calculator.Process();

    programs.CloseCalculator();

    EXPECT_FALSE(programs.CalculatorRuns());
    EXPECT_TRUE(QTest::qWaitFor([&] { return IsOver(process); }, 20000));
}

TEST(QtProgramsCalculator, MayBeMissing)
{
    Environment environment;
    environment.Set("STOIKAL_CALCULATOR", u"/no/such/calculator"_s);
    QtPrograms programs;

    EXPECT_FALSE(programs.StartCalculator());
    EXPECT_FALSE(programs.CalculatorRuns());
    programs.CloseCalculator(); // Nothing to close, and nothing happens.
    EXPECT_FALSE(programs.CalculatorRuns());
}

TEST(QtDialogsColour, BeginsWithTheColourAndOffersTheOwnOnes)
{
    QList<QColor> own;
    for (int i = 0; i < 16; ++i)
        own << QColor(i, 2 * i, 3 * i);
    ModalScript script;
    QColor first;
    QString title;
    script.On("cdgColor", [&](QWidget& window) {
        auto& dialog = dynamic_cast<QColorDialog&>(window);
        first = dialog.currentColor();
        title = dialog.windowTitle();
        dialog.setCurrentColor(QColor(1, 2, 3));
        dialog.accept();
    });

    const auto chosen = QtDialogs().ChooseColour(nullptr, QColor(0xC0, 0xFF, 0xC0), own);

    EXPECT_EQ(first, QColor(0xC0, 0xFF, 0xC0));
    EXPECT_EQ(title, u"Palette de couleurs"_s);
    ASSERT_TRUE(chosen.has_value());
    EXPECT_EQ(*chosen, QColor(1, 2, 3));
    for (int i = 0; i < 16; ++i)
        EXPECT_EQ(QColorDialog::customColor(i), own.at(i)) << i;
}

TEST(QtDialogsColour, CanBeCancelled)
{
    ModalScript script;
    script.On("cdgColor", [](QWidget& window) { dynamic_cast<QColorDialog&>(window).reject(); });

    EXPECT_FALSE(QtDialogs().ChooseColour(nullptr, Qt::red, {}).has_value());
}

} // namespace stoikal
