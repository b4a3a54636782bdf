#include "editor/number_list.h"

#include <QStringList>

namespace stoikal {

QString NumberList(const std::vector<int>& numbers)
{
    constexpr qsizetype kMostNamed = 5;
    QStringList named;
    for (const int number : numbers) {
        if (named.size() == kMostNamed) {
            named << QStringLiteral("\u2026");
            break;
        }
        named << QString::number(number);
    }
    return named.join(QStringLiteral(", "));
}

} // namespace stoikal
