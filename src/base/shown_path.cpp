#include "base/shown_path.h"

#include <QDir>

namespace stoikal {

QString ShownPath(const QString& path)
{
    return QDir::toNativeSeparators(QDir::cleanPath(path));
}

} // namespace stoikal
