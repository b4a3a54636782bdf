#pragma once

#include "shell/command.h"

#include <QString>
#include <optional>
#include <vector>

namespace stoikal {

/// One entry of the menu tree. The names of entries stand here and nowhere else.
struct MenuNode {
    std::optional<Command> command; ///< none for a separator
    QString name; ///< "Mnu_Taille(1)"
    QString caption; ///< with "&" before the access key; empty for a separator
    bool canBeMarked = false;
    std::vector<MenuNode> children;

    bool IsSeparator() const { return !command.has_value(); }
};

/// The whole menu bar from left to right.
const std::vector<MenuNode>& MenuTree();

} // namespace stoikal
