#include "editor/equation_file_io.h"
#include "fuzz.h"

using namespace stoikal;

/// A file that the editor takes in, writes as either kind, and takes in again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString path = QStringLiteral("Serie.Avt");
    for (const FileType type : {FileType::Equ, FileType::Avt}) {
        fuzz::Tolerating([&] {
            const LoadedFile file = ReadEquations(bytes, path);
            const QByteArray written = EquationFileBytes(file.head, file.equations, type);
            fuzz::Require(file.equations.empty() || written.contains('='), "an equation is written as one");
            static_cast<void>(ReadEquations(written, path));
        });
    }
    return 0;
}
