#pragma once

#include "chemistry/periodic_layout.h"

#include <QPushButton>

namespace stoikal {

/// The colour that tells a state, as the grid and its legend use it.
QColor StateColour(ElementState state);
/// The ground that tells a family.
QColor FamilyColour(ElementFamily family);
/// The state in a word, for who does not see the colour.
QString StateName(ElementState state);
QString FamilyName(ElementFamily family);

/// A cell of the periodic table, or a sample of its legend. The state is told by
/// the caption's colour and by its face or a small mark as well: upright for a
/// solid, underlined for a liquid, slanted for a gas, with a dot in the corner
/// for what is obtained by synthesis, with a ring for what is not yet.
class ElementButton final : public QPushButton
{
    Q_OBJECT

public:
    explicit ElementButton(QWidget* parent);

    /// A family's ground, or none with nothing.
    void SetGround(const QColor& colour);
    void SetState(ElementState state);
    /// The number in the corner; 0 for none.
    void SetNumber(int number);
    /// The caption's size in points.
    void SetSize(double points);

Q_SIGNALS:
    void ArrowPressed(int dx, int dy);
    void Hovered();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    QColor m_ground;
    ElementState m_state = ElementState::Solid;
    int m_number = 0;
};

} // namespace stoikal
