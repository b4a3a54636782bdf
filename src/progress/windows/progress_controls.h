#pragma once

#include "forms/lower_pane.h"
#include "progress/progress_table.h"

#include <array>

class QCheckBox;
class QFrame;
class QLabel;
class QPushButton;

namespace stoikal {

class Messages;
class ProgressBox;

/// The controls of the table of progress: a column of six boxes a species, the
/// titles of the rows, the rules, the buttons. They belong to the pane that they
/// were made in; what is asked in them is the pane's matter.
struct ProgressControls {
    using Boxes = std::array<ProgressBox*, 6>;

    ProgressControls(Messages& messages, QWidget& pane);

    Boxes txtMasMol{};
    Boxes txtMasse{};
    Boxes txtVolGaz{};
    Boxes txtQmat0{};
    Boxes txtQmati{};
    Boxes txtQmatf{};
    std::array<QLabel*, 6> lblEtat{};
    std::array<QFrame*, 7> linHoriz{}; ///< named linHoriz(1) to linHoriz(7)
    std::array<QFrame*, 4> rules{}; ///< Line1, Line2 beside the titles; Line4, Line5 under the arrow
    QPushButton* cmdValidMassMol = nullptr;
    QPushButton* cmdValidMVQ = nullptr;
    QCheckBox* chkDataMol = nullptr;
    QCheckBox* chkHistoMol = nullptr;

    /// The rows in the order of the eye.
    std::array<Boxes*, 6> Rows();
    std::array<const Boxes*, 6> Rows() const;

    /// Names each box for the species of its column.
    void NameColumn(int slot, const QString& molecule);

    /// What stands in the boxes below the molar masses.
    ProgressTexts Texts() const;
    /// Writes these boxes.
    void SetTexts(const ProgressTexts& texts);

    /// Gives the titles of the rows the largest type, from a little below that of
    /// the boxes down, in which they keep to so many pixels, margins included.
    void FitTitles(int room);
    LowerPane::Needs LeastSizes(const QWidget& next) const;
    /// `top` is the pane's own place in the window.
    void Place(const LowerPane::Columns& columns, int top, int windowWidth, QWidget& next);

private:
    void MakeRow(Boxes& row, const char* array, int title, Messages& messages, QWidget& pane);
    void MakeRules(QWidget& pane);
    void MakeButtons(QWidget& pane);
    void OrderTabs() const;
    int RowHeight() const;
    int TitleWidth() const;
    void PlaceRow(int row, int top, int height, const LowerPane::Columns& columns);
    void PlaceRules(const std::array<int, 8>& tops, const LowerPane::Columns& columns);
};

} // namespace stoikal
