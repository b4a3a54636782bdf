#pragma once

#include <QString>

namespace stoikal {

/// What the program shows and keeps, as one text: each visible window with its
/// controls, their places and what stands in them, and each file below a folder.
QString SeenState(const QString& folder);

} // namespace stoikal
