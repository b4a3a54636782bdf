#pragma once

#include "base/profile_text.h"

#include <QHash>
#include <QString>
#include <cstdint>
#include <functional>
#include <memory>

namespace stoikal {

/// The one store of settings: text values by section and key in a file. It
/// keeps a parsed copy of each file and reads it again only when the file has
/// changed on the disk. A write reads the file again, changes the one key and
/// replaces the file whole, under a lock, so two programs that write different
/// keys lose neither. A write that fails is silent: a read then still gives the
/// old value.
class SettingsStore
{
public:
    SettingsStore();
    ~SettingsStore();
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    /// The value, at most 254 characters; empty for what does not exist.
    QString ReadSetting(const QString& file, const QString& section, const QString& key) const;

    /// Writes a value, making file, folder and section as needed.
    void WriteSetting(const QString& file, const QString& section, const QString& key, const QString& value);

    /// Many changes of a file in one write: nothing of them is in the file, or all.
    /// The change is made on the text as it stands in the file; it must not throw.
    /// \returns false when the file could not be written; it is then as before.
    [[nodiscard]] bool Change(const QString& file, const std::function<void(ProfileText&)>& change);

    /// All values of a file at one moment, for many readings in a row. Good until
    /// the next call of the store.
    const ProfileText& Contents(const QString& file) const { return Current(file); }

    void WriteSection(const QString& file, const QString& section, const QStringList& lines);
    void DeleteSection(const QString& file, const QString& section);

private:
    struct Copy;
    Copy& CopyOf(const QString& file) const;
    const ProfileText& Current(const QString& file) const;

    mutable QHash<QString, std::shared_ptr<Copy>> m_copies;
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
    void Write(const QString& section, const QString& key, const QString& value)
    {
        m_store.WriteSetting(m_file, section, key, value);
    }

private:
    SettingsStore& m_store;
    const QString& m_file; ///< the session's, known only once the folders are found
};

} // namespace stoikal
