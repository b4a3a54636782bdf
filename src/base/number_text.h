#pragma once

#include <QChar>
#include <QString>
#include <QStringView>

namespace stoikal {

/// The value in a mask of "0" (a digit always), "#" (a digit if there is one)
/// and one point: "0.0", "#0.#", "####.0", "00.00". Rounded half away from zero
/// on the shortest decimal text of the number: 44.15 in "0.0" is 44.2. A mask
/// that leaves no decimal leaves no sign either: 19.96 in "#0.#" is "20".
/// The separator takes the place of the point. No thousands separator.
QString FormatMask(double value, QStringView mask, QChar separator);

/// The shortest text that reads back as the same number: a point, no exponent,
/// no trailing ".0" (1.0 is "1").
QString PlainNumber(double value);

/// The same for a 32-bit float: the shortest text that reads back as that float.
QString PlainNumber(float value);

/// The number at the start of a text: blanks skipped, a sign, digits, a point,
/// digits. Reading stops at the first character that cannot belong to it;
/// 0 when there is none. Never depends on the locale.
double ReadNumber(QStringView text);

/// The same for a number kept in a file, where a comma counts as a point.
double ReadFileNumber(QStringView text);

} // namespace stoikal
