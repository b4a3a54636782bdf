#pragma once

#include "base/outcome.h"
#include "base/profile_text.h"

#include <QHash>
#include <QList>
#include <QString>
#include <cstdint>
#include <functional>
#include <memory>

namespace stoikal {

/// The one store of settings: text values by section and key in a file. It
/// keeps a parsed copy of each file and reads it again only when the file has
/// changed on the disk. A write reads the file again, changes the one key and
/// replaces the file whole, under a lock, so two programs that write different
/// keys lose neither. A write that fails says why, and a read then still gives
/// the old value.
class SettingsStore
{
public:
    SettingsStore();
    ~SettingsStore();
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    /// The value, at most 254 characters; empty for what does not exist.
    QString ReadSetting(const QString& file, const QString& section, const QString& key) const;

    /// Writes a value, making file, folder and section as needed, and returns the
    /// file. Fails as `Change` does.
    Outcome<QString> WriteSetting(const QString& file, const QString& section, const QString& key,
                                  const QString& value);

    /// Many changes of a file in one write: nothing of them is in the file, or all.
    /// The change is made on the text as it stands in the file; it must not throw.
    /// \returns the file; fails with the reason in French words, the file is then as before.
    Outcome<QString> Change(const QString& file, const std::function<void(ProfileText&)>& change);

    /// All values of a file at one moment, for many readings in a row. Good until
    /// the next call of the store.
    const ProfileText& Contents(const QString& file) const { return Current(file); }

    Outcome<QString> WriteSection(const QString& file, const QString& section, const QStringList& lines);
    Outcome<QString> DeleteSection(const QString& file, const QString& section);

private:
    struct Copy;
    Copy& CopyOf(const QString& file) const;
    const ProfileText& Current(const QString& file) const;

    mutable QHash<QString, std::shared_ptr<Copy>> m_copies;
};

/// One value and where it stands.
struct SettingValue {
    QString section;
    QString key;
    QString value;
};

/// The settings of one user: the store bound to his file. Windows take this.
class Settings
{
public:
    Settings(SettingsStore& store, const QString& file)
        : m_store(store)
        , m_file(file)
    {
    }

    QString Read(const QString& section, const QString& key) const
    {
        return m_store.ReadSetting(m_file, section, key);
    }

    /// Stores what somebody set: all the values, or none of them. Returns the file.
    /// Fails with French sentences, why and what to do, which are to be shown:
    /// nothing may look stored that is not.
    Outcome<QString> Write(const QList<SettingValue>& values);
    Outcome<QString> Write(const QString& section, const QString& key, const QString& value)
    {
        return Write({{section, key, value}});
    }

    /// Stores what the program notes for itself, the place of a window or what was
    /// used last. Nobody asked for it: here alone a failure is silent, and a
    /// reading then gives the old value.
    void Remember(const QList<SettingValue>& values) { (void)Write(values); }
    void Remember(const QString& section, const QString& key, const QString& value)
    {
        Remember({{section, key, value}});
    }

private:
    SettingsStore& m_store;
    const QString& m_file; ///< the session's, known only once the folders are found
};

} // namespace stoikal
