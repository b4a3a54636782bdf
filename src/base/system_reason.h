#pragma once

#include <QString>

namespace stoikal {

/// The system's reason for a failure of a file in French words. A reason that is
/// none of the common ones of disks and shares comes back as it is.
QString FrenchReason(const QString& systemReason);

/// The same by the system's number of the failure.
QString FrenchReason(int error);

} // namespace stoikal
