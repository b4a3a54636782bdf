#include "shell/menu_tree.h"

#include "forms/menu_state.h"

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

MenuNode Entry(const QString& name, const QString& caption)
{
    return {name, caption, false, false, {}};
}

MenuNode Mark(const QString& name, const QString& caption, bool isMarkedAtStart = false)
{
    return {name, caption, true, isMarkedAtStart, {}};
}

MenuNode Line(const QString& name)
{
    return {name, {}, false, false, {}};
}

MenuNode Menu(const QString& name, const QString& caption, std::vector<MenuNode> children)
{
    return {name, caption, false, false, std::move(children)};
}

MenuNode FileMenu()
{
    return Menu(u"Mnu_File"_s, u"&Fichier"_s,
                {
                    Entry(u"Mnu_Open(0)"_s, u"&Ouvrir un fichier d'équations à équilibrer"_s),
                    Entry(u"Mnu_Open(1)"_s, u"Ouvrir un fichier d'étude d'avancement d'une réaction"_s),
                    Entry(u"Mnu_Close"_s, u"&Fermer le fichier d'équations"_s),
                    Line(u"Mnu_Ligne1"_s),
                    Entry(u"Mnu_Create"_s, u"&Créer un fichier d'équations ..."_s),
                    Entry(u"Mnu_Modify"_s, u"&Modifier un fichier d'équations existant ..."_s),
                    Entry(u"Mnu_Kill"_s, u"Supprimer un fichier existant ..."_s),
                    Line(u"Mnu_Ligne10"_s),
                    Entry(u"Mnu_Answer"_s, u"&Visualisaliser les réponses des élèves"_s),
                    Entry(u"Mnu_Clean"_s, u"Vider le fichier des réponses"_s),
                    Line(u"Mnu_Ligne2"_s),
                    Entry(u"Mnu_End"_s, u"&Quitter"_s),
                });
}

MenuNode EditMenu()
{
    return Menu(u"Mnu_Edition"_s, u"&Edition"_s,
                {
                    Entry(u"Mnu_Copy"_s, u"Co&pier l'équation dans le presse-papier"_s),
                    Line(u"Mnu_Ligne3"_s),
                    Entry(u"Mnu_Del"_s, u"Suppression des &coefficients"_s),
                });
}

MenuNode ViewMenu()
{
    const auto sizes = Menu(u"Mnu_Grow"_s, u"Agrandir les atomes"_s,
                            {
                                Mark(u"Mnu_Taille(0)"_s, u"50%"_s),
                                Mark(u"Mnu_Taille(1)"_s, u"100%"_s, true),
                                Mark(u"Mnu_Taille(2)"_s, u"150%"_s),
                                Mark(u"Mnu_Taille(3)"_s, u"200%"_s),
                            });
    const auto reactants = Menu(u"Mnu_Reactifs"_s, u"des réactifs ..."_s,
                                {Entry(u"Mnu_Reactif(0)"_s, u"R1"_s), Entry(u"Mnu_Reactif(1)"_s, u"R2"_s),
                                 Entry(u"Mnu_Reactif(2)"_s, u"R3"_s)});
    const auto products = Menu(u"Mnu_Produits"_s, u"des produits ..."_s,
                               {Entry(u"Mnu_Produit(3)"_s, u"P1"_s), Entry(u"Mnu_Produit(4)"_s, u"P2"_s),
                                Entry(u"Mnu_Produit(5)"_s, u"P3"_s)});
    return Menu(u"Mnu_View"_s, u"Aff&ichage"_s,
                {
                    Mark(u"Mnu_Atome"_s, u"&Visualisation des atomes"_s, true),
                    sizes,
                    Menu(u"Mnu_Compo"_s, u"Composition &atomique ..."_s, {reactants, products}),
                    Mark(u"Mnu_MassMol"_s, u"Masse molaire"_s),
                    Line(u"Mnu_Ligne4"_s),
                    Mark(u"Mnu_Charge"_s, u"Visualisation des charges"_s),
                    Line(u"Mnu_Ligne5"_s),
                    Mark(u"Mnu_Calc"_s, u"Calculatrice"_s),
                    Mark(u"Mnu_Chrono"_s, u"Chronomètre"_s),
                    Line(u"Mnu_Ligne12"_s),
                    Mark(u"Mnu_Pref"_s, u"Préférences"_s),
                });
}

MenuNode ToolMenu()
{
    return Menu(u"Mnu_Compl"_s, u"Outils"_s,
                {
                    Mark(u"Mnu_Balance"_s, u"Equilibrage automatique d'équations"_s),
                    Mark(u"Mnu_Search"_s, u"Recherche d'équations"_s),
                    Mark(u"Mnu_Tableau"_s, u"Tableau périodique"_s),
                    Mark(u"Mnu_CalMol"_s, u"Calcul de masse molaire"_s),
                    Mark(u"Mnu_SimulAnim"_s, u"Représentation dynamique de l'avancement"_s),
                });
}

MenuNode HelpMenu()
{
    return Menu(u"Mnu_Help"_s, u"&?"_s,
                {
                    Entry(u"Mnu_Help_Contents"_s, u"&Sommaire de l'Aide de Stoikal"_s),
                    Entry(u"Mnu_Help_Index"_s, u"&Index de l'Aide de Stoikal"_s),
                    Entry(u"Mnu_Glossaire"_s, u"&Glossaire des atomes"_s),
                    Entry(u"Mnu_Gloss_sc"_s, u"Glossaire des scientifiques"_s),
                    Line(u"Mnu_Ligne9"_s),
                    Entry(u"Mnu_Tip"_s, u"Astuce du &jour"_s),
                    Entry(u"Mnu_MoreTip"_s, u"Rajouter une astuce"_s),
                    Line(u"Mnu_Ligne6"_s),
                    Entry(u"Mnu_Solution"_s, u"Obtenir la &solution"_s),
                    Entry(u"Mnu_Password"_s, u"Changer le &mot de passe"_s),
                    Line(u"Mnu_Ligne7"_s),
                    Entry(u"Mnu_Web"_s, u"Visiter le site de l'auteur"_s),
                    Entry(u"Mnu_About"_s, u"A &propos de Stoikal"_s),
                });
}

void AddNodes(MenuState& state, const std::vector<MenuNode>& nodes)
{
    for (const MenuNode& node : nodes) {
        state.Add(node.name, {true, node.isMarkedAtStart, true, node.caption});
        AddNodes(state, node.children);
    }
}

} // namespace

const std::vector<MenuNode>& MenuTree()
{
    static const std::vector<MenuNode> kTree{FileMenu(), EditMenu(), ViewMenu(), ToolMenu(), HelpMenu()};
    return kTree;
}

void FillMenuState(MenuState& state)
{
    AddNodes(state, MenuTree());
    for (const char* const name : {"Mnu_Close", "Mnu_Copy", "Mnu_Del", "Mnu_Atome", "Mnu_Charge",
                                   "Mnu_MassMol", "Mnu_Grow", "Mnu_Compo", "Mnu_Solution"})
        state.SetEnabled(name, false);
}

void SetFileSessionMenus(MenuState& state, bool open)
{
    for (const char* const name :
         {"Mnu_Open(0)", "Mnu_Open(1)", "Mnu_Create", "Mnu_Modify", "Mnu_Kill", "Mnu_Answer", "Mnu_Clean"})
        state.SetEnabled(name, !open);
    for (const char* const name : {"Mnu_Close", "Mnu_Copy", "Mnu_Del", "Mnu_Atome", "Mnu_Grow", "Mnu_Compo",
                                   "Mnu_Solution", "Mnu_MassMol"})
        state.SetEnabled(name, open);
    state.SetChecked("Mnu_Atome", open);
}

} // namespace stoikal
