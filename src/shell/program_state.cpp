#include "shell/program_state.h"

#include <algorithm>
#include <iterator>

namespace stoikal {
namespace {

EntryState Enabled(bool isEnabled)
{
    return {isEnabled, false, true, {}};
}

EntryState Marked(bool isEnabled, bool isMarked)
{
    return {isEnabled, isMarked, true, {}};
}

/// Its entry carries the formula; that of an empty slot is not there. Without an
/// equation all carry the names of the tree.
EntryState Composition(const QString& molecule, const ProgramState& state)
{
    if (!state.hasEquation)
        return {};
    return {true, false, !molecule.isEmpty(), molecule};
}

/// The position of a command in a row of them; nothing past its end.
template <std::size_t Count>
std::size_t IndexIn(const Command (&row)[Count], Command command)
{
    return static_cast<std::size_t>(std::find(std::begin(row), std::end(row), command) - std::begin(row));
}

} // namespace

EntryState EntryFor(Command command, const ProgramState& state)
{
    const bool isOpen = state.open.contains(command);
    switch (command) {
    case Command::OpenBalancing:
    case Command::OpenProgress:
    case Command::CreateFile:
    case Command::ModifyFile:
    case Command::KillFile:
    case Command::ShowAnswers:
    case Command::CleanAnswers:
        return Enabled(!state.hasRun);
    case Command::CloseFile:
    case Command::CopyEquation:
    case Command::DeleteCoefficients:
    case Command::Compositions:
    case Command::Solution:
        return Enabled(state.hasRun);
    case Command::Atoms:
        return Marked(state.hasRun, state.showsAtoms);
    case Command::AtomSizes:
        return Enabled(state.hasRun && state.showsAtoms);
    case Command::AtomSize50:
    case Command::AtomSize100:
    case Command::AtomSize150:
    case Command::AtomSize200:
        return Marked(true, IndexIn(kAtomSizes, command) == static_cast<std::size_t>(state.atomSize));
    case Command::CompositionR1:
    case Command::CompositionR2:
    case Command::CompositionR3:
    case Command::CompositionP1:
    case Command::CompositionP2:
    case Command::CompositionP3:
        return Composition(state.molecules.at(IndexIn(kCompositions, command)), state);
    case Command::MassMol:
        return Marked(state.hasRun, isOpen);
    case Command::Charge:
        return Marked(state.hasEquation && state.isCharged, isOpen);
    default:
        return Marked(true, isOpen);
    }
}

} // namespace stoikal
