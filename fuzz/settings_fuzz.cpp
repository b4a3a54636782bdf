#include "base/profile_text.h"
#include "fuzz.h"

using namespace stoikal;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    ProfileText text(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    const QString section = QStringLiteral("Options");
    const QString key = QStringLiteral("Clé");
    text.Write(section, key, QStringLiteral("valeur"));
    fuzz::Require(text.Read(section, key) == QLatin1String("valeur"), "what was written is read");
    // Letters that are the mark of UTF-16 as well are read as that mark.
    if (text.ToBytes().startsWith("\xFF\xFE") || text.ToBytes().startsWith("\xFE\xFF"))
        return 0;
    const ProfileText again(text.ToBytes());
    fuzz::Require(again.Read(section, key) == QLatin1String("valeur"),
                  "what was written is read from the file");
    fuzz::Require(again.ToBytes() == text.ToBytes(), "a file written again is the same");
    text.DeleteSection(section);
    fuzz::Require(text.Read(section, key).isEmpty()
                      || ProfileText(text.ToBytes()).Read(section, key) == text.Read(section, key),
                  "a section taken away is gone from the file as from the memory");
    return 0;
}
