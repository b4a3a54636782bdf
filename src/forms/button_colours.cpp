#include "forms/button_colours.h"

#include <QAbstractButton>
#include <QPalette>

namespace stoikal {
namespace {

void SetCaptionColour(QAbstractButton& button, const QColor& colour)
{
    QPalette palette = button.palette();
    palette.setColor(QPalette::ButtonText, colour);
    button.setPalette(palette);
}

} // namespace

bool ButtonColours::SetButtonForeColor(QAbstractButton* button, const QColor& colour)
{
    if (button->parentWidget() == nullptr)
        return false;
    const auto place = m_served.find(button);
    if (place != m_served.end()) {
        place->colour = colour;
    } else {
        m_served.insert(button, {colour, button->palette().color(QPalette::ButtonText)});
        connect(button, &QObject::destroyed, this, [this](const QObject* gone) { m_served.remove(gone); });
    }
    SetCaptionColour(*button, colour);
    return true;
}

void ButtonColours::RemoveButtonForeColor(QAbstractButton* button)
{
    const auto place = m_served.constFind(button);
    if (place == m_served.constEnd())
        return;
    SetCaptionColour(*button, place->own);
    m_served.erase(place);
    button->disconnect(this);
}

QColor ButtonColours::ColourOf(const QAbstractButton* button) const
{
    return m_served.value(button).colour;
}

} // namespace stoikal
