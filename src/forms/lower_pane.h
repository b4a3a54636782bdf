#pragma once

#include <QWidget>
#include <array>

namespace stoikal {

/// What may stand below the equation in the exercise's window: a table with a
/// column under each species. The window tells where the columns are and leads on
/// by its own button; what the table is for is the pane's matter. All lengths in
/// pixels of the window.
class LowerPane : public QWidget
{
public:
    using QWidget::QWidget;

    /// What the pane needs at least.
    struct Needs {
        int titles = 0; ///< from the window's left edge to the first column
        int column = 0; ///< width of a column
        int width = 0; ///< of the window
        int height = 0; ///< from the pane's top to the lower edge of its buttons
    };

    /// Where the equation stands; x from the window's left edge.
    struct Columns {
        std::array<int, 6> left{};
        std::array<int, 6> width{};
        std::array<bool, 6> shown{};
        int firstLeft = 0; ///< where the first column begins
        int arrowMiddle = 0;
        int bandEnd = 0; ///< right end of the last species
        int buttonsTop = 0; ///< of the lowest buttons, from the window's top
    };

    /// Fits the titles into the room left of the first column, as far as type that
    /// can be read allows, and tells what the pane needs with them.
    virtual Needs FitTo(int titleRoom, const QWidget& next) = 0;

    /// Places all controls, and the window's button that leads on beside its own.
    virtual void PlaceUnder(const Columns& columns, QWidget& next) = 0;

    /// The keyboard goes to the first box that can be filled.
    virtual void FocusFirstBox() = 0;
};

} // namespace stoikal
