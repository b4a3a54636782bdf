#include "editor/windows/data_page.h"

#include "chemistry/formula.h"
#include "editor/windows/datum_edit.h"
#include "editor/windows/option_row.h"
#include "editor/windows/slot_grid.h"
#include "forms/form.h"

#include <QGroupBox>
#include <QVBoxLayout>

namespace stoikal {
namespace {

constexpr int kKinds = 3;
const char kLetters[] = "MVQ";

} // namespace

DataPage::DataPage(Messages& messages, QWidget* parent)
    : QWidget(parent)
{
    LaySlotsOut(*this, [this, &messages](std::size_t slot) { return MakeSlot(slot, messages); });
}

QWidget* DataPage::MakeSlot(std::size_t slot, Messages& messages)
{
    const int index = static_cast<int>(slot);
    auto* const frame = Named(new QGroupBox(this), ArrayName("fraMVQ", index));
    fraMVQ.at(slot) = frame;
    auto* const rows = new QVBoxLayout(frame);
    rows->setContentsMargins(8, 4, 8, 8);
    rows->setSpacing(4);
    const QStringList captions{QStringLiteral("Masse (en g)"), QStringLiteral("Volume (en L)"),
                               QStringLiteral("Quantité de matière (en mol)")};
    m_groups.at(slot) = new QButtonGroup(frame);
    for (int i = 0; i < kKinds; ++i) {
        const int number = kKinds * index + i;
        auto* const option
            = Named(new QRadioButton(captions.at(i), frame), ArrayName("optMVQ", number), captions.at(i));
        m_groups.at(slot)->addButton(option, i);
        rows->addWidget(option);
        optMVQ.at(static_cast<std::size_t>(number)) = option;
    }
    auto* const box = Named(new DatumEdit(messages, frame), ArrayName("txtData", index),
                            slot < 3 ? QStringLiteral("Donnée du réactif %1").arg(index + 1)
                                     : QStringLiteral("Donnée du produit %1").arg(index - 2));
    rows->addWidget(box);
    txtData.at(slot) = box;
    frame->setEnabled(false);
    connect(m_groups.at(slot), &QButtonGroup::idToggled, this, &DataPage::Edited);
    connect(box, &DatumEdit::Edited, this, &DataPage::Edited);
    return frame;
}

QString DataPage::Datum(std::size_t slot, const QString& stored) const
{
    QString number = txtData.at(slot)->text();
    NormaliseDecimalComma(number);
    const int chosen = m_groups.at(slot)->checkedId();
    return (chosen < 0 ? stored.first(stored.isEmpty() ? 0 : 1) : QString(QLatin1Char(kLetters[chosen])))
        + number;
}

void DataPage::Show(std::size_t slot, const QString& datum)
{
    const qsizetype kind = datum.isEmpty() ? -1 : QLatin1String(kLetters).indexOf(datum.front());
    ChooseOption(*m_groups.at(slot), static_cast<int>(kind));
    txtData.at(slot)->setText(datum.sliced(datum.isEmpty() ? 0 : 1));
}

void DataPage::FocusNumber(std::size_t slot)
{
    txtData.at(slot)->setFocus();
}

void DataPage::SetCaption(std::size_t slot, const QString& caption)
{
    fraMVQ.at(slot)->setTitle(caption);
    fraMVQ.at(slot)->setAccessibleName(caption);
}

void DataPage::Enable(std::size_t slot, bool enabled)
{
    fraMVQ.at(slot)->setEnabled(enabled);
    if (enabled && m_groups.at(slot)->checkedId() < 0 && txtData.at(slot)->text().isEmpty())
        ChooseOption(*m_groups.at(slot), 0);
}

} // namespace stoikal
