#pragma once

#include "base/outcome.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace stoikal {

/// A file that is open, as the verbs of file_access.h give it; closed when this
/// goes. It is a regular file for certain, and neither a rename nor a link that
/// somebody puts in its place changes which one it is. It knows no path.
class OpenFile
{
public:
    /// None.
    OpenFile() = default;
    /// Takes over a descriptor of the system. `name` is the file's own name.
    OpenFile(int descriptor, const QString& name, bool isNew)
        : m_descriptor(descriptor)
        , m_isNew(isNew)
        , m_name(name)
    {
    }
    ~OpenFile() { Close(); }
    OpenFile(OpenFile&& other) noexcept;
    OpenFile& operator=(OpenFile&& other) noexcept;
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool IsOpen() const { return m_descriptor >= 0; }
    /// Whether the opening made it.
    bool IsNew() const { return m_isNew; }
    /// The name of the file itself, behind any links.
    const QString& Name() const { return m_name; }
    int Descriptor() const { return m_descriptor; }

    qint64 Size() const;
    /// Whether it still stands in a folder.
    bool HasName() const;

    /// At most so many bytes from a position on; fewer only at the file's end.
    Outcome<QByteArray> Read(qint64 from, qint64 count) const;
    /// Hands bytes to the file and returns how many it took, -1 for none; the
    /// reason is then that of `WriteFailure`.
    qint64 Write(const char* bytes, qint64 count);
    /// Hands over all bytes.
    bool WriteAll(const QByteArray& bytes);
    /// Hands over all bytes, from a position of the file on.
    bool WriteAllAt(qint64 from, QByteArrayView bytes);
    /// Cuts it off behind so many bytes.
    bool CutTo(qint64 size);
    /// A share may report only now that it has no room. A file system that knows
    /// no such order has done what it can.
    bool ReachesTheDisk();
    /// Why the last change failed.
    Failure WriteFailure() const;

    void Close();

private:
    int m_descriptor = -1;
    bool m_isNew = false;
    int m_error = 0; ///< the system's number of the last failed change
    QString m_name;
};

} // namespace stoikal
