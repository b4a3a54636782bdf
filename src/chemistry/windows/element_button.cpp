#include "chemistry/windows/element_button.h"

#include "forms/colours.h"

#include <QKeyEvent>
#include <QPainter>

namespace stoikal {

QColor StateColour(ElementState state)
{
    switch (state) {
    case ElementState::Solid:
        return QColor(0, 0, 0);
    case ElementState::Liquid:
        return QColor(0, 0, 255);
    case ElementState::Gas:
        return QColor(255, 0, 0);
    case ElementState::Synthetic:
        return QColor(0, 200, 250);
    case ElementState::NotYetSynthesised:
        return QColor(255, 0, 255);
    }
    Q_UNREACHABLE();
}

QColor FamilyColour(ElementFamily family)
{
    switch (family) {
    case ElementFamily::NonMetal:
        return QColor(0xFF, 0xF4, 0xCC);
    case ElementFamily::Metal:
        return QColor(0xE8, 0xEE, 0xF8);
    case ElementFamily::SemiConductor:
        return QColor(0xDC, 0xF3, 0xE0);
    }
    Q_UNREACHABLE();
}

QString StateName(ElementState state)
{
    switch (state) {
    case ElementState::Solid:
        return QStringLiteral("solide");
    case ElementState::Liquid:
        return QStringLiteral("liquide à 30 °C");
    case ElementState::Gas:
        return QStringLiteral("gazeux");
    case ElementState::Synthetic:
        return QStringLiteral("obtenu par synthèse");
    case ElementState::NotYetSynthesised:
        return QStringLiteral("non encore synthétisé");
    }
    Q_UNREACHABLE();
}

QString FamilyName(ElementFamily family)
{
    switch (family) {
    case ElementFamily::NonMetal:
        return QStringLiteral("non-métal");
    case ElementFamily::Metal:
        return QStringLiteral("métal");
    case ElementFamily::SemiConductor:
        return QStringLiteral("semi-conducteur");
    }
    Q_UNREACHABLE();
}

ElementButton::ElementButton(QWidget* parent)
    : QPushButton(parent)
    , m_ground(colours::kPaper)
{
    setAutoDefault(false);
    setMouseTracking(true);
}

void ElementButton::SetGround(const QColor& colour)
{
    m_ground = colour;
    update();
}

void ElementButton::SetState(ElementState state)
{
    m_state = state;
    QFont face = font();
    face.setUnderline(state == ElementState::Liquid);
    face.setItalic(state == ElementState::Gas);
    setFont(face);
}

void ElementButton::SetNumber(int number)
{
    m_number = number;
    update();
}

void ElementButton::SetSize(double points)
{
    QFont face = font();
    face.setPointSizeF(points);
    face.setBold(true);
    setFont(face);
}

void ElementButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF cell = QRectF(rect()).adjusted(1, 1, -1, -1);
    painter.setPen(hasFocus() ? QPen(colours::kAccent, 2)
                              : QPen(underMouse() ? colours::kSecondInk : colours::kLine, 1));
    painter.setBrush(isDown() ? m_ground.darker(108) : m_ground);
    painter.drawRoundedRect(cell, 3, 3);

    painter.setPen(palette().color(QPalette::ButtonText));
    painter.setFont(font());
    const bool showsNumber = m_number > 0 && height() >= 40;
    painter.drawText(showsNumber ? cell.adjusted(0, 8, 0, 0) : cell, Qt::AlignCenter, text());
    if (showsNumber) {
        QFont small = font();
        small.setPointSizeF(7.5);
        small.setBold(false);
        small.setItalic(false);
        small.setUnderline(false);
        painter.setFont(small);
        painter.setPen(colours::kSecondInk);
        painter.drawText(cell.adjusted(4, 2, -4, 0), Qt::AlignLeft | Qt::AlignTop, QString::number(m_number));
    }
    if (m_state == ElementState::Synthetic || m_state == ElementState::NotYetSynthesised) {
        constexpr double kMark = 2.6;
        const QPointF corner(cell.right() - 5, cell.top() + 5);
        painter.setPen(QPen(colours::kInk, 1));
        painter.setBrush(m_state == ElementState::Synthetic ? QBrush(colours::kInk) : QBrush(Qt::NoBrush));
        painter.drawEllipse(corner, kMark, kMark);
    }
}

void ElementButton::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        Q_EMIT ArrowPressed(-1, 0);
        return;
    case Qt::Key_Right:
        Q_EMIT ArrowPressed(1, 0);
        return;
    case Qt::Key_Up:
        Q_EMIT ArrowPressed(0, -1);
        return;
    case Qt::Key_Down:
        Q_EMIT ArrowPressed(0, 1);
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        return;
    default:
        QPushButton::keyPressEvent(event);
    }
}

void ElementButton::mouseMoveEvent(QMouseEvent* event)
{
    Q_EMIT Hovered();
    QPushButton::mouseMoveEvent(event);
}

} // namespace stoikal
