#pragma once

#include <QString>

namespace stoikal {

/// Name and version of the program, as windows show them.
namespace product {
inline QString Title()
{
    return QStringLiteral("Stoikal");
}
inline QString MajorMinor()
{
    return QStringLiteral(STOIKAL_MAJOR "." STOIKAL_MINOR);
}
inline QString Version()
{
    return QStringLiteral(STOIKAL_MAJOR "." STOIKAL_MINOR "." STOIKAL_REVISION);
}
/// The caption of the main window at rest: "Stoikal v.4.0".
inline QString Caption()
{
    return Title() + QStringLiteral(" v.") + MajorMinor();
}
} // namespace product

} // namespace stoikal
