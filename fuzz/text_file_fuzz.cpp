#include "fuzz.h"
#include "tools/text_file.h"

using namespace stoikal;

/// A text as the window of the results or of the tips shows it and writes it again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    TextFile file(fuzz::FileOf(data, size, QStringLiteral("Resultat.txt")));
    const auto lines = file.Load();
    fuzz::Require(lines.Succeeded(), "a file that is there can be read");
    for (const QString& line : *lines)
        fuzz::Require(!line.contains(QLatin1Char('\n')) && !line.contains(QLatin1Char('\r')),
                      "a line has no end in it");
    // Letters that are the mark of another encoding as well are read as that mark.
    const QByteArray first = lines->isEmpty() ? QByteArray() : EncodeLine(lines->first());
    if (first.startsWith("\xFF\xFE") || first.startsWith("\xFE\xFF") || first.startsWith("\xEF\xBB\xBF"))
        return 0;
    fuzz::Require(file.Save(*lines).Succeeded(), "a file can be written");
    const auto again = file.Load();
    fuzz::Require(again.Succeeded() && *again == *lines, "what was written is read");
    return 0;
}
