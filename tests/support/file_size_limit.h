#pragma once

#include "base/full_disk.h"

#include <QFile>
#include <algorithm>
#include <stdexcept>
#include <sys/resource.h>

namespace stoikal {

/// From now on files of this process cannot grow past a size: the system cuts
/// the write that crosses it and refuses the next. RLIM_INFINITY lifts it. A test
/// program has no Application, which would see to it that the system does not end it.
inline void LimitFileSize(rlim_t bytes)
{
    TreatFileSizeLimitAsFullDisk();
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = std::min(bytes, limit.rlim_max);
    setrlimit(RLIMIT_FSIZE, &limit);
}

/// A file that can grow no more, as on a full disk, while others still can; as long
/// as this lives.
class FullFile
{
public:
    explicit FullFile(const QString& path)
    {
        constexpr qint64 kFarAboveOthers = qint64{64} * 1024 * 1024;
        QFile file(path);
        // Its last line has an end, as that of any whole file.
        const QByteArray end("\r\n");
        if (!file.open(QIODevice::WriteOnly) || !file.seek(kFarAboveOthers - end.size())
            || file.write(end) != end.size() || !file.flush())
            throw std::runtime_error("cannot make the full file");
        LimitFileSize(kFarAboveOthers);
    }
    ~FullFile() { LimitFileSize(RLIM_INFINITY); }
    FullFile(const FullFile&) = delete;
    FullFile& operator=(const FullFile&) = delete;
};

} // namespace stoikal
