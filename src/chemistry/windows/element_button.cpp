#include "chemistry/windows/element_button.h"

#include "forms/colours.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

namespace stoikal {
namespace {

/// Logical pixels from which a cell has room for more than its symbol.
constexpr int kHeightWithNumber = 40;
constexpr int kHeightWithName = 76;

QFont SmallFace(QFont face)
{
    face.setPointSizeF(7.5);
    face.setBold(false);
    face.setItalic(false);
    face.setUnderline(false);
    return face;
}

} // namespace

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
        return QStringLiteral("liquide à 30\u00A0°C");
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

void ElementButton::SetElementName(const QString& name)
{
    m_name = name;
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
    PaintGround(painter, cell);
    QRectF place = cell;
    if (m_number > 0 && height() >= kHeightWithNumber) {
        PaintNumber(painter, cell);
        place.adjust(0, 8, 0, 0);
    }
    if (height() >= kHeightWithName && PaintName(painter, cell))
        place.adjust(0, 0, 0, -14);
    PaintCaption(painter, place);
    PaintMark(painter, cell);
}

void ElementButton::PaintGround(QPainter& painter, const QRectF& cell) const
{
    QColor ground = m_ground;
    QPen edge(m_ground.darker(115), 1);
    if (isDown())
        ground = m_ground.darker(112);
    else if (underMouse() && isEnabled())
        ground = m_ground.darker(105);
    if (underMouse())
        edge = QPen(colours::kSecondInk, 1.5);
    if (hasFocus())
        edge = QPen(colours::kAccent, 2.5);
    painter.setPen(edge);
    painter.setBrush(ground);
    painter.drawRoundedRect(cell, 3, 3);
}

void ElementButton::PaintCaption(QPainter& painter, const QRectF& place) const
{
    QFont face = font();
    const double wide = QFontMetricsF(face).horizontalAdvance(text());
    const double room = place.width() - 4;
    if (wide > room)
        face.setPointSizeF(face.pointSizeF() * room / wide);
    const QColor ink = palette().color(QPalette::ButtonText);
    if (m_state != ElementState::Synthetic) {
        painter.setFont(face);
        painter.setPen(ink);
        painter.drawText(place, Qt::AlignCenter, text());
        return;
    }
    // This light colour is hard to read on a light ground: a dark edge carries it.
    const QFontMetricsF metrics(face);
    QPainterPath outline;
    outline.addText(place.center().x() - metrics.horizontalAdvance(text()) / 2,
                    place.center().y() + (metrics.ascent() - metrics.descent()) / 2, face, text());
    painter.strokePath(
        outline, QPen(ink.darker(280), face.pointSizeF() / 9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(outline, ink);
}

void ElementButton::PaintNumber(QPainter& painter, const QRectF& cell) const
{
    painter.setFont(SmallFace(font()));
    painter.setPen(colours::kSecondInk);
    painter.drawText(cell.adjusted(4, 2, -4, 0), Qt::AlignLeft | Qt::AlignTop, QString::number(m_number));
}

bool ElementButton::PaintName(QPainter& painter, const QRectF& cell) const
{
    const QFont face = SmallFace(font());
    if (m_name.isEmpty() || QFontMetricsF(face).horizontalAdvance(m_name) > cell.width() - 4)
        return false;
    painter.setFont(face);
    painter.setPen(colours::kInk);
    painter.drawText(cell.adjusted(2, 0, -2, -7), Qt::AlignHCenter | Qt::AlignBottom, m_name);
    return true;
}

void ElementButton::PaintMark(QPainter& painter, const QRectF& cell) const
{
    if (m_state != ElementState::Synthetic && m_state != ElementState::NotYetSynthesised)
        return;
    const bool isSmall = height() < kHeightWithNumber;
    const double radius = isSmall ? 1.6 : 2.6;
    const double inset = radius + (isSmall ? 1.4 : 2.4);
    painter.setPen(QPen(colours::kInk, 1));
    painter.setBrush(m_state == ElementState::Synthetic ? QBrush(colours::kInk) : QBrush(Qt::NoBrush));
    painter.drawEllipse(QPointF(cell.right() - inset, cell.top() + inset), radius, radius);
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
