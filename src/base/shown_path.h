#pragma once

#include <QString>

namespace stoikal {

/// A path as a person reads it: with the separator of his system, and one of it
/// between two names however the path was put together. An empty one stays empty.
/// It is for messages only; files are opened by the path itself.
QString ShownPath(const QString& path);

} // namespace stoikal
