#pragma once

#include <cstdint>

namespace stoikal::virtual_time {

/// From now on the time of this process moves only where it is moved: by Advance, and
/// by waiting in the thread that calls this, which then does not wait at all. Timers,
/// counters and dates of the toolkit and of the program follow it, so a run takes no
/// longer than its work and goes the same way each time.
void Begin();

/// Lets time pass. Timers that fall due fire when the event loop has its next turn.
void Advance(std::int64_t ms);

/// Nanoseconds since an instant before Begin, the same in each run.
std::int64_t Nanoseconds();

/// The processor time that this thread has really used, in milliseconds.
double ProcessorMs();

} // namespace stoikal::virtual_time
