#include "base/settings_store.h"

#include "base/file_access.h"
#include "base/file_lock.h"
#include "base/file_stamp.h"
#include "base/whole_file.h"

#include <QDateTime>
#include <QFileInfo>
#include <optional>
#include <utility>

namespace stoikal {
namespace {

constexpr int kLockWaitMs = 1000;

/// The clock of a file system goes in steps: two changes within one step have
/// the same time. A copy is trusted only when the file's last change lay a good
/// while behind its reading (a time in the future never does).
bool IsSettled(const FileStamp& stamp)
{
    constexpr std::int64_t kLongestStepMs = 100;
    constexpr std::int64_t kMillisecond = 1'000'000;
    return !stamp.exists
        || QDateTime::currentMSecsSinceEpoch() - stamp.changedNs / kMillisecond > kLongestStepMs;
}

/// The bytes of a file; none for a file that is not there, nothing for one that
/// is there and cannot be read.
std::optional<QByteArray> ReadWhole(const QString& path)
{
    const auto bytes = ReadWholeFile(path, kSettingsLimit, Links::Refused);
    if (!bytes)
        return bytes.IsMissing() ? std::optional(QByteArray()) : std::nullopt;
    return *bytes;
}

} // namespace

struct SettingsStore::Copy {
    FileStamp stamp;
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
    if (copy == nullptr)
        copy = std::make_shared<Copy>();
    return *copy;
}

const ProfileText& SettingsStore::Current(const QString& file) const
{
    Copy& copy = CopyOf(file);
    const FileStamp stamp = StampOf(file);
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
    if (file.isEmpty() || !MakeFolders(QFileInfo(file).absolutePath()))
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
    // One above the limit could not be read again.
    if (AboveLimit(bytes, kSettingsLimit) || !ReplaceFile(file, bytes, Sharing::Account))
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
