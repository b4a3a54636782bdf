#include "forms/menu_state.h"

namespace stoikal {

void MenuState::Add(const QString& name, const Entry& entry)
{
    m_entries.insert(name, entry);
}

const MenuState::Entry& MenuState::Get(const char* name) const
{
    const auto place = m_entries.constFind(QLatin1String(name));
    if (place == m_entries.constEnd())
        qFatal("no menu entry %s", name);
    return *place;
}

template <typename Field, typename Value>
void MenuState::Set(const char* name, Field field, const Value& value)
{
    const QString key = QLatin1String(name);
    const auto place = m_entries.find(key);
    if (place == m_entries.end())
        qFatal("no menu entry %s", name);
    if ((*place).*field == value)
        return;
    (*place).*field = value;
    Q_EMIT Changed(key);
}

void MenuState::SetEnabled(const char* name, bool enabled)
{
    Set(name, &Entry::enabled, enabled);
}

void MenuState::SetChecked(const char* name, bool checked)
{
    Set(name, &Entry::checked, checked);
}

void MenuState::SetVisible(const char* name, bool visible)
{
    Set(name, &Entry::visible, visible);
}

void MenuState::SetCaption(const char* name, const QString& caption)
{
    Set(name, &Entry::caption, caption);
}

} // namespace stoikal
