#include "shell/menu_tree.h"

#include <utility>

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

MenuNode Entry(Command command, const QString& name, const QString& caption)
{
    return {command, name, caption, false, {}};
}

MenuNode Mark(Command command, const QString& name, const QString& caption)
{
    return {command, name, caption, true, {}};
}

MenuNode Line(const QString& name)
{
    return {std::nullopt, name, {}, false, {}};
}

MenuNode Menu(Command command, const QString& name, const QString& caption, std::vector<MenuNode> children)
{
    return {command, name, caption, false, std::move(children)};
}

MenuNode FileMenu()
{
    return Menu(
        Command::FileMenu, u"Mnu_File"_s, u"&Fichier"_s,
        {
            Entry(Command::OpenBalancing, u"Mnu_Open(0)"_s, u"&Ouvrir un fichier d'équations à équilibrer"_s),
            Entry(Command::OpenProgress, u"Mnu_Open(1)"_s,
                  u"Ouvrir un fichier d'étude d'avancement d'une réaction"_s),
            Entry(Command::CloseFile, u"Mnu_Close"_s, u"&Fermer le fichier d'équations"_s),
            Line(u"Mnu_Ligne1"_s),
            Entry(Command::CreateFile, u"Mnu_Create"_s, u"&Créer un fichier d'équations ..."_s),
            Entry(Command::ModifyFile, u"Mnu_Modify"_s, u"&Modifier un fichier d'équations existant ..."_s),
            Entry(Command::KillFile, u"Mnu_Kill"_s, u"Supprimer un fichier existant ..."_s),
            Line(u"Mnu_Ligne10"_s),
            Entry(Command::ShowAnswers, u"Mnu_Answer"_s, u"&Visualisaliser les réponses des élèves"_s),
            Entry(Command::CleanAnswers, u"Mnu_Clean"_s, u"Vider le fichier des réponses"_s),
            Line(u"Mnu_Ligne2"_s),
            Entry(Command::EndProgram, u"Mnu_End"_s, u"&Quitter"_s),
        });
}

MenuNode EditMenu()
{
    return Menu(
        Command::EditMenu, u"Mnu_Edition"_s, u"&Edition"_s,
        {
            Entry(Command::CopyEquation, u"Mnu_Copy"_s, u"Co&pier l'équation dans le presse-papier"_s),
            Line(u"Mnu_Ligne3"_s),
            Entry(Command::DeleteCoefficients, u"Mnu_Del"_s, u"Suppression des &coefficients"_s),
        });
}

MenuNode ViewMenu()
{
    const auto sizes = Menu(Command::AtomSizes, u"Mnu_Grow"_s, u"Agrandir les atomes"_s,
                            {
                                Mark(Command::AtomSize50, u"Mnu_Taille(0)"_s, u"50%"_s),
                                Mark(Command::AtomSize100, u"Mnu_Taille(1)"_s, u"100%"_s),
                                Mark(Command::AtomSize150, u"Mnu_Taille(2)"_s, u"150%"_s),
                                Mark(Command::AtomSize200, u"Mnu_Taille(3)"_s, u"200%"_s),
                            });
    const auto reactants = Menu(Command::CompositionsOfReactants, u"Mnu_Reactifs"_s, u"des réactifs ..."_s,
                                {Entry(Command::CompositionR1, u"Mnu_Reactif(0)"_s, u"R1"_s),
                                 Entry(Command::CompositionR2, u"Mnu_Reactif(1)"_s, u"R2"_s),
                                 Entry(Command::CompositionR3, u"Mnu_Reactif(2)"_s, u"R3"_s)});
    const auto products = Menu(Command::CompositionsOfProducts, u"Mnu_Produits"_s, u"des produits ..."_s,
                               {Entry(Command::CompositionP1, u"Mnu_Produit(3)"_s, u"P1"_s),
                                Entry(Command::CompositionP2, u"Mnu_Produit(4)"_s, u"P2"_s),
                                Entry(Command::CompositionP3, u"Mnu_Produit(5)"_s, u"P3"_s)});
    return Menu(Command::ViewMenu, u"Mnu_View"_s, u"Aff&ichage"_s,
                {
                    Mark(Command::Atoms, u"Mnu_Atome"_s, u"&Visualisation des atomes"_s),
                    sizes,
                    Menu(Command::Compositions, u"Mnu_Compo"_s, u"Composition &atomique ..."_s,
                         {reactants, products}),
                    Mark(Command::MassMol, u"Mnu_MassMol"_s, u"Masse molaire"_s),
                    Line(u"Mnu_Ligne4"_s),
                    Mark(Command::Charge, u"Mnu_Charge"_s, u"Visualisation des charges"_s),
                    Line(u"Mnu_Ligne5"_s),
                    Mark(Command::Calc, u"Mnu_Calc"_s, u"Calculatrice"_s),
                    Mark(Command::Chrono, u"Mnu_Chrono"_s, u"Chronomètre"_s),
                    Line(u"Mnu_Ligne12"_s),
                    Mark(Command::Pref, u"Mnu_Pref"_s, u"Préférences"_s),
                });
}

MenuNode ToolMenu()
{
    return Menu(
        Command::ToolMenu, u"Mnu_Compl"_s, u"Outils"_s,
        {
            Mark(Command::Expert, u"Mnu_Balance"_s, u"Equilibrage automatique d'équations"_s),
            Mark(Command::Search, u"Mnu_Search"_s, u"Recherche d'équations"_s),
            Mark(Command::PeriodicTable, u"Mnu_Tableau"_s, u"Tableau périodique"_s),
            Mark(Command::CalMol, u"Mnu_CalMol"_s, u"Calcul de masse molaire"_s),
            Mark(Command::SimulAnim, u"Mnu_SimulAnim"_s, u"Représentation dynamique de l'avancement"_s),
        });
}

MenuNode HelpMenu()
{
    return Menu(Command::HelpMenu, u"Mnu_Help"_s, u"&?"_s,
                {
                    Entry(Command::HelpContents, u"Mnu_Help_Contents"_s, u"&Sommaire de l'Aide de Stoikal"_s),
                    Entry(Command::HelpIndex, u"Mnu_Help_Index"_s, u"&Index de l'Aide de Stoikal"_s),
                    Entry(Command::GlossaryOfAtoms, u"Mnu_Glossaire"_s, u"&Glossaire des atomes"_s),
                    Entry(Command::GlossaryOfScientists, u"Mnu_Gloss_sc"_s, u"Glossaire des scientifiques"_s),
                    Line(u"Mnu_Ligne9"_s),
                    Entry(Command::Tip, u"Mnu_Tip"_s, u"Astuce du &jour"_s),
                    Entry(Command::MoreTip, u"Mnu_MoreTip"_s, u"Rajouter une astuce"_s),
                    Line(u"Mnu_Ligne6"_s),
                    Entry(Command::Solution, u"Mnu_Solution"_s, u"Obtenir la &solution"_s),
                    Entry(Command::Password, u"Mnu_Password"_s, u"Changer le &mot de passe"_s),
                    Line(u"Mnu_Ligne7"_s),
                    Entry(Command::Web, u"Mnu_Web"_s, u"Visiter le site de l'auteur"_s),
                    Entry(Command::About, u"Mnu_About"_s, u"A &propos de Stoikal"_s),
                });
}

} // namespace

const std::vector<MenuNode>& MenuTree()
{
    static const std::vector<MenuNode> kTree{FileMenu(), EditMenu(), ViewMenu(), ToolMenu(), HelpMenu()};
    return kTree;
}

} // namespace stoikal
