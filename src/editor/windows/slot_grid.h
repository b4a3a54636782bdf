#pragma once

#include "editor/work_equation.h"

#include <QGridLayout>
#include <functional>

namespace stoikal {

/// Fills a tab with what `makeSlot` gives for each species: a row of reactants
/// above a row of products.
inline void LaySlotsOut(QWidget& page, const std::function<QWidget*(std::size_t)>& makeSlot)
{
    auto* const grid = new QGridLayout(&page);
    grid->setContentsMargins(12, 12, 12, 12);
    grid->setSpacing(8);
    for (std::size_t slot = 0; slot < WorkEquation::kSlots; ++slot) {
        grid->addWidget(makeSlot(slot), static_cast<int>(slot / 3), static_cast<int>(slot % 3));
        grid->setColumnStretch(static_cast<int>(slot % 3), 1);
    }
    grid->setRowStretch(2, 1);
}

} // namespace stoikal
