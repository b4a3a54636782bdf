#pragma once

#include <QPushButton>

namespace stoikal {

/// A check box that looks like a button, filled with exactly the colour `Button`
/// of its palette: down it is pressed in.
class RunButton final : public QPushButton
{
    Q_OBJECT

public:
    explicit RunButton(QWidget* parent);

    /// Fills it with a colour; the caption is black or white, whichever is read
    /// better.
    void SetBackColour(const QColor& colour);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace stoikal
