#pragma once

#include "base/twips.h"

#include <QWidget>

namespace stoikal {

/// The cursor of the thermometer. It does not move itself: it tells how far the
/// mouse drags it, or which keys are pressed on it.
class WaveHandle final : public QWidget
{
    Q_OBJECT

public:
    explicit WaveHandle(QWidget* parent);

Q_SIGNALS:
    /// Twips from its top: where the mouse is now and where it went down.
    void Dragged(Twips y, Twips rememberedY);
    /// Whole steps of speed upwards, by the arrow and page keys.
    void Stepped(int steps);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    Twips m_rememberedY = 0;
};

} // namespace stoikal
