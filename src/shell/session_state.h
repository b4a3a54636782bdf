#pragma once

#include "base/places.h"
#include "exercise/pupil.h"
#include "exercise/run_state.h"
#include "tools/stopwatch.h"

namespace stoikal {

/// What the user chose to see of a run.
struct ViewOptions {
    bool showsAtoms = true;
    int atomSize = 1; ///< index of the size of the discs, 0 to 3
};

/// The one program-wide record. The shell owns it and sees it whole; whoever else
/// works with it is handed the part that concerns it.
struct SessionState {
    Pupil pupil;
    Places places;
    RunState run;
    StopwatchSeconds stopwatch;
    ViewOptions view;
    int ActionMotPasse = 0; ///< 1 to 10: the protected action that waits for the password
};

} // namespace stoikal
