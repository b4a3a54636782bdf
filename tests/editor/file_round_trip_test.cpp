#include "editor/equation_file_io.h"
#include "editor/work_file.h"

#include "base/settings_store.h"
#include "base/text_lines.h"
#include "equation_files/equation_file.h"
#include "equation_files/equation_line.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

struct ReadSlot {
    QString Molecule;
    int Coeff;
    QString Etat;
    int Charge;
    QString MVQ;
    bool operator==(const ReadSlot&) const = default;
};

/// All that the reader of a run finds in a file.
std::vector<std::vector<ReadSlot>> AsInARun(const QString& path)
{
    std::vector<std::vector<ReadSlot>> equations;
    auto opened = EquationFile::Open(path);
    EXPECT_TRUE(opened.Succeeded()) << path.toStdString();
    if (!opened)
        return equations;
    EquationFile file = *opened;
    while (file.NextLine()) {
        std::vector<ReadSlot> slots;
        for (const SpeciesSlot& slot : ParseEquationLine(file.Line()).record.Slots)
            slots.push_back({slot.Molecule, slot.Coeff, slot.Etat, slot.Charge, slot.MVQ});
        equations.push_back(slots);
    }
    return equations;
}

/// Loads a file, keeps it in a work file, writes it; the path of the new one.
QString ThroughTheEditor(const QString& path, FileType type, const QTemporaryDir& folder)
{
    const auto loaded = LoadFileIntoEditor(path);
    EXPECT_TRUE(loaded.Succeeded());
    SettingsStore store;
    WorkFile work(store, folder.filePath(u"FileTemp.txt"_s));
    WorkDesk desk;
    desk.count = static_cast<int>(loaded->equations.size());
    EXPECT_TRUE(work.BeginWith(desk, loaded->equations));
    const auto written = WriteEquationFile(folder.path(), EquationFileName(u"Copie"_s, type),
                                           EquationFileBytes(loaded->head, work.Equations(desk.count), type));
    EXPECT_TRUE(written.Succeeded());
    return *written;
}

/// The comments of a file, in their order.
QStringList CommentsOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QStringList comments;
    const QStringList lines = DecodeLines(file.readAll());
    for (const QString& line : lines) {
        if (line.startsWith(u'\''))
            comments << line.sliced(1).trimmed();
    }
    return comments;
}

} // namespace

TEST(EditorRoundTrip, EveryShippedFileReadsTheSameAfterwards)
{
    const QDir shipped(QStringLiteral(STOIKAL_DATA_DIR "/exercises"));
    const QStringList names = shipped.entryList({u"*.Equ"_s, u"*.Avt"_s}, QDir::Files);
    ASSERT_GE(names.size(), 20);
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        const QTemporaryDir folder;
        const FileType type = name.endsWith(u".Avt"_s) ? FileType::Avt : FileType::Equ;

        const QString copy = ThroughTheEditor(shipped.filePath(name), type, folder);

        const auto before = AsInARun(shipped.filePath(name));
        EXPECT_FALSE(before.empty());
        EXPECT_EQ(AsInARun(copy), before);
        EXPECT_EQ(CommentsOf(copy), CommentsOf(shipped.filePath(name)));
    }
}

TEST(EditorRoundTrip, StatesChargesAndDataReadTheSameAfterwards)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Main.Avt"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("'\r\n"
               "CH4<g> + O2 <G> = CO2<g>+H2O<l> / 1,2,1,2 # Q0.5,m1.25,Q0,V0\r\n"
               "Fe<aq>{3+}+Cu<s>=Fe{2+}<aq>+Cu{2+}/2,1,2,1#Q1,Q2,Q0,Q0\r\n"
               "CuSO4,5H2O=CuSO4+H2O/1,1,5#M10,Q0,Q0\r\n");
    file.close();

    const QString copy = ThroughTheEditor(path, FileType::Avt, folder);

    EXPECT_EQ(AsInARun(path).size(), 3U);
    EXPECT_EQ(AsInARun(copy), AsInARun(path));
}

} // namespace stoikal
