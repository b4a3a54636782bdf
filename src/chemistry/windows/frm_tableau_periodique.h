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
/// click, or Enter, asks for the data of an element; the arrows lead from cell to
/// cell. It has two sizes: maximised, and one small one.
class frmTableauPeriodique final : public Form
{
    Q_OBJECT

public:
    explicit frmTableauPeriodique(QWidget* parent);

Q_SIGNALS:
    void ElementChosen(int index);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void BuildGrid();
    void BuildLegend();
    void LayOut();
    double CaptionPoints() const;
    void PlaceHeads(const GridLayout& layout);
    struct LegendGrid;
    LegendGrid Legend();
    void PlaceLegend(const LegendGrid& grid, int top);
    void MoveFocus(int from, int dx, int dy);
    void KeepSmallSize();
    bool IsLarge() const;

    static constexpr int kSamples = 8;
    static constexpr int kFamilies = 3; ///< the first samples; the states follow

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
