#pragma once

#include <QHash>
#include <QObject>
#include <QString>

namespace stoikal {

/// What the menu entries say: enabled, marked, shown, and their caption. The
/// menus only show it; a window that wants to know whether the charge view is
/// on asks here. Entries are named as in the menu tree ("Mnu_Charge",
/// "Mnu_Taille(1)"); a name that was never added is a mistake of ours.
class MenuState final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    struct Entry {
        bool enabled = true;
        bool checked = false;
        bool visible = true;
        QString caption;
    };

    void Add(const QString& name, const Entry& entry);

    bool IsEnabled(const char* name) const { return Get(name).enabled; }
    bool IsChecked(const char* name) const { return Get(name).checked; }
    const Entry& Get(const char* name) const;
    const QHash<QString, Entry>& All() const { return m_entries; }

    void SetEnabled(const char* name, bool enabled);
    void SetChecked(const char* name, bool checked);
    void SetVisible(const char* name, bool visible);
    void SetCaption(const char* name, const QString& caption);

Q_SIGNALS:
    void Changed(const QString& name);

private:
    template <typename Field, typename Value>
    void Set(const char* name, Field field, const Value& value);

    QHash<QString, Entry> m_entries;
};

} // namespace stoikal
