#include "help/windows/html_help.h"

#include "support/fake_messages.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// Records what it is requested to show.
struct FakeViewer final : HelpViewer {
    QStringList requested;
    void DisplayTopic(const QString& file, std::int32_t topic, QWidget*) override
    {
        requested << u"topic %1 %2"_s.arg(topic).arg(file);
    }
    void DisplayContents(const QString& file, QWidget*) override { requested << u"contents "_s + file; }
    void DisplayIndex(const QString& file, QWidget*) override { requested << u"index "_s + file; }
};

class HtmlHelpTest : public testing::Test
{
protected:
    /// An empty file of that name in the folder; its full name.
    QString Made(const QString& name)
    {
        const QString path = folder.filePath(name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            throw std::runtime_error("cannot write " + path.toStdString());
        return path;
    }

    void DisplayAll()
    {
        help.HHDisplayTopicID(nullptr);
        help.HHDisplayContents(nullptr);
        help.HHDisplayIndex(nullptr);
    }

    QTemporaryDir folder;
    FakeViewer viewer;
    FakeMessages messages;
    HTMLHelp help{viewer, messages};
};

} // namespace

TEST_F(HtmlHelpTest, OpensTopicContentsAndIndexOfItsFile)
{
    help.CHMFile = Made(u"Stoikal.chm"_s);
    help.HHTopicID = 1700;

    DisplayAll();

    EXPECT_EQ(viewer.requested,
              (QStringList{u"topic 1700 "_s + help.CHMFile, u"contents "_s + help.CHMFile,
                           u"index "_s + help.CHMFile}));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(HtmlHelpTest, JoinsTheNameOfAWindowTypeToTheFile)
{
    help.CHMFile = Made(u"Stoikal.CHM"_s);
    help.HHWindow = u"principale"_s;

    help.HHDisplayContents(nullptr);

    EXPECT_EQ(viewer.requested, (QStringList{u"contents "_s + help.CHMFile + u">principale"_s}));
}

TEST_F(HtmlHelpTest, ReportsThatAFileHasNotTheExtensionOfHelp)
{
    help.CHMFile = Made(u"Stoikal.htm"_s);

    DisplayAll();

    ASSERT_EQ(messages.shown.size(), 3U);
    for (const Message& message : messages.shown) {
        EXPECT_EQ(message.title, u"HTML Help Class"_s);
        EXPECT_EQ(message.text, help.CHMFile + u" is not a valid HTML Help file."_s);
    }
    EXPECT_TRUE(viewer.requested.isEmpty());
}

TEST_F(HtmlHelpTest, ReportsThatAFileIsMissing)
{
    help.CHMFile = folder.filePath(u"Stoikal.chm"_s);

    DisplayAll();

    ASSERT_EQ(messages.shown.size(), 3U);
    for (const Message& message : messages.shown) {
        EXPECT_EQ(message.title, u"HTML Help Class"_s);
        EXPECT_EQ(
            message.text,
            u"The file %1 does not exist.\nPlease make sure the correct path and file name have been specified."_s
                .arg(help.CHMFile));
    }
    EXPECT_TRUE(viewer.requested.isEmpty());
}

TEST_F(HtmlHelpTest, LooksAtTheExtensionBeforeTheFile)
{
    help.CHMFile = folder.filePath(u"nowhere.txt"_s);

    help.HHDisplayIndex(nullptr);

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(messages.shown.front().text.endsWith(" is not a valid HTML Help file."_L1));
}

} // namespace stoikal
