#pragma once

#include <QStringView>
#include <optional>

namespace stoikal::help_topics {

/// The pages of the manual that F1 opens, by window.
constexpr int kContents = 0; ///< a window without a page of its own
constexpr int kAbout = 100;
constexpr int kCharge = 200;
constexpr int kChrono = 300;
constexpr int kPassWord = 400;
constexpr int kEquation = 500;
constexpr int kNote = 600;
constexpr int kPref = 700;
constexpr int kAtoms = 800;
constexpr int kTip = 900;
constexpr int kExpert = 1000;
constexpr int kSearch = 1100;
constexpr int kTableau = 1200;
constexpr int kDataAtomes = 1300;
constexpr int kMassMol = 1400;
constexpr int kCalMol = 1500;
constexpr int kHistoMol = 1600;
constexpr int kEditor = 1700;
constexpr int kSimulAnim = 1800;
constexpr int kHelp = 1900; ///< the reader of the help itself

/// The page of a window of the program, by its name; nothing for what is none
/// of its windows, such as a message box.
std::optional<int> TopicOf(QStringView window);

} // namespace stoikal::help_topics
