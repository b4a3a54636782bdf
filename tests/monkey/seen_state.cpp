#include "seen_state.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QVariant>
#include <QWidget>
#include <algorithm>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

QString StateOf(const QWidget& widget)
{
    QStringList words{QString::fromLatin1(widget.metaObject()->className()), widget.objectName()};
    const QRect place = widget.geometry();
    words << u"%1,%2 %3x%4"_s.arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height());
    for (const char* const property : {"enabled", "text", "plainText", "value", "checked", "currentIndex"}) {
        const QVariant value = widget.property(property);
        if (value.isValid())
            words << value.toString();
    }
    return words.join(u'|');
}

QStringList ShownWidgets()
{
    QStringList shown;
    QWidgetList windows = QApplication::topLevelWidgets();
    std::stable_sort(windows.begin(), windows.end(), [](const QWidget* a, const QWidget* b) {
        return std::pair(a->objectName(), a->windowTitle()) < std::pair(b->objectName(), b->windowTitle());
    });
    for (const QWidget* const window : std::as_const(windows)) {
        if (!window->isVisible())
            continue;
        shown << StateOf(*window);
        const auto all = window->findChildren<QWidget*>();
        for (const QWidget* const widget : all) {
            if (widget->isVisible())
                shown << StateOf(*widget);
        }
    }
    return shown;
}

QStringList Files(const QString& folder)
{
    QStringList files;
    QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        QFile file(walk.next());
        const bool isOpen = file.open(QIODevice::ReadOnly);
        const QByteArray bytes = isOpen ? file.readAll() : QByteArray("(cannot be read)");
        files << file.fileName() + u' '
                + QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex());
    }
    files.sort();
    return files;
}

} // namespace

QString SeenState(const QString& folder)
{
    return (ShownWidgets() + Files(folder)).join(u'\n');
}

} // namespace stoikal
