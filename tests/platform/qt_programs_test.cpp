#include "platform/qt_platform.h"

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

/// Sets a variable of the environment for one test.
class Variable
{
public:
    Variable(const char* name, const QString& value)
        : m_name(name)
        , m_before(qgetenv(name))
    {
        if (value.isNull())
            qunsetenv(name);
        else
            qputenv(name, value.toLocal8Bit());
    }
    ~Variable()
    {
        if (m_before.isNull())
            qunsetenv(m_name);
        else
            qputenv(m_name, m_before);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* m_name;
    QByteArray m_before;
};

/// A folder of programs; each notes the file that it was given.
struct EditorFolder {
    QTemporaryDir folder;
    QString note = folder.filePath(u"note"_s);

    void Add(const QString& name) const
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        const QByteArray target = note.toLocal8Bit();
        file.write("#!/bin/sh\n/bin/echo \"" + name.toLocal8Bit() + ": $1\" > '" + target
                   + ".part'\n/bin/mv '" + target + ".part' '" + target + "'\n");
        ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }

    QString Note() const
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return QFile::exists(note); }, 60000));
        QFile file(note);
        return file.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(file.readAll()).trimmed() : QString();
    }
};

} // namespace

TEST(QtProgramsEditor, IsTheDesktopsOpener)
{
    const EditorFolder programs;
    programs.Add(u"gedit"_s);
    programs.Add(u"xdg-open"_s);
    const Variable path("PATH", programs.folder.path());
    const Variable none("STOIKAL_EDITOR", QString());

    EXPECT_TRUE(QtPrograms().EditText(u"/srv/classe/Résultats à lire.txt"_s));

    EXPECT_EQ(programs.Note(), u"xdg-open: /srv/classe/Résultats à lire.txt"_s);
}

TEST(QtProgramsEditor, IsAnEditorThatIsThereWithoutTheOpener)
{
    const EditorFolder programs;
    programs.Add(u"mousepad"_s);
    const Variable path("PATH", programs.folder.path());
    const Variable none("STOIKAL_EDITOR", QString());

    EXPECT_TRUE(QtPrograms().EditText(u"/srv/a.txt"_s));

    EXPECT_EQ(programs.Note(), u"mousepad: /srv/a.txt"_s);
}

TEST(QtProgramsEditor, IsTheCommandOfItsVariable)
{
    const EditorFolder programs;
    programs.Add(u"xdg-open"_s);
    programs.Add(u"mine"_s);
    const Variable path("PATH", programs.folder.path());
    const Variable mine("STOIKAL_EDITOR", u"mine"_s);

    EXPECT_TRUE(QtPrograms().EditText(u"/srv/a.txt"_s));

    EXPECT_EQ(programs.Note(), u"mine: /srv/a.txt"_s);
}

TEST(QtProgramsEditor, MayBeMissing)
{
    const EditorFolder programs;
    const Variable path("PATH", programs.folder.path());
    const Variable none("STOIKAL_EDITOR", QString());

    EXPECT_FALSE(QtPrograms().EditText(u"/srv/a.txt"_s));
}

namespace {

/// A calculator that notes its process and what it was given, and stays.
struct CalculatorProgram {
    QTemporaryDir folder;
    QString note = folder.filePath(u"note"_s);
    QString path = folder.filePath(u"calc (old)"_s);

    CalculatorProgram()
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        const QByteArray target = note.toLocal8Bit();
        file.write("#!/bin/sh\n/bin/echo \"$$ $1\" > '" + target + ".part'\n/bin/mv '" + target + ".part' '"
                   + target + "'\nexec /bin/sleep 300\n");
        EXPECT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }

    QString Note() const
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return QFile::exists(note); }, 60000));
        QFile file(note);
        return file.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(file.readAll()).trimmed() : QString();
    }
};

} // namespace

TEST(QtProgramsCalculator, IsSeenToBeClosedByItsUser)
{
    const CalculatorProgram calculator;
    const Variable command("STOIKAL_CALCULATOR", u"\"%1\" \"two words\""_s.arg(calculator.path));
    QtPrograms programs;
    EXPECT_FALSE(programs.CalculatorRuns());

    ASSERT_TRUE(programs.StartCalculator());

    const QString note = calculator.Note();
    EXPECT_EQ(note.section(u' ', 1), u"two words"_s);
    EXPECT_TRUE(programs.CalculatorRuns());
    ASSERT_EQ(::kill(note.section(u' ', 0, 0).toInt(), SIGKILL), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !programs.CalculatorRuns(); }, 20000));
}

TEST(QtProgramsCalculator, IsOverThoughNobodyHasAskedHowItEnded)
{
    const CalculatorProgram calculator;
    const Variable command("STOIKAL_CALCULATOR", u"\"%1\""_s.arg(calculator.path));
    // What loses its parent comes to this process, which does not ask.
    ASSERT_EQ(::prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0), 0);
    QtPrograms programs;
    ASSERT_TRUE(programs.StartCalculator());
    const int number = calculator.Note().section(u' ', 0, 0).toInt();
    EXPECT_TRUE(programs.CalculatorRuns());

    ASSERT_EQ(::kill(number, SIGKILL), 0);
    const auto isLeft = [number] {
        QFile state(u"/proc/%1/stat"_s.arg(number));
        return state.open(QIODevice::ReadOnly) && state.readAll().contains(") Z ");
    };
    EXPECT_TRUE(QTest::qWaitFor(isLeft, 20000));

    EXPECT_FALSE(programs.CalculatorRuns());
    EXPECT_TRUE(isLeft());
    ::waitpid(number, nullptr, 0);
    ::prctl(PR_SET_CHILD_SUBREAPER, 0, 0, 0, 0);
}

TEST(QtProgramsCalculator, IsClosedByTheProgram)
{
    const CalculatorProgram calculator;
    const Variable command("STOIKAL_CALCULATOR", u"\"%1\""_s.arg(calculator.path));
    QtPrograms programs;
    ASSERT_TRUE(programs.StartCalculator());
    const QString number = calculator.Note().section(u' ', 0, 0);

    programs.CloseCalculator();

    EXPECT_FALSE(programs.CalculatorRuns());
    EXPECT_TRUE(QTest::qWaitFor(
        [&number] {
            QFile state(u"/proc/%1/stat"_s.arg(number));
            return !state.open(QIODevice::ReadOnly) || state.readAll().contains(") Z ");
        },
        20000));
}

TEST(QtProgramsCalculator, MayBeMissing)
{
    const Variable command("STOIKAL_CALCULATOR", u"/no/such/calculator"_s);
    QtPrograms programs;

    EXPECT_FALSE(programs.StartCalculator());
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
