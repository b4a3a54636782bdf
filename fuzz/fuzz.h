#pragma once

#include "base/fatal_fault.h"
#include "base/text_lines.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>

namespace stoikal::fuzz {

/// The bytes that the fuzzer thought of, as a line of a file is decoded.
inline QString LineOf(const std::uint8_t* data, size_t size)
{
    return DecodeLine(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
}

/// A file that holds the fuzzer's bytes, in a folder that goes with the process. The
/// fuzzer does its work in one thread: there is one such file at a time.
inline QString FileOf(const std::uint8_t* data, size_t size, const QString& name)
{
    static const QTemporaryDir kFolder;
    const QString path = kFolder.filePath(name);
    QFile file(path);
    const auto bytes = static_cast<qint64>(size);
    if (!file.open(QIODevice::WriteOnly) || file.write(reinterpret_cast<const char*>(data), bytes) != bytes) {
        std::cerr << "no room for the fuzzer's file\n";
        std::abort();
    }
    return path;
}

/// What holds for every input. A breach ends the target, as a crash would.
inline void Require(bool holds, const char* rule)
{
    if (holds)
        return;
    std::cerr << "breached: " << rule << '\n';
    std::abort();
}

/// Runs what may end in the faults that the program shows to its user.
template <typename Work>
void Tolerating(Work work)
{
    try {
        work();
    } catch (const FatalFault& fault) {
        Require(!fault.Cause().isEmpty(), "a fault names its cause");
    }
}

} // namespace stoikal::fuzz
