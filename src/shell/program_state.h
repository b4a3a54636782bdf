#pragma once

#include "shell/command.h"

#include <QString>
#include <array>
#include <set>

namespace stoikal {

/// What of the program the menu bar shows.
struct ProgramState {
    bool hasRun = false; ///< an equation file is open
    bool hasEquation = false; ///< and one of its equations is shown
    bool isCharged = false; ///< which has a charged species
    std::array<QString, 6> molecules; ///< its species by slot; an empty slot has none
    bool showsAtoms = true;
    int atomSize = 1; ///< index of the size of the discs, 0 to 3
    std::set<Command> open; ///< the entries whose window or program is there
};

/// How an entry of the menu bar stands.
struct EntryState {
    bool isEnabled = true;
    bool isMarked = false;
    bool isVisible = true;
    QString caption; ///< in place of the one of the menu tree; empty for that one
};

/// What an entry says in a state of the program.
EntryState EntryFor(Command command, const ProgramState& state);

} // namespace stoikal
