#pragma once

namespace stoikal {

/// What the menu bar offers, entry by entry in its order. A menu that only holds
/// others is an entry too: it can be out of reach. What each is called stands in
/// the menu tree.
enum class Command {
    FileMenu,
    OpenBalancing,
    OpenProgress,
    CloseFile,
    CreateFile,
    ModifyFile,
    KillFile,
    ShowAnswers,
    CleanAnswers,
    EndProgram,
    EditMenu,
    CopyEquation,
    DeleteCoefficients,
    ViewMenu,
    Atoms,
    AtomSizes,
    AtomSize50,
    AtomSize100,
    AtomSize150,
    AtomSize200,
    Compositions,
    CompositionsOfReactants,
    CompositionR1,
    CompositionR2,
    CompositionR3,
    CompositionsOfProducts,
    CompositionP1,
    CompositionP2,
    CompositionP3,
    MassMol,
    Charge,
    Calc,
    Chrono,
    Pref,
    ToolMenu,
    Expert,
    Search,
    PeriodicTable,
    CalMol,
    SimulAnim,
    HelpMenu,
    HelpContents,
    HelpIndex,
    GlossaryOfAtoms,
    GlossaryOfScientists,
    Tip,
    MoreTip,
    Solution,
    Password,
    Web,
    About
};

constexpr Command kAtomSizes[]{Command::AtomSize50, Command::AtomSize100, Command::AtomSize150,
                               Command::AtomSize200};

/// The atoms of one species alone, by its slot.
constexpr Command kCompositions[]{Command::CompositionR1, Command::CompositionR2, Command::CompositionR3,
                                  Command::CompositionP1, Command::CompositionP2, Command::CompositionP3};

} // namespace stoikal
