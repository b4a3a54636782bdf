#include "exercise/high_scores.h"
#include "fuzz.h"

using namespace stoikal;

/// The decoded lines of the file, as the table takes them.
static QStringList LinesOf(const std::uint8_t* data, size_t size)
{
    return fuzz::LineOf(data, size).split(QLatin1Char('\n'));
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    const QString title = QStringLiteral("chimie1.Equ");
    const QStringList old = LinesOf(data, size);
    HighScoreTable table(old, title);
    const NewResult result{QStringLiteral("Dupont"), 20, 1};
    table.Insert(result);
    fuzz::Require(table.Section().size() <= 10, "ten records at most");
    QStringList lines;
    for (const HighScoreTable::Line& line : table.Lines(QLatin1Char(','))) {
        fuzz::Require(line.keptFrom < old.size(), "a line kept is an old one");
        lines << (line.keptFrom >= 0 ? old[line.keptFrom] : line.text);
    }
    const HighScoreTable again(lines, title);
    fuzz::Require(again.Section().size() == table.Section().size(), "the new text holds the section");
    HighScoreRows(table.Section(), result, QLatin1Char(','));
    return 0;
}
