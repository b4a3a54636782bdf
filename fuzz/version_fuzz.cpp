#include "fuzz.h"
#include "shell/version_check.h"

using namespace stoikal;

/// What a server answers to the question for the newest version.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString version = RemoteVersion(text);
    fuzz::Require(!version.contains(QLatin1Char('\n')), "a version is a line");
    fuzz::Require(version.size() <= text.size(), "a version is a part of the text");
    if (IsNewer(version, QStringLiteral("4.0")))
        fuzz::Require(!IsNewer(QStringLiteral("4.0"), version), "of two versions one is newer at most");
    return 0;
}
