#pragma once

#include "chemistry/periodic_layout.h"
#include "forms/button_colours.h"
#include "forms/form.h"

#include <array>

class QGroupBox;
class QLabel;

namespace stoikal {

class ElementButton;

/// The periodic table: a grid of 118 cells with its heads and its legend. A
/// click, or Enter, asks for the data of an element.
class frmTableauPeriodique final : public Form
{
    Q_OBJECT

public:
    explicit frmTableauPeriodique(QWidget* parent);

Q_SIGNALS:
    void ElementChosen(int index);
    void MouseMovedOver();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void BuildGrid();
    void BuildLegend();
    void LayOut();
    void PlaceHeads(const GridLayout& layout);
    void PlaceLegend(int top);
    void MoveFocus(int from, int dx, int dy);
    bool IsLarge() const;

    static constexpr int kSamples = 8;

    ButtonColours m_colours;
    GridLayout m_layout;
    QWidget* fraTableau;
    QGroupBox* fraLegende;
    QLabel* lblTitre;
    std::array<ElementButton*, kElementCount + kSamples> cmdAtome{};
    std::array<QLabel*, 18> lblCol{};
    std::array<QLabel*, 7> lblLig{};
    std::array<QLabel*, 2> lblAc{};
    std::array<QLabel*, kSamples> m_legend{};
};

} // namespace stoikal
