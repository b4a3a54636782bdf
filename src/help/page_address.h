#pragma once

#include <QString>
#include <optional>

namespace stoikal {

/// Where a link of a help page leads to.
struct PageAddress {
    QString file; ///< another help file beside this one ("Glossaire_Atomes.chm"); empty: this one
    QString path; ///< the page inside, from the root: "/pages/a.html"
    QString anchor; ///< the position on the page, empty for its top

    bool operator==(const PageAddress&) const = default;
};

/// Reads a link as it stands on the page `from` ("/" for the contents). Nothing
/// for what leads out of the help files: a web address, a folder of the disk, a
/// location above the root.
std::optional<PageAddress> ReadPageAddress(const QString& link, const QString& from);

} // namespace stoikal
