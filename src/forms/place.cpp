#include "forms/place.h"

#include "base/number_text.h"
#include "base/settings_store.h"
#include "platform/doors.h"

#include <QLayout>
#include <QWidget>
#include <algorithm>

namespace stoikal {

QRect MovedInto(const QRect& rectangle, const QRect& area)
{
    QRect moved = rectangle;
    moved.moveLeft(std::max(area.left(), std::min(moved.left(), area.right() - moved.width() + 1)));
    moved.moveTop(std::max(area.top(), std::min(moved.top(), area.bottom() - moved.height() + 1)));
    return moved;
}

QSize FrameAround(const QWidget& window)
{
    const auto frameOf = [](const QWidget& shown) { return shown.frameGeometry().size() - shown.size(); };
    const QWidget* const owner = window.parentWidget() == nullptr ? nullptr : window.parentWidget()->window();
    return owner == nullptr ? frameOf(window) : frameOf(window).expandedTo(frameOf(*owner));
}

void PlaceWindow(QWidget& window, const Screen& screen, Twips left, Twips top)
{
    const QRect area = screen.WorkArea();
    const QPoint corner = area.topLeft() + QPoint(ToPixels(left), ToPixels(top));
    window.move(MovedInto(QRect(corner, window.size() + FrameAround(window)), area).topLeft());
}

QPoint PlaceOf(const QWidget& window, const Screen& screen)
{
    const QPoint corner = window.pos() - screen.WorkArea().topLeft();
    return {FromPixels(corner.x()), FromPixels(corner.y())};
}

namespace {

/// A length that a section keeps, in twips; without one the length given.
Twips KeptLength(const Settings& settings, const QString& section, const QString& key, Twips fallback)
{
    constexpr double kFarthest = 1e6;
    const QString text = settings.Read(section, key);
    return text.isEmpty() ? fallback
                          : static_cast<Twips>(std::clamp(ReadFileNumber(text), -kFarthest, kFarthest));
}

} // namespace

void RestorePlace(QWidget& window, const Screen& screen, const Settings& settings, const QString& section,
                  QPoint otherwise)
{
    PlaceWindow(window, screen, KeptLength(settings, section, QStringLiteral("Left"), otherwise.x()),
                KeptLength(settings, section, QStringLiteral("Top"), otherwise.y()));
}

void CentreOver(QWidget& window, const Screen& screen, const QWidget& other)
{
    const QRect area = screen.WorkArea();
    // A window whose layout fixes its size has it only now.
    window.ensurePolished();
    if (window.layout() != nullptr)
        window.layout()->activate();
    const QSize frame = FrameAround(window);
    window.resize(window.size().boundedTo(area.size() - frame));
    QRect rectangle(QPoint(), window.size() + frame);
    rectangle.moveCenter(other.frameGeometry().center());
    window.move(MovedInto(rectangle, area).topLeft());
}

void KeepPlace(const QWidget& window, const Screen& screen, Settings& settings, const QString& section)
{
    const QPoint place = PlaceOf(window, screen);
    settings.Remember(section, QStringLiteral("Left"), QString::number(place.x()));
    settings.Remember(section, QStringLiteral("Top"), QString::number(place.y()));
}

QSize RememberedSize(const QWidget& window, const Settings& settings, const QString& section, QSize fallback)
{
    const auto read = [&](const QString& key, int pixels) {
        const Twips kept = KeptLength(settings, section, key, 0);
        return kept > 0 ? ToPixels(kept) : pixels;
    };
    return QSize(read(QStringLiteral("Width"), fallback.width()),
                 read(QStringLiteral("Height"), fallback.height()))
        .expandedTo(window.minimumSize());
}

void KeepPlaceAndSize(const QWidget& window, const Screen& screen, Settings& settings, const QString& section)
{
    KeepPlace(window, screen, settings, section);
    settings.Remember(section, QStringLiteral("Width"), QString::number(FromPixels(window.width())));
    settings.Remember(section, QStringLiteral("Height"), QString::number(FromPixels(window.height())));
}

} // namespace stoikal
