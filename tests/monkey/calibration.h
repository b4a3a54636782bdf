#pragma once

namespace stoikal {

/// How many times slower our own code runs here than the optimised program does on the
/// machine for which the promises in milliseconds were made; 1 at least. Sanitizers
/// alone make it three to five times. Measured by a piece of the program's own work.
double SlownessHere();

} // namespace stoikal
