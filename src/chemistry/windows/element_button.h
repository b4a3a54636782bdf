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

    void SetGround(const QColor& colour);
    void SetState(ElementState state);
    /// The number in the corner; 0 for none. It is left out of a small cell.
    void SetNumber(int number);
    /// The name below the caption of a large cell.
    void SetElementName(const QString& name);
    /// The caption's size in points; a caption that is too wide is shown smaller.
    void SetSize(double points);

Q_SIGNALS:
    void ArrowPressed(int dx, int dy);
    void Hovered();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void PaintGround(QPainter& painter, const QRectF& cell) const;
    void PaintCaption(QPainter& painter, const QRectF& place) const;
    void PaintNumber(QPainter& painter, const QRectF& cell) const;
    bool PaintName(QPainter& painter, const QRectF& cell) const;
    void PaintMark(QPainter& painter, const QRectF& cell) const;

    QColor m_ground;
    ElementState m_state = ElementState::Solid;
    int m_number = 0;
    QString m_name;
};

} // namespace stoikal
