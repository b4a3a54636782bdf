#pragma once

#include <QStringList>

class QWidget;

namespace stoikal {

class Messages;
class ResultsJournal;

/// Writes lines to the results journal. When the disk does not take them the
/// user is told once; the lines are kept in memory and written with the next.
void WriteToJournal(ResultsJournal& journal, Messages& messages, QWidget* parent, const QStringList& lines);

} // namespace stoikal
