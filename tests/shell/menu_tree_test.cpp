#include "shell/menu_tree.h"

#include "shell/program_state.h"
#include "shell/windows/frm_stoikal.h"

#include "support/window_driver.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The menu bar entry by entry: two blanks a level, the name, the caption. A
/// separator has no caption.
const QStringList kWholeTree{
    u"Mnu_File|&Fichier"_s,
    u"  Mnu_Open(0)|&Ouvrir un fichier d'équations à équilibrer"_s,
    u"  Mnu_Open(1)|Ouvrir un fichier d'étude d'avancement d'une réaction"_s,
    u"  Mnu_Close|&Fermer le fichier d'équations"_s,
    u"  Mnu_Ligne1|"_s,
    u"  Mnu_Create|&Créer un fichier d'équations ..."_s,
    u"  Mnu_Modify|&Modifier un fichier d'équations existant ..."_s,
    u"  Mnu_Kill|Supprimer un fichier existant ..."_s,
    u"  Mnu_Ligne10|"_s,
    u"  Mnu_Answer|&Visualisaliser les réponses des élèves"_s,
    u"  Mnu_Clean|Vider le fichier des réponses"_s,
    u"  Mnu_Ligne2|"_s,
    u"  Mnu_End|&Quitter"_s,
    u"Mnu_Edition|&Edition"_s,
    u"  Mnu_Copy|Co&pier l'équation dans le presse-papier"_s,
    u"  Mnu_Ligne3|"_s,
    u"  Mnu_Del|Suppression des &coefficients"_s,
    u"Mnu_View|Aff&ichage"_s,
    u"  Mnu_Atome|&Visualisation des atomes"_s,
    u"  Mnu_Grow|Agrandir les atomes"_s,
    u"    Mnu_Taille(0)|50%"_s,
    u"    Mnu_Taille(1)|100%"_s,
    u"    Mnu_Taille(2)|150%"_s,
    u"    Mnu_Taille(3)|200%"_s,
    u"  Mnu_Compo|Composition &atomique ..."_s,
    u"    Mnu_Reactifs|des réactifs ..."_s,
    u"      Mnu_Reactif(0)|R1"_s,
    u"      Mnu_Reactif(1)|R2"_s,
    u"      Mnu_Reactif(2)|R3"_s,
    u"    Mnu_Produits|des produits ..."_s,
    u"      Mnu_Produit(3)|P1"_s,
    u"      Mnu_Produit(4)|P2"_s,
    u"      Mnu_Produit(5)|P3"_s,
    u"  Mnu_MassMol|Masse molaire"_s,
    u"  Mnu_Ligne4|"_s,
    u"  Mnu_Charge|Visualisation des charges"_s,
    u"  Mnu_Ligne5|"_s,
    u"  Mnu_Calc|Calculatrice"_s,
    u"  Mnu_Chrono|Chronomètre"_s,
    u"  Mnu_Ligne12|"_s,
    u"  Mnu_Pref|Préférences"_s,
    u"Mnu_Compl|Outils"_s,
    u"  Mnu_Balance|Equilibrage automatique d'équations"_s,
    u"  Mnu_Search|Recherche d'équations"_s,
    u"  Mnu_Tableau|Tableau périodique"_s,
    u"  Mnu_CalMol|Calcul de masse molaire"_s,
    u"  Mnu_SimulAnim|Représentation dynamique de l'avancement"_s,
    u"Mnu_Help|&?"_s,
    u"  Mnu_Help_Contents|&Sommaire de l'Aide de Stoikal"_s,
    u"  Mnu_Help_Index|&Index de l'Aide de Stoikal"_s,
    u"  Mnu_Glossaire|&Glossaire des atomes"_s,
    u"  Mnu_Gloss_sc|Glossaire des scientifiques"_s,
    u"  Mnu_Ligne9|"_s,
    u"  Mnu_Tip|Astuce du &jour"_s,
    u"  Mnu_MoreTip|Rajouter une astuce"_s,
    u"  Mnu_Ligne6|"_s,
    u"  Mnu_Solution|Obtenir la &solution"_s,
    u"  Mnu_Password|Changer le &mot de passe"_s,
    u"  Mnu_Ligne7|"_s,
    u"  Mnu_Web|Visiter le site de l'auteur"_s,
    u"  Mnu_About|A &propos de Stoikal"_s,
};

/// The entries that change with an open equation file.
const QStringList kClosedWhileOpen{u"Mnu_Open(0)"_s, u"Mnu_Open(1)"_s, u"Mnu_Create"_s, u"Mnu_Modify"_s,
                                   u"Mnu_Kill"_s,    u"Mnu_Answer"_s,  u"Mnu_Clean"_s};
const QStringList kOpenWhileOpen{u"Mnu_Close"_s, u"Mnu_Copy"_s,  u"Mnu_Del"_s,      u"Mnu_Atome"_s,
                                 u"Mnu_Grow"_s,  u"Mnu_Compo"_s, u"Mnu_Solution"_s, u"Mnu_MassMol"_s};

QString TreeLine(int level, const QString& name, const QString& caption)
{
    return QString(2 * level, u' ') + name + u'|' + caption;
}

void AppendNodes(QStringList& lines, int level, const std::vector<MenuNode>& nodes)
{
    for (const MenuNode& node : nodes) {
        lines << TreeLine(level, node.name, node.caption);
        AppendNodes(lines, level + 1, node.children);
    }
}

/// What stands on the screen, separators by their line alone.
void AppendActions(QStringList& lines, int level, const QList<QAction*>& actions)
{
    for (const QAction* const action : actions) {
        lines << TreeLine(level, action->objectName(), action->isSeparator() ? QString() : action->text());
        if (action->menu() != nullptr)
            AppendActions(lines, level + 1, action->menu()->actions());
    }
}

QStringList Entries()
{
    QStringList names;
    for (const QString& line : kWholeTree)
        names << line.section(u'|', 0, 0).trimmed();
    return names;
}

/// The names of the entries that fulfil a condition in a state, in the order of
/// the tree.
template <typename Condition>
void AppendWhere(QStringList& names, const std::vector<MenuNode>& nodes, const ProgramState& state,
                 Condition holds)
{
    for (const MenuNode& node : nodes) {
        if (node.command && holds(EntryFor(*node.command, state)))
            names << node.name;
        AppendWhere(names, node.children, state, holds);
    }
}

template <typename Condition>
QStringList Where(const ProgramState& state, Condition holds)
{
    QStringList names;
    AppendWhere(names, MenuTree(), state, holds);
    return names;
}

QStringList DisabledIn(const ProgramState& state)
{
    return Where(state, [](const EntryState& entry) { return !entry.isEnabled; });
}

QStringList MarkedIn(const ProgramState& state)
{
    return Where(state, [](const EntryState& entry) { return entry.isMarked; });
}

QStringList HiddenIn(const ProgramState& state)
{
    return Where(state, [](const EntryState& entry) { return !entry.isVisible; });
}

/// A run whose first equation is H2 + O2 = H2O.
ProgramState InARun()
{
    ProgramState state;
    state.hasRun = true;
    state.hasEquation = true;
    state.molecules = {u"H2"_s, u"O2"_s, {}, u"H2O"_s, {}, {}};
    return state;
}

/// The entries of two lists, in the order of the tree.
QStringList InTreeOrder(const QStringList& names)
{
    QStringList ordered;
    for (const QString& name : Entries()) {
        if (names.contains(name))
            ordered << name;
    }
    return ordered;
}

void ExpectWholeTree(const QStringList& lines)
{
    ASSERT_EQ(lines.size(), kWholeTree.size());
    for (qsizetype i = 0; i < lines.size(); ++i)
        EXPECT_EQ(lines.at(i), kWholeTree.at(i));
}

} // namespace

TEST(MenuTree, HoldsEachEntryWithItsCaptionInItsPlace)
{
    QStringList lines;

    AppendNodes(lines, 0, MenuTree());

    ExpectWholeTree(lines);
}

TEST(MenuTree, StandsOnTheScreenAsItIs)
{
    frmStoikal window;
    QStringList lines;

    AppendActions(lines, 0, window.menuBar()->actions());

    ExpectWholeTree(lines);
}

TEST(MenuTree, HasNoShortcutKeys)
{
    frmStoikal window;

    const auto actions = window.findChildren<QAction*>();

    ASSERT_GE(actions.size(), kWholeTree.size());
    for (const QAction* const action : actions)
        EXPECT_TRUE(action->shortcuts().isEmpty()) << action->objectName().toStdString();
}

TEST(MenuTree, LetsOnlyTheTogglesCarryAMark)
{
    frmStoikal window;
    QStringList markable;

    for (const QString& name : Entries()) {
        const auto* const action = window.findChild<QAction*>(name);
        ASSERT_NE(action, nullptr) << name.toStdString();
        if (action->isCheckable())
            markable << name;
    }

    EXPECT_EQ(markable,
              QStringList({u"Mnu_Atome"_s, u"Mnu_Taille(0)"_s, u"Mnu_Taille(1)"_s, u"Mnu_Taille(2)"_s,
                           u"Mnu_Taille(3)"_s, u"Mnu_MassMol"_s, u"Mnu_Charge"_s, u"Mnu_Calc"_s,
                           u"Mnu_Chrono"_s, u"Mnu_Pref"_s, u"Mnu_Balance"_s, u"Mnu_Search"_s,
                           u"Mnu_Tableau"_s, u"Mnu_CalMol"_s, u"Mnu_SimulAnim"_s}));
}

TEST(EntryFor, MarksAtomsAndTheirPlainSizeAtStart)
{
    EXPECT_EQ(MarkedIn({}), QStringList({u"Mnu_Atome"_s, u"Mnu_Taille(1)"_s}));
}

TEST(EntryFor, DisablesTheEntriesOfARunAtStart)
{
    EXPECT_EQ(DisabledIn({}),
              QStringList({u"Mnu_Close"_s, u"Mnu_Copy"_s, u"Mnu_Del"_s, u"Mnu_Atome"_s, u"Mnu_Grow"_s,
                           u"Mnu_Compo"_s, u"Mnu_MassMol"_s, u"Mnu_Charge"_s, u"Mnu_Solution"_s}));
}

TEST(EntryFor, ClosesTheTeachersEntriesInARun)
{
    QStringList disabled = kClosedWhileOpen;
    // No charged species.
    disabled << u"Mnu_Charge"_s;
    EXPECT_EQ(DisabledIn(InARun()), InTreeOrder(disabled));
    EXPECT_EQ(MarkedIn(InARun()), QStringList({u"Mnu_Atome"_s, u"Mnu_Taille(1)"_s}));
}

TEST(EntryFor, ClosesTheEntriesOfARunAfterIt)
{
    ProgramState state;
    state.showsAtoms = false; // as the end of a run leaves it

    QStringList disabled = kOpenWhileOpen;
    disabled << u"Mnu_Charge"_s;
    EXPECT_EQ(DisabledIn(state), InTreeOrder(disabled));
    EXPECT_EQ(MarkedIn(state), QStringList{u"Mnu_Taille(1)"_s});
}

TEST(EntryFor, OffersTheChargesWithAChargedEquationOnly)
{
    ProgramState state = InARun();
    state.isCharged = true;
    EXPECT_FALSE(DisabledIn(state).contains(u"Mnu_Charge"_s));

    // The file is open, its first line not yet read.
    state.hasEquation = false;
    EXPECT_TRUE(DisabledIn(state).contains(u"Mnu_Charge"_s));
}

TEST(EntryFor, ClosesTheSizesWhileNoAtomsAreShown)
{
    ProgramState state = InARun();
    state.showsAtoms = false;

    EXPECT_TRUE(DisabledIn(state).contains(u"Mnu_Grow"_s));
    EXPECT_FALSE(DisabledIn(state).contains(u"Mnu_Atome"_s));
    EXPECT_EQ(MarkedIn(state), QStringList{u"Mnu_Taille(1)"_s});
}

TEST(EntryFor, MarksTheSizeThatWasChosen)
{
    ProgramState state = InARun();
    for (int size = 0; size < 4; ++size) {
        state.atomSize = size;
        EXPECT_EQ(MarkedIn(state), QStringList({u"Mnu_Atome"_s, u"Mnu_Taille(%1)"_s.arg(size)}));
    }
}

TEST(EntryFor, MarksEachWindowThatIsThere)
{
    const std::pair<Command, QString> windows[]{
        {Command::MassMol, u"Mnu_MassMol"_s}, {Command::Charge, u"Mnu_Charge"_s},
        {Command::Calc, u"Mnu_Calc"_s},       {Command::Chrono, u"Mnu_Chrono"_s},
        {Command::Pref, u"Mnu_Pref"_s},       {Command::Expert, u"Mnu_Balance"_s},
        {Command::Search, u"Mnu_Search"_s},   {Command::PeriodicTable, u"Mnu_Tableau"_s},
        {Command::CalMol, u"Mnu_CalMol"_s},   {Command::SimulAnim, u"Mnu_SimulAnim"_s}};
    for (const auto& [command, name] : windows) {
        ProgramState state;
        state.showsAtoms = false;
        state.open = {command};
        EXPECT_EQ(MarkedIn(state), InTreeOrder({u"Mnu_Taille(1)"_s, name}));
    }
}

TEST(EntryFor, NamesTheSpeciesOfTheEquationAndHidesEmptySlots)
{
    EXPECT_EQ(EntryFor(Command::CompositionR1, InARun()).caption, u"H2"_s);
    EXPECT_EQ(EntryFor(Command::CompositionR2, InARun()).caption, u"O2"_s);
    EXPECT_EQ(EntryFor(Command::CompositionP1, InARun()).caption, u"H2O"_s);
    EXPECT_EQ(HiddenIn(InARun()),
              QStringList({u"Mnu_Reactif(2)"_s, u"Mnu_Produit(4)"_s, u"Mnu_Produit(5)"_s}));
}

TEST(EntryFor, NamesTheSlotsByTheTreeWithoutAnEquation)
{
    ProgramState state = InARun();
    state.hasEquation = false;

    for (const Command command : kCompositions)
        EXPECT_EQ(EntryFor(command, state).caption, QString());
    EXPECT_EQ(HiddenIn(state), QStringList());
}

TEST(FrmStoikalMenus, FollowTheState)
{
    frmStoikal window;
    const QAction& reactant = Control<QAction>(window, "Mnu_Reactif(0)");
    const QAction& emptySlot = Control<QAction>(window, "Mnu_Reactif(2)");
    const QAction& close = Control<QAction>(window, "Mnu_Close");
    const QAction& size = Control<QAction>(window, "Mnu_Taille(3)");
    ASSERT_FALSE(close.isEnabled());
    ProgramState state = InARun();
    state.atomSize = 3;

    window.ShowMenu(state);
    EXPECT_EQ(reactant.text(), u"H2"_s);
    EXPECT_FALSE(emptySlot.isVisible());
    EXPECT_TRUE(close.isEnabled());
    EXPECT_TRUE(size.isChecked());

    window.ShowMenu({});
    EXPECT_EQ(reactant.text(), u"R1"_s);
    EXPECT_TRUE(emptySlot.isVisible());
    EXPECT_FALSE(close.isEnabled());
    EXPECT_FALSE(size.isChecked());
}

TEST(FrmStoikalMenus, SayWhatWasChosenWithoutMovingTheMark)
{
    frmStoikal window;
    QSignalSpy chosen(&window, &frmStoikal::EntryChosen);
    QAction& chrono = Control<QAction>(window, "Mnu_Chrono");

    chrono.trigger();

    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen.at(0).at(0).value<Command>(), Command::Chrono);
    // Whether the stopwatch came is for its window to tell.
    EXPECT_FALSE(chrono.isChecked());
}

} // namespace stoikal
