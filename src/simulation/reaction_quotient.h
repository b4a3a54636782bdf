#pragma once

#include "simulation/particle_model.h"

namespace stoikal {

/// What the reaction quotient Qr = C x D / (A x B) is taken to be without A or B.
constexpr double kQuotientWithoutReactant = 10000;

/// The scale of Qr never ends below this.
constexpr double kLeastQuotientMax = 2;

/// Qr of the particles at a tick: 10000 as soon as there is no A or no B, also
/// when C x D is 0.
double QuotientOfTick(const KindNumbers& counts);

/// Qr at the start of a run, from the numbers typed, at least 2. A at 0 counts as
/// 10000 and is then divided by B: 10000 / B. B at 0 is 10000.
double QuotientOfStart(const KindNumbers& typed);

/// Qr of numbers just typed, at least 2: 10000 when A or B is 0.
double QuotientOfNumbers(const KindNumbers& typed);

/// Qr of a sample that the curve comes from. Without A it is 0 when C x D is 0,
/// else 10000. A without B is a division by zero: a FatalFault.
double QuotientOfSample(const KindNumbers& counts);

/// Qr of the sample that the curve goes to just now: as above, yet 10000 when
/// there is A without B.
double QuotientOfNewestSample(const KindNumbers& counts);

} // namespace stoikal
