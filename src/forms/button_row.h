#pragma once

#include <QBoxLayout>
#include <QPushButton>
#include <initializer_list>

namespace stoikal {

/// Puts buttons one behind another into a row or a column of a modal window. None
/// of them is a hidden default that Enter would press.
inline void AddButtons(QBoxLayout& row, std::initializer_list<QPushButton*> buttons)
{
    for (QPushButton* const button : buttons) {
        button->setAutoDefault(false);
        row.addWidget(button);
    }
}

} // namespace stoikal
