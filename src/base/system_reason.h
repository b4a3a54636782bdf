#pragma once

#include <QString>

namespace stoikal {

/// Why the system refused something, by its number of the failure, in French words.
/// One that is none of the common ones of disks and shares has its number alone.
QString FrenchReason(int error);

} // namespace stoikal
