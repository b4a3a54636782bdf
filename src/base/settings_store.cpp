#include "base/settings_store.h"

#include "base/file_access.h"
#include "base/file_lock.h"
#include "base/file_stamp.h"
#include "base/shown_path.h"
#include "base/whole_file.h"

#include <QDateTime>
#include <QFileInfo>
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

/// The bytes of a file; none for a file that is not there. Fails for one that is
/// there and cannot be read.
Outcome<QByteArray> ReadWhole(const QString& path)
{
    auto bytes = ReadOwnFile(path, kSettingsLimit);
    if (!bytes && bytes.IsMissing())
        return QByteArray();
    return bytes;
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
            // Where memory runs out in the midst, the old two still belong together.
            text = ProfileText(current);
            bytes = current;
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
    const Outcome<QByteArray> bytes = ReadWhole(file);
    const ProfileText& text = bytes ? copy.Of(*bytes) : copy.text;
    copy.stamp = stamp;
    // What failed may go well the next time, and until then what was known last holds:
    // an equation that was just entered must not read as none. What is too large stays so.
    copy.isSettled = bytes ? IsSettled(stamp) : stamp.size > kSettingsLimit.bytes;
    return text;
}

QString SettingsStore::ReadSetting(const QString& file, const QString& section, const QString& key) const
{
    return Current(file).Read(section, key);
}

Outcome<QString> SettingsStore::Change(const QString& file, const std::function<void(ProfileText&)>& change)
{
    if (file.isEmpty())
        return Failure{QStringLiteral("le fichier n'est pas connu")};
    if (!MakeFolders(QFileInfo(file).absolutePath()))
        return Failure{QStringLiteral("son dossier ne peut pas être créé")};
    const FileLock lock(file, kLockWaitMs);
    if (!lock.IsHeld())
        return Failure{lock.Reason()};
    const Outcome<QByteArray> old = ReadWhole(file);
    // What cannot be read would be lost with its replacement.
    if (!old)
        return Failure{old.Reason()};
    Copy& copy = CopyOf(file);
    ProfileText text = copy.Of(*old);
    // The copy no longer stands for the reading that its stamp tells of.
    copy.isSettled = false;
    change(text);
    const QByteArray bytes = text.ToBytes();
    // One that is larger could not be read again.
    if (const auto above = AboveLimit(bytes, kSettingsLimit))
        return *above;
    auto written = ReplaceFile(file, bytes, Sharing::Private);
    if (!written)
        return written;
    copy.bytes = bytes;
    copy.text = std::move(text);
    return written;
}

Outcome<QString> SettingsStore::WriteSetting(const QString& file, const QString& section, const QString& key,
                                             const QString& value)
{
    return Change(file, [&](ProfileText& text) { text.Write(section, key, value); });
}

Outcome<QString> SettingsStore::WriteSection(const QString& file, const QString& section,
                                             const QStringList& lines)
{
    return Change(file, [&](ProfileText& text) { text.WriteSection(section, lines); });
}

Outcome<QString> SettingsStore::DeleteSection(const QString& file, const QString& section)
{
    return Change(file, [&](ProfileText& text) { text.DeleteSection(section); });
}

Outcome<QString> Settings::Write(const QList<SettingValue>& values)
{
    auto written = m_store.Change(m_file, [&values](ProfileText& text) {
        for (const SettingValue& value : values)
            text.Write(value.section, value.key, value.value);
    });
    if (written)
        return written;
    return Failure{QStringLiteral("Le fichier des réglages n'a pas pu être écrit\u00A0:\n%1\n(%2)\n\n"
                                  "Vérifiez que ce fichier et son dossier peuvent être modifiés et que le "
                                  "disque n'est pas plein, puis recommencez.")
                       .arg(ShownPath(m_file), written.Reason())};
}

} // namespace stoikal
