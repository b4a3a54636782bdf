#include "editor/work_file.h"

#include "base/settings_store.h"
#include "support/file_bytes.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// An editor in a process of its own, killed without any warning.
class EditorKilled : public testing::Test
{
protected:
    ~EditorKilled() override { Kill(); }

    void Start(const QString& work)
    {
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QStringLiteral(STOIKAL_EDITOR_AT_WORK), {folder.path(), WorkPath(), work});
        QByteArray said;
        while (!said.contains("ready") && process.waitForReadyRead(20000))
            said += process.readAll();
        ASSERT_TRUE(said.contains("ready")) << said.toStdString();
    }

    void Kill()
    {
        process.kill();
        process.waitForFinished();
    }

    QString WorkPath() const { return cache.filePath(u"FileTemp.txt"_s); }

    QByteArray File() const { return BytesOfFile(folder.filePath(u"Serie.Equ"_s)); }

    void Put(const QByteArray& bytes) const { WriteBytes(folder.filePath(u"Serie.Equ"_s), bytes); }

    QTemporaryDir folder;
    QTemporaryDir cache;
    QProcess process;
};

} // namespace

TEST_F(EditorKilled, LeavesTheLastGoodFileAndAWorkFileThatCanBeOffered)
{
    const QByteArray before = "' T\xEAte\r\nH2+O2=H2O/2,1,2\r\n";
    Put(before);
    Start(u"types"_s);

    Kill();

    EXPECT_EQ(File(), before);
    SettingsStore store;
    const auto places = PlacesWithLeftWork(cache.path(), store);
    ASSERT_EQ(places.size(), 1U);
    EXPECT_EQ(places[0].path, WorkPath());
    const WorkFile work(store, WorkPath());
    const auto left = work.LeftBehind();
    ASSERT_TRUE(left.has_value());
    EXPECT_EQ(left->name, u"Serie"_s);
    EXPECT_EQ(left->head, u"Tête"_s);
    EXPECT_EQ(left->count, 3);
    EXPECT_EQ(left->number, 3);
    const auto equations = work.Equations(3);
    EXPECT_EQ(equations[0].Molecule[3], u"H2O"_s);
    EXPECT_EQ(equations[1].Molecule[3], u"CO2"_s);
    EXPECT_EQ(equations[1].Coeff[0], u"1"_s);
    EXPECT_EQ(equations[2].Molecule[0], u"Fe"_s) << "the equation that was not stored yet";
}

TEST_F(EditorKilled, LeavesTheSameWorkWhenItIsKilledAgainAfterTakingItUp)
{
    Put("H2+O2=H2O/2,1,2\r\n");
    Start(u"types"_s);
    Kill();
    SettingsStore before;
    const auto first = WorkFile(before, WorkPath()).LeftBehind();
    ASSERT_TRUE(first.has_value());

    Start(u"resumes"_s);
    Kill();

    SettingsStore store;
    const WorkFile work(store, WorkPath());
    EXPECT_EQ(work.LeftBehind(), first);
    EXPECT_EQ(work.Equations(3), WorkFile(before, WorkPath()).Equations(3));
    EXPECT_EQ(first->loaded, VersionOf(u"Serie.Equ"_s, File()));
}

TEST_F(EditorKilled, LeavesAWholeFileAtWhateverMomentOfTheWriting)
{
    for (unsigned long pauseMs = 0; pauseMs < 10; ++pauseMs) {
        Start(u"writes"_s);
        QThread::msleep(pauseMs);

        Kill();

        const QByteArray bytes = File();
        ASSERT_EQ(bytes.size(), 200000);
        EXPECT_EQ(bytes, (QByteArray(1998, bytes[0]) + "\r\n").repeated(100)) << "after " << pauseMs << " ms";
    }
}

} // namespace stoikal
