#include "help/sitemap.h"

#include "help/folded_text.h"
#include "help/html_walker.h"

#include <QStringList>
#include <algorithm>
#include <functional>

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

constexpr int kDeepestLevel = 16;
constexpr int kMaximumEntries = 20000;

/// One entry of a list: its name, and the name and link of each target.
struct Entry {
    struct Target {
        QString title;
        QString link;
    };

    QString name;
    std::vector<Target> targets;
};

/// Walks over the entries of a list; `receive` gets each with its level, from 1.
void WalkEntries(const QString& text, const std::function<void(int, const Entry&)>& receive)
{
    HtmlWalker walker(text);
    int level = 0;
    int left = kMaximumEntries;
    bool isInside = false;
    Entry entry;
    QString title;
    while (walker.Next() && left > 0) {
        if (!walker.IsTag())
            continue;
        const QString& tag = walker.Tag();
        if (tag == "ul"_L1) {
            ++level;
        } else if (tag == "/ul"_L1) {
            level = std::max(0, level - 1);
        } else if (tag == "object"_L1) {
            isInside = walker.Attribute(u"type"_s).compare("text/sitemap"_L1, Qt::CaseInsensitive) == 0;
            entry = {};
            title.clear();
        } else if (tag == "/object"_L1) {
            if (isInside && !entry.name.isEmpty()) {
                receive(std::clamp(level, 1, kDeepestLevel), entry);
                --left;
            }
            isInside = false;
        } else if (tag == "param"_L1 && isInside) {
            const QString name = walker.Attribute(u"name"_s).toLower();
            const QString value = walker.Attribute(u"value"_s).trimmed();
            if (name == "name"_L1) {
                title = value;
                if (entry.name.isEmpty())
                    entry.name = value;
            } else if (name == "local"_L1) {
                entry.targets.push_back({title, value});
            }
        }
    }
}

} // namespace

std::vector<ContentsNode> ReadContents(const QString& text)
{
    ContentsNode root;
    WalkEntries(text, [&root](int level, const Entry& entry) {
        // The entry belongs to the last one of each level above.
        ContentsNode* parent = &root;
        for (int i = 1; i < level && !parent->children.empty(); ++i)
            parent = &parent->children.back();
        parent->children.push_back(
            {entry.name, entry.targets.empty() ? QString() : entry.targets.front().link, {}});
    });
    return root.children;
}

std::vector<IndexEntry> ReadIndex(const QString& text)
{
    std::vector<IndexEntry> index;
    QStringList above;
    WalkEntries(text, [&](int level, const Entry& entry) {
        above = above.mid(0, level - 1);
        above << entry.name;
        const QString keyword = above.join(u", "_s);
        for (const Entry::Target& target : entry.targets)
            index.push_back({keyword, target.title, target.link});
    });
    std::stable_sort(index.begin(), index.end(), [](const IndexEntry& a, const IndexEntry& b) {
        return Folded(a.keyword) < Folded(b.keyword);
    });
    return index;
}

} // namespace stoikal
