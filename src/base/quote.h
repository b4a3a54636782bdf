#pragma once

#include <QString>
#include <QStringView>

namespace stoikal {

/// A text from a file as it stands in a message: 200 characters of it at most, with
/// "…" for the rest. A line may have thousands, and no screen shows those.
QString Quoted(QStringView text);

} // namespace stoikal
