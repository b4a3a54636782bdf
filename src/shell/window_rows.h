#pragma once

#include "shell/hosted_window.h"

/// The windows that come and go beside the main one: a row each.
namespace stoikal::window_rows {

constexpr WindowRow kCalMol{Command::CalMol, Standing::Remembered, InARun::Stays, "CalMol Window"};
constexpr WindowRow kCharge{Command::Charge, Standing::OwnPlace, InARun::Closes};
constexpr WindowRow kDataAtomes{std::nullopt, Standing::Remembered, InARun::Stays, "DataAtomes Window"};
constexpr WindowRow kExpert{Command::Expert, Standing::Child, InARun::Hides};
constexpr WindowRow kHistoMol{std::nullopt, Standing::Child, InARun::Closes};
constexpr WindowRow kMassMol{Command::MassMol, Standing::OwnPlace, InARun::Closes};
constexpr WindowRow kPref{Command::Pref, Standing::Centred, InARun::Closes};
constexpr WindowRow kSearch{Command::Search, Standing::Child, InARun::Hides};
constexpr WindowRow kSimulAnim{Command::SimulAnim, Standing::Child, InARun::Pauses};
constexpr WindowRow kTableau{Command::PeriodicTable, Standing::Child, InARun::Hides};

} // namespace stoikal::window_rows
