#pragma once

#include "editor/work_equation.h"

#include <QWidget>
#include <array>

class QButtonGroup;
class QCheckBox;
class QGroupBox;
class QRadioButton;

namespace stoikal {

/// The tab of physical states: for each species whether a state is shown, and
/// which.
class StatePage final : public QWidget
{
    Q_OBJECT

public:
    explicit StatePage(QWidget* parent);

    /// "s", "l" or "g"; empty when none is to be shown; `stored` when one is to
    /// be shown and no button is pressed.
    QString State(std::size_t slot, const QString& stored) const;
    void Show(std::size_t slot, const QString& state);
    void SetCaption(std::size_t slot, const QString& caption);

Q_SIGNALS:
    void Edited();

private:
    QWidget* MakeSlot(std::size_t slot);
    void chkEtat_Click(std::size_t slot);

    std::array<QGroupBox*, WorkEquation::kSlots> m_frames{};
    std::array<QButtonGroup*, WorkEquation::kSlots> m_groups{};
    std::array<QCheckBox*, WorkEquation::kSlots> chkEtat{};
    std::array<QRadioButton*, 3 * WorkEquation::kSlots> optEtat{};
};

} // namespace stoikal
