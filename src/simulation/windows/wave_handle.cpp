#include "simulation/windows/wave_handle.h"

#include "forms/colours.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>

namespace stoikal {
namespace {

constexpr int kPage = 5;

Twips TwipsOf(const QMouseEvent& event)
{
    return static_cast<Twips>(std::lround(event.position().y() * kTwipsPerPixel));
}

} // namespace

WaveHandle::WaveHandle(QWidget* parent)
    : QWidget(parent)
{
    resize(34, 16);
    setCursor(Qt::SizeVerCursor);
    setFocusPolicy(Qt::StrongFocus);
}

void WaveHandle::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_rememberedY = TwipsOf(*event);
}

void WaveHandle::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        Q_EMIT Dragged(TwipsOf(*event), m_rememberedY);
}

void WaveHandle::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Up:
        Q_EMIT Stepped(1);
        break;
    case Qt::Key_Down:
        Q_EMIT Stepped(-1);
        break;
    case Qt::Key_PageUp:
        Q_EMIT Stepped(kPage);
        break;
    case Qt::Key_PageDown:
        Q_EMIT Stepped(-kPage);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void WaveHandle::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void WaveHandle::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

void WaveHandle::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor rim = hasFocus() ? colours::kAccent : colours::kSecondInk;
    painter.setPen(QPen(rim, hasFocus() ? 2 : 1));
    painter.setBrush(colours::kPaper);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
    // The line that stands on the scale, and a grip on both sides.
    painter.setRenderHint(QPainter::Antialiasing, false);
    const int middle = height() / 2;
    painter.fillRect(QRect(6, middle - 1, width() - 12, 2), colours::kInk);
    painter.fillRect(QRect(10, middle - 4, width() - 20, 1), colours::kLine);
    painter.fillRect(QRect(10, middle + 3, width() - 20, 1), colours::kLine);
}

} // namespace stoikal
