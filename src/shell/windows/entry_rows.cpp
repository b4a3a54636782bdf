#include "shell/windows/entry_rows.h"

#include "forms/button_row.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace stoikal {

void LayEntriesOut(QWidget& window, std::initializer_list<EntryRow> rows,
                   std::initializer_list<QPushButton*> buttons)
{
    auto* const grid = new QGridLayout(&window);
    grid->setContentsMargins(16, 16, 16, 12);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    QWidget* before = nullptr;
    const auto comesNext = [&before](QWidget* control) {
        if (before != nullptr)
            QWidget::setTabOrder(before, control);
        before = control;
    };
    int row = 0;
    for (const auto& [label, box] : rows) {
        label->setBuddy(box);
        grid->addWidget(label, row, 0);
        grid->addWidget(box, row++, 1);
        comesNext(box);
    }
    auto* const buttonRow = new QHBoxLayout;
    buttonRow->setSpacing(8);
    buttonRow->addStretch();
    AddButtons(*buttonRow, buttons);
    for (QPushButton* const button : buttons)
        comesNext(button);
    grid->addItem(new QSpacerItem(0, 8), row++, 0);
    grid->addLayout(buttonRow, row, 0, 1, 2);
    grid->setSizeConstraint(QLayout::SetFixedSize);
}

} // namespace stoikal
