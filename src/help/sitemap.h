#pragma once

#include <QString>
#include <vector>

namespace stoikal {

/// One line of the contents of a help file; without a link it is only a heading.
struct ContentsNode {
    QString title;
    QString link; ///< as it stands in the file: "pages/a.html#part"
    std::vector<ContentsNode> children;
};

/// One target of a keyword of the index.
struct IndexEntry {
    QString keyword;
    QString title; ///< of the target; the keyword itself when the file names none
    QString link;
};

/// The tree of a contents file (.hhc). Never fails: what cannot be understood is
/// left out. Levels below the 16th stand on the 16th, entries after the
/// 20 000th are dropped.
std::vector<ContentsNode> ReadContents(const QString& text);

/// The keywords of an index file (.hhk) in alphabetical order, whatever their
/// accents; a keyword with several targets stands several times. The sub-keyword
/// of another reads "keyword, sub-keyword".
std::vector<IndexEntry> ReadIndex(const QString& text);

} // namespace stoikal
