#pragma once

#include "editor/work_equation.h"

#include <QWidget>
#include <array>

class QButtonGroup;
class QGroupBox;
class QRadioButton;

namespace stoikal {

class DatumEdit;
class Messages;

/// The tab of data on a progress file: for each species a mass, a volume or an
/// amount of substance.
class DataPage final : public QWidget
{
    Q_OBJECT

public:
    DataPage(Messages& messages, QWidget* parent);

    /// A kind letter and a number with a point: "Q0.5". Without a chosen kind the
    /// letter of `stored` stays.
    QString Datum(std::size_t slot, const QString& stored) const;
    void Show(std::size_t slot, const QString& datum);
    void SetCaption(std::size_t slot, const QString& caption);
    /// A datum can be entered for a species that is there, on a progress file. The
    /// first kind is chosen for one that has none yet.
    void Enable(std::size_t slot, bool enabled);
    /// Brings the keyboard to the number of a species.
    void FocusNumber(std::size_t slot);

Q_SIGNALS:
    void Edited();

private:
    QWidget* MakeSlot(std::size_t slot, Messages& messages);

    std::array<QGroupBox*, WorkEquation::kSlots> fraMVQ{};
    std::array<QButtonGroup*, WorkEquation::kSlots> m_groups{};
    std::array<QRadioButton*, 3 * WorkEquation::kSlots> optMVQ{};
    std::array<DatumEdit*, WorkEquation::kSlots> txtData{};
};

} // namespace stoikal
