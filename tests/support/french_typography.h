#pragma once

#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <array>

namespace stoikal {

/// What breaks the rules of French typesetting in a running text, each fault as
/// its kind and the words around it; empty when all is well. A blank that may
/// break the line is a common one, every other is no-break. An exponent is
/// written with "^" before it.
inline QStringList TypographyFaults(const QString& text)
{
    struct Rule {
        const char* kind;
        const char* pattern;
    };
    static constexpr const char* kUnits = "%|°C|k?g(?:/mol)?|mol|L(?:/mol)?|h?Pa|k?m|m?s|points?|moles?|"
                                          "secondes?|minutes?|(?:kilo|centi|milli)?mètres?|(?:kilo)?grammes?|"
                                          "litres?|euros?|ans|millions";
    static const std::array kRules{
        Rule{"straight apostrophe or quotation mark", "['\"]"},
        Rule{"hyphen for a minus sign", "(?<![\\w)])-\\s?\\d|\\d\\s-\\s|\\^\\d?-"},
        Rule{"no no-break space before a mark", "[ \\t\\n\\w)][;?!»%]|[ \\t\\n]:"},
        Rule{"no no-break space after an opening mark", "«[ \\t\\n\\w]"},
        Rule{"no no-break space before a unit", "\\d[ \\t\\n](?:UNITS)(?!\\w)"},
        Rule{"thousands in one run or behind a common space",
             "\\d{5}|\\d[ \\t\\n]\\d{3}(?!\\d)|(?<![\\d,])\\d{4}\\s(?:UNITS)(?!\\w)|"
             "(?<![\\d,])(?:1000|[3-9]\\d{3}|2[1-9]\\d\\d)(?!\\d)"},
        Rule{"ordinal whose ending is no exponent", "\\b(?:[IVXLC]{2,}|\\d+)(?:e|er|ème)\\b"},
    };
    QStringList faults;
    for (const Rule& rule : kRules) {
        const QString pattern
            = QString::fromUtf8(rule.pattern).replace(QStringLiteral("UNITS"), QString::fromUtf8(kUnits));
        const QRegularExpression fault(pattern, QRegularExpression::UseUnicodePropertiesOption);
        for (auto match = fault.globalMatch(text); match.hasNext();) {
            constexpr qsizetype kAround = 20;
            const qsizetype from = std::max<qsizetype>(0, match.next().capturedStart() - kAround);
            faults << QString::fromUtf8(rule.kind) + QStringLiteral(": ") + text.mid(from, 2 * kAround);
        }
    }
    return faults;
}

} // namespace stoikal
