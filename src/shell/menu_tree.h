#pragma once

#include <QString>
#include <vector>

namespace stoikal {

class MenuState;

/// One entry of the menu tree, as the house knows it.
struct MenuNode {
    QString name; ///< "Mnu_Taille(1)"
    QString caption; ///< with "&" before the access key; empty for a separator
    bool canBeMarked = false;
    bool isMarkedAtStart = false;
    std::vector<MenuNode> children;

    bool IsSeparator() const { return caption.isEmpty(); }
};

/// The whole menu bar from left to right.
const std::vector<MenuNode>& MenuTree();

/// Enters all entries into the menu state, as they stand at start.
void FillMenuState(MenuState& state);

/// Moves the entries that depend on an open equation file.
void SetFileSessionMenus(MenuState& state, bool open);

} // namespace stoikal
