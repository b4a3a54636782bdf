#include "simulation/windows/run_button.h"

#include "forms/colours.h"

#include <QPainter>

namespace stoikal {

RunButton::RunButton(QWidget* parent)
    : QPushButton(parent)
{
    setCheckable(true);
    setAutoDefault(false);
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
}

void RunButton::SetBackColour(const QColor& colour)
{
    QPalette own = palette();
    own.setColor(QPalette::Button, colour);
    own.setColor(QPalette::ButtonText, qGray(colour.rgb()) < 128 ? Qt::white : Qt::black);
    setPalette(own);
}

void RunButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor fill = palette().color(QPalette::Button);
    const bool isIn = isDown() || isChecked();
    painter.setPen(QPen(fill.darker(170), 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    painter.setPen(QPen(isIn ? fill.darker(140) : QColor(255, 255, 255, 150), 1));
    painter.drawLine(QPointF(4, 1.5), QPointF(width() - 4, 1.5));
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::ButtonText), 1, Qt::DotLine));
        painter.drawRoundedRect(QRectF(rect()).adjusted(3.5, 3.5, -3.5, -3.5), 2, 2);
    }
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(rect().translated(0, isIn ? 1 : 0), Qt::AlignCenter, text());
}

} // namespace stoikal
