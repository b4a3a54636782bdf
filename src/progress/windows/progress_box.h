#pragma once

#include "forms/filter_edit.h"
#include "progress/progress_check.h"

namespace stoikal {

class Messages;

/// A box of the table of progress. Digits, the comma and the point go in; any
/// other key is told and taken out again. It shows a wrong value in red, until
/// somebody comes to correct it.
class ProgressBox final : public FilterEdit
{
    Q_OBJECT

public:
    ProgressBox(Messages& messages, QWidget* parent);

    /// The verdict as the colour of the text: red for a wrong one, else black.
    void ShowVerdict(BoxVerdict verdict);
    bool IsWrong() const { return m_isWrong; }

    /// The volume of what is no gas is not asked, and its box grey; that of a gas
    /// is white, whether it can be typed in yet or not.
    void SetAsked(bool asked);
    bool IsAsked() const { return m_isAsked; }

Q_SIGNALS:
    /// The text has changed and holds no refused key.
    void Edited();

private:
    void KeyPress(QChar key);
    void Change();
    void ShowColours();

    Messages& m_messages;
    bool m_badKey = false;
    bool m_isWrong = false;
    bool m_isAsked = true;
    bool m_staysWhite = false;
};

} // namespace stoikal
