#pragma once

#include <initializer_list>

class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

namespace stoikal {

/// A box of a small modal window and what stands before it.
struct EntryRow {
    QLabel* label;
    QLineEdit* box;
};

/// Lays out a window of boxes, one row below another, with its buttons under them.
/// The Tab key follows.
void LayEntriesOut(QWidget& window, std::initializer_list<EntryRow> rows,
                   std::initializer_list<QPushButton*> buttons);

} // namespace stoikal
