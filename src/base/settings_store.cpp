#include "base/settings_store.h"

#include "base/file_lock.h"
#include "base/whole_file.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <optional>
#include <sys/stat.h>
#include <utility>

namespace stoikal {
namespace {

constexpr int kLockWaitMs = 1000;

/// What tells that a file on the disk is another than the one read last.
struct Stamp {
    bool exists = false;
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    timespec changed{};

    bool operator==(const Stamp& other) const
    {
        return exists == other.exists && device == other.device && inode == other.inode && size == other.size
            && changed.tv_sec == other.changed.tv_sec && changed.tv_nsec == other.changed.tv_nsec;
    }
};

Stamp StampOf(const QByteArray& encodedPath)
{
    struct stat status {
    };
    if (::stat(encodedPath.constData(), &status) != 0)
        return {};
    return {true, status.st_dev, status.st_ino, status.st_size, status.st_mtim};
}

/// The clock of a file system goes in steps: two changes within one step have
/// the same time. A copy is trusted only when the file's last change lay a good
/// while behind its reading (a time in the future never does).
bool IsSettled(const Stamp& stamp)
{
    constexpr std::int64_t kLongestStepMs = 100;
    const std::int64_t changedMs
        = std::int64_t{stamp.changed.tv_sec} * 1000 + stamp.changed.tv_nsec / 1000000;
    return !stamp.exists || QDateTime::currentMSecsSinceEpoch() - changedMs > kLongestStepMs;
}

/// The bytes of a file; none for a file that is not there, nothing for one that
/// is there and cannot be read.
std::optional<QByteArray> ReadWhole(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.exists() ? std::nullopt : std::optional(QByteArray());
    const QByteArray bytes = file.readAll();
    return file.error() == QFileDevice::NoError ? std::optional(bytes) : std::nullopt;
}

} // namespace

struct SettingsStore::Copy {
    QByteArray encodedPath;
    Stamp stamp;
    bool isSettled = true;
    QByteArray bytes; ///< what the text was made of
    ProfileText text;

    /// The text of these bytes; made anew only when they are others than before.
    const ProfileText& Of(const QByteArray& current)
    {
        if (bytes != current) {
            bytes = current;
            text = ProfileText(current);
        }
        return text;
    }
};

SettingsStore::SettingsStore() = default;
SettingsStore::~SettingsStore() = default;

SettingsStore::Copy& SettingsStore::CopyOf(const QString& file) const
{
    std::shared_ptr<Copy>& copy = m_copies[file];
    if (copy == nullptr) {
        copy = std::make_shared<Copy>();
        copy->encodedPath = QFile::encodeName(file);
    }
    return *copy;
}

const ProfileText& SettingsStore::Current(const QString& file) const
{
    Copy& copy = CopyOf(file);
    const Stamp stamp = StampOf(copy.encodedPath);
    if (stamp == copy.stamp && copy.isSettled)
        return copy.text;
    copy.isSettled = IsSettled(stamp);
    copy.stamp = stamp;
    return copy.Of(ReadWhole(file).value_or(QByteArray()));
}

QString SettingsStore::ReadSetting(const QString& file, const QString& section, const QString& key) const
{
    return Current(file).Read(section, key);
}

bool SettingsStore::Change(const QString& file, const std::function<void(ProfileText&)>& change)
{
    if (file.isEmpty() || !QDir().mkpath(QFileInfo(file).absolutePath()))
        return false;
    const FileLock lock(file, kLockWaitMs);
    if (!lock.IsHeld())
        return false;
    const std::optional<QByteArray> old = ReadWhole(file);
    // What cannot be read would be lost with its replacement.
    if (!old)
        return false;
    Copy& copy = CopyOf(file);
    ProfileText text = copy.Of(*old);
    // The copy no longer stands for the reading that its stamp tells of.
    copy.isSettled = false;
    change(text);
    const QByteArray bytes = text.ToBytes();
    if (!ReplaceFile(file, bytes))
        return false;
    copy.bytes = bytes;
    copy.text = std::move(text);
    return true;
}

void SettingsStore::WriteSetting(const QString& file, const QString& section, const QString& key,
                                 const QString& value)
{
    // A write that fails is silent here: a reading then gives the old value.
    (void)Change(file, [&](ProfileText& text) { text.Write(section, key, value); });
}

void SettingsStore::WriteSection(const QString& file, const QString& section, const QStringList& lines)
{
    (void)Change(file, [&](ProfileText& text) { text.WriteSection(section, lines); });
}

void SettingsStore::DeleteSection(const QString& file, const QString& section)
{
    (void)Change(file, [&](ProfileText& text) { text.DeleteSection(section); });
}

} // namespace stoikal
