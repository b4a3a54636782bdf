#pragma once

#include <QAbstractButton>
#include <QButtonGroup>
#include <QRadioButton>

namespace stoikal {

/// Presses one option of a group by its number, or, with -1, releases all: a
/// group by itself always keeps one pressed.
inline void ChooseOption(QButtonGroup& group, int id)
{
    if (id >= 0) {
        group.button(id)->setChecked(true);
        return;
    }
    group.setExclusive(false);
    const auto buttons = group.buttons();
    for (QAbstractButton* const button : buttons)
        button->setChecked(false);
    group.setExclusive(true);
    // Only the option pressed last would be reached by Tab, and the eye is on the first.
    for (QAbstractButton* const button : buttons)
        button->setFocusPolicy(button == buttons.front() ? Qt::StrongFocus : Qt::ClickFocus);
}

} // namespace stoikal
