#include "help/help_file.h"

#include "help_support.h"

#include <QProcess>
#include <map>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// Writes into a folder a help file as the tools of other houses make them, by
/// compiling a project of it; its full name.
QString CompiledHelp(const QTemporaryDir& folder, const QByteArray& project,
                     const std::map<QString, QByteArray>& files)
{
    for (const auto& [name, bytes] : files)
        WriteBytes(folder.filePath(name), bytes);
    WriteBytes(folder.filePath(u"projet.hhp"_s), project);
    QProcess compiler;
    compiler.setWorkingDirectory(folder.path());
    compiler.start(QStringLiteral(STOIKAL_CHMCMD), {u"--no-html-scan"_s, u"projet.hhp"_s});
    if (!compiler.waitForFinished() || compiler.exitCode() != 0)
        throw std::runtime_error("not compiled: " + compiler.readAll().toStdString());
    const QString path = folder.filePath(u"Aide.chm"_s);
    // It writes the first of two class ids twice; here they differ.
    QByteArray bytes = BytesOf(path);
    bytes[0x28] = 0x11;
    WriteBytes(path, bytes);
    return path;
}

} // namespace

TEST(HelpFile, ReadsTheTitleTheStartPageAndTheLists)
{
    const auto file = OpenedHelp(ShippedHelpFiles().at(1));

    EXPECT_EQ(file->Title(), u"Glossaire des atomes"_s);
    EXPECT_EQ(file->StartPage(), u"/accueil.html"_s);
    ASSERT_FALSE(file->Contents().empty());
    EXPECT_EQ(file->Contents().front().title, u"Glossaire des atomes"_s);
    EXPECT_FALSE(file->Index().empty());
    EXPECT_EQ(file->Remarks(), QStringList());
    EXPECT_EQ(file->WindowTitle(u"principale"_s), u"Glossaire des atomes"_s);
}

TEST(HelpFile, FindsThePageOfATopicNumber)
{
    const QTemporaryDir folder;
    const auto file
        = OpenedHelp(CompiledHelp(folder,
                                  "[OPTIONS]\nTitle=Aide\nCompiled file=Aide.chm\nDefault topic=a.html\n"
                                  "[FILES]\na.html\nb.html\n[ALIAS]\nA=a.html\nB=b.html\n"
                                  "[MAP]\n#define A 100\n#define B 70000\n",
                                  {{u"a.html"_s, "<p>a</p>"}, {u"b.html"_s, "<p>b</p>"}}));

    EXPECT_EQ(file->Topics().value(100).path, u"/a.html"_s);
    EXPECT_EQ(file->Topics().value(70000).path, u"/b.html"_s);
    EXPECT_EQ(file->Topics().size(), 2);
}

TEST(HelpFile, ReadsTextsInWindows1252AndInUtf8)
{
    const QTemporaryDir folder;
    const auto file = OpenedHelp(
        CompiledHelp(folder,
                     "[OPTIONS]\nTitle=L'\xE9t\xE9\nCompiled file=Aide.chm\nContents file=s.hhc\nDefault "
                     "topic=a.html\n[FILES]\na.html\nb.html\n",
                     {{u"a.html"_s, "<p>\xE9l\xE8ve, \x9Cuf</p>"},
                      {u"b.html"_s, "<p>\xC3\xA9l\xC3\xA8ve</p>"},
                      {u"s.hhc"_s,
                       "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"\xC9l\xE8ve\">"
                       "<param name=\"Local\" value=\"a.html\"></OBJECT></UL>"}}));

    EXPECT_EQ(file->Title(), u"L'été"_s);
    EXPECT_EQ(*file->Text(u"/a.html"_s), u"<p>élève, œuf</p>"_s);
    EXPECT_EQ(*file->Text(u"/b.html"_s), u"<p>élève</p>"_s);
    ASSERT_EQ(file->Contents().size(), 1U);
    EXPECT_EQ(file->Contents().front().title, u"Élève"_s);
}

TEST(HelpFile, OfASchoolWithoutListsShowsItsFirstPage)
{
    const QTemporaryDir folder;
    const auto file
        = OpenedHelp(CompiledHelp(folder, "[OPTIONS]\nCompiled file=Aide.chm\n[FILES]\nz.htm\nb.html\n",
                                  {{u"z.htm"_s, "<p>z</p>"}, {u"b.html"_s, "<p>b</p>"}}));

    EXPECT_EQ(file->Title(), u"Aide"_s);
    EXPECT_EQ(file->StartPage(), u"/b.html"_s);
    EXPECT_TRUE(file->Contents().empty());
    EXPECT_EQ(file->Pages(), (QStringList{u"/b.html"_s, u"/z.htm"_s}));
}

TEST(HelpFile, WithoutAPageIsRefused)
{
    const QTemporaryDir folder;
    const QString path
        = CompiledHelp(folder, "[OPTIONS]\nCompiled file=Aide.chm\n[FILES]\na.txt\n", {{u"a.txt"_s, "a"}});

    const auto file = HelpFile::Open(path);

    ASSERT_FALSE(file);
    EXPECT_EQ(file.Reason(), u"Le fichier d'aide\n%1\nne contient aucune page."_s.arg(path));
}

} // namespace stoikal
