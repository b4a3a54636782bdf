#pragma once

#include "forms/form.h"

#include <array>

class QLabel;
class QPushButton;

namespace stoikal {

/// All the data of one element; the next and the previous one around the ends.
class frmDataAtomes final : public Form
{
    Q_OBJECT

public:
    frmDataAtomes(QChar separator, QWidget* parent);

    /// Shows an element, 0 to 117.
    void ShowElementData(int index);
    int CurrentElement() const { return m_currentElement; }

protected:
    void EscapePressed() override { Q_EMIT CloseAsked(); }

private:
    QChar m_separator;
    int m_currentElement = 0;

    QWidget* shpAtome;
    std::array<QLabel*, 13> lblData{};
    QPushButton* cmdPrevious;
    QPushButton* cmdNext;
};

} // namespace stoikal
