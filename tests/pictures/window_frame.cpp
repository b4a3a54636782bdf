#include "window_frame.h"

#include <QApplication>
#include <QFontMetrics>
#include <QMdiSubWindow>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionTitleBar>
#include <QWidget>

namespace stoikal {
namespace {

const QColor kEdge(0x8A, 0x94, 0xA6);

QStyleOptionTitleBar TitleBar(const QWidget& window, const QRect& place, InFront inFront)
{
    QStyleOptionTitleBar bar;
    bar.palette = QApplication::palette();
    bar.fontMetrics = QFontMetrics(QApplication::font());
    bar.rect = place;
    // The mark is the place of the star of an unsaved text.
    bar.text = window.windowTitle().replace(QLatin1String("[*]"),
                                            QLatin1String(window.isWindowModified() ? "*" : ""));
    bar.icon = QApplication::windowIcon();
    bar.state = QStyle::State_Enabled;
    if (inFront == InFront::Yes) {
        bar.state |= QStyle::State_Active;
        // The style looks for the state among those of the window.
        bar.titleBarState = QStyle::State_Active;
    }
    const bool isMain = (window.windowFlags() & Qt::WindowMinMaxButtonsHint) != 0;
    bar.titleBarFlags = Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint
        | (isMain ? Qt::WindowMinMaxButtonsHint : Qt::WindowFlags());
    bar.subControls = QStyle::SC_All;
    return bar;
}

} // namespace

QPixmap Grabbed(QWidget& window)
{
    QPixmap picture = window.grab();
    if (!window.mask().isEmpty()) {
        QPainter painter(&picture);
        painter.setClipRegion(QRegion(window.rect()) - window.mask());
        painter.fillRect(window.rect(), Qt::white);
    }
    return picture;
}

QMargins FrameMargins(const QWidget& window)
{
    const bool isMenu = window.windowType() == Qt::Popup;
    if (isMenu || (window.windowFlags() & Qt::FramelessWindowHint) != 0)
        return {};
    return {1, QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight), 1, 1};
}

QPixmap GrabbedWithFrame(QWidget& window, InFront inFront)
{
    if (auto* const child = qobject_cast<QMdiSubWindow*>(window.parentWidget()); child != nullptr)
        return child->isMaximized() ? GrabbedWithFrame(*child->window(), inFront) : child->grab();
    const QPixmap inside = Grabbed(window);
    const QMargins margins = FrameMargins(window);
    if (margins.isNull())
        return inside;
    QPixmap picture(inside.size().grownBy(margins));
    picture.fill(kEdge);
    QPainter painter(&picture);
    const QStyleOptionTitleBar bar = TitleBar(window, QRect(0, 0, picture.width(), margins.top()), inFront);
    QApplication::style()->drawComplexControl(QStyle::CC_TitleBar, &bar, &painter);
    painter.drawPixmap(margins.left(), margins.top(), inside);
    return picture;
}

} // namespace stoikal
