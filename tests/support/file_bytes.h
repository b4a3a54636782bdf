#pragma once

#include <QFile>
#include <stdexcept>

namespace stoikal {

/// What stands in a file, "(no file)" where there is none.
inline QByteArray BytesOfFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

/// Makes or overwrites a file with these bytes. Throws, and the test fails, when
/// that does not work.
inline void WriteBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write " + path.toStdString());
}

} // namespace stoikal
