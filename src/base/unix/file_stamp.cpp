#include "base/file_stamp.h"

#include <QFile>
#include <sys/stat.h>

namespace stoikal {

FileStamp StampOf(const QString& path)
{
    constexpr std::int64_t kSecond = 1'000'000'000;
    struct stat status {
    };
    if (::lstat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    return {true, status.st_dev, status.st_ino, status.st_size,
            std::int64_t{status.st_mtim.tv_sec} * kSecond + status.st_mtim.tv_nsec};
}

} // namespace stoikal
