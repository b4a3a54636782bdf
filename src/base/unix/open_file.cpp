#include "base/open_file.h"

#include "base/unix/descriptor.h"
#include "base/unix/path_walk.h"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace stoikal {

OpenFile::OpenFile(OpenFile&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1))
    , m_isNew(other.m_isNew)
    , m_error(other.m_error)
    , m_name(std::move(other.m_name))
{
}

OpenFile& OpenFile::operator=(OpenFile&& other) noexcept
{
    std::swap(m_descriptor, other.m_descriptor);
    std::swap(m_isNew, other.m_isNew);
    std::swap(m_error, other.m_error);
    std::swap(m_name, other.m_name);
    return *this;
}

qint64 OpenFile::Size() const
{
    struct stat status {
    };
    return ::fstat(m_descriptor, &status) == 0 ? status.st_size : 0;
}

bool OpenFile::HasName() const
{
    struct stat status {
    };
    // A share that is away does not say that the file is gone.
    return ::fstat(m_descriptor, &status) != 0 || status.st_nlink > 0;
}

Outcome<QByteArray> OpenFile::Read(qint64 from, qint64 count) const
{
    constexpr qint64 kPiece = 1 << 16;
    QByteArray bytes;
    // What a file says of its size need not be so: it may grow, and those that the
    // system makes up say 0.
    while (bytes.size() < count) {
        const qsizetype had = bytes.size();
        bytes.resize(had + std::min(kPiece, count - had));
        const ssize_t taken = ::pread(m_descriptor, bytes.data() + had,
                                      static_cast<std::size_t>(bytes.size() - had), from + had);
        const int error = errno;
        bytes.resize(had + std::max<qsizetype>(taken, 0));
        if (taken < 0 && error != EINTR)
            return SystemFailure(error);
        if (taken == 0)
            break;
    }
    return bytes;
}

qint64 OpenFile::Write(const char* bytes, qint64 count)
{
    ssize_t taken = -1;
    do
        taken = ::write(m_descriptor, bytes, static_cast<std::size_t>(count));
    while (taken < 0 && errno == EINTR);
    if (taken < 0)
        m_error = errno;
    return taken;
}

bool OpenFile::WriteAll(const QByteArray& bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const qint64 taken = Write(bytes.constData() + written, bytes.size() - written);
        if (taken <= 0)
            return false;
        written += taken;
    }
    return true;
}

bool OpenFile::WriteAllAt(qint64 from, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t taken
            = ::pwrite(m_descriptor, bytes.data(), static_cast<std::size_t>(bytes.size()), from);
        if (taken < 0 && errno == EINTR)
            continue;
        if (taken <= 0) {
            m_error = taken < 0 ? errno : ENOSPC;
            return false;
        }
        from += taken;
        bytes = bytes.sliced(taken);
    }
    return true;
}

bool OpenFile::CutTo(qint64 size)
{
    const bool isCut = Uninterrupted([&] { return ::ftruncate(m_descriptor, size); }) == 0;
    if (!isCut)
        m_error = errno;
    return isCut;
}

bool OpenFile::ReachesTheDisk()
{
    if (::fdatasync(m_descriptor) == 0 || errno == EINVAL || errno == ENOSYS)
        return true;
    m_error = errno;
    return false;
}

Failure OpenFile::WriteFailure() const
{
    return SystemFailure(m_error);
}

void OpenFile::Close()
{
    if (m_descriptor >= 0)
        ::close(std::exchange(m_descriptor, -1));
}

} // namespace stoikal
