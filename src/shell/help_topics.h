#pragma once

namespace stoikal::help_topics {

/// The pages of the manual that F1 opens, by window.
constexpr int kContents = 0; ///< a window without a page of its own
constexpr int kAbout = 100;
constexpr int kCharge = 200;
constexpr int kChrono = 300;
constexpr int kEquation = 500;
constexpr int kNote = 600;
constexpr int kAtoms = 800;
constexpr int kExpert = 1000;
constexpr int kSearch = 1100;
constexpr int kTableau = 1200;
constexpr int kDataAtomes = 1300;

} // namespace stoikal::help_topics
