#include "editor/windows/state_page.h"

#include "editor/windows/option_row.h"
#include "editor/windows/slot_grid.h"
#include "forms/form.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace stoikal {
namespace {

constexpr int kStates = 3;
const char kLetters[] = "slg";

} // namespace

StatePage::StatePage(QWidget* parent)
    : QWidget(parent)
{
    LaySlotsOut(*this, [this](std::size_t slot) { return MakeSlot(slot); });
}

QWidget* StatePage::MakeSlot(std::size_t slot)
{
    const int index = static_cast<int>(slot);
    auto* const frame = new QGroupBox(this);
    m_frames.at(slot) = frame;
    auto* const rows = new QVBoxLayout(frame);
    rows->setSpacing(8);
    const QString caption = QStringLiteral("A afficher dans l'équation");
    chkEtat.at(slot) = Named(new QCheckBox(caption, frame), ArrayName("chkEtat", index), caption);
    rows->addWidget(chkEtat.at(slot));
    auto* const row = new QHBoxLayout;
    const QStringList captions{QStringLiteral("solide"), QStringLiteral("liquide"), QStringLiteral("gazeux")};
    m_groups.at(slot) = new QButtonGroup(frame);
    for (int i = 0; i < kStates; ++i) {
        const int number = kStates * index + i;
        auto* const option = Named(new QRadioButton(captions.at(i), frame), ArrayName("optEtat", number),
                                   QStringLiteral("Etat %1").arg(captions.at(i)));
        option->setEnabled(false);
        m_groups.at(slot)->addButton(option, i);
        row->addWidget(option);
        optEtat.at(static_cast<std::size_t>(number)) = option;
    }
    row->addStretch();
    rows->addLayout(row);
    connect(chkEtat.at(slot), &QCheckBox::toggled, this, [this, slot] { chkEtat_Click(slot); });
    connect(m_groups.at(slot), &QButtonGroup::idToggled, this, &StatePage::Edited);
    return frame;
}

void StatePage::chkEtat_Click(std::size_t slot)
{
    const auto options = m_groups.at(slot)->buttons();
    for (QAbstractButton* const option : options)
        option->setEnabled(!option->isEnabled());
    Q_EMIT Edited();
}

QString StatePage::State(std::size_t slot, const QString& stored) const
{
    if (!chkEtat.at(slot)->isChecked())
        return {};
    const int chosen = m_groups.at(slot)->checkedId();
    return chosen < 0 ? stored : QString(QLatin1Char(kLetters[chosen]));
}

void StatePage::Show(std::size_t slot, const QString& state)
{
    chkEtat.at(slot)->setChecked(!state.isEmpty());
    const qsizetype place = state.size() == 1 ? QLatin1String(kLetters).indexOf(state) : -1;
    ChooseOption(*m_groups.at(slot), static_cast<int>(place));
}

void StatePage::SetCaption(std::size_t slot, const QString& caption)
{
    m_frames.at(slot)->setTitle(caption);
}

} // namespace stoikal
