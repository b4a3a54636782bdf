#include "base/number_text.h"

#include "base/fatal_fault.h"

#include <QByteArrayList>
#include <array>
#include <charconv>
#include <cmath>

namespace stoikal {
namespace {

template <typename Float>
QString ShortestFixed(Float value)
{
    if (!std::isfinite(value))
        throw FatalFault(QStringLiteral("un nombre hors limites ne peut pas être affiché."));
    // Coefficients and indices, the most of what is shown, need no digits sought.
    constexpr Float kLargestQuick = 1e6;
    if (value >= 1 && value <= kLargestQuick && value == std::trunc(value))
        return QString::number(static_cast<int>(value));
    std::array<char, 1200> buffer{};
    const auto end
        = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed);
    return QString::fromLatin1(buffer.data(), end.ptr - buffer.data());
}

template <typename Float>
QString Plain(Float value)
{
    const QString text = ShortestFixed(value);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

/// Adds one to the last digit of a row of digits.
QString Increment(QString digits)
{
    for (qsizetype i = digits.size() - 1; i >= 0; --i) {
        if (digits[i] != QLatin1Char('9')) {
            digits[i] = QChar(digits[i].unicode() + 1);
            return digits;
        }
        digits[i] = QLatin1Char('0');
    }
    return QLatin1Char('1') + digits;
}

bool IsDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

} // namespace

QString PlainNumber(double value)
{
    return Plain(value);
}

QString PlainNumber(float value)
{
    return Plain(value);
}

QString FormatMask(double value, QStringView mask, QChar separator)
{
    const qsizetype point = mask.indexOf(QLatin1Char('.'));
    const QStringView wholeMask = point < 0 ? mask : mask.first(point);
    const QStringView decimalMask = point < 0 ? QStringView() : mask.sliced(point + 1);
    const qsizetype leastWhole = wholeMask.count(QLatin1Char('0'));
    const qsizetype leastDecimals = decimalMask.count(QLatin1Char('0'));
    const qsizetype mostDecimals = decimalMask.size();

    const QString exact = ShortestFixed(std::fabs(value));
    const qsizetype dot = exact.indexOf(QLatin1Char('.'));
    QString whole = dot < 0 ? exact : exact.first(dot);
    QString decimals = dot < 0 ? QString() : exact.sliced(dot + 1);
    const bool roundsUp = decimals.size() > mostDecimals && decimals[mostDecimals] >= QLatin1Char('5');
    decimals = decimals.leftJustified(mostDecimals, QLatin1Char('0'), true);
    QString digits = whole + decimals;
    if (roundsUp)
        digits = Increment(digits);
    whole = digits.chopped(mostDecimals);
    decimals = digits.last(mostDecimals);

    while (decimals.size() > leastDecimals && decimals.endsWith(QLatin1Char('0')))
        decimals.chop(1);
    while (whole.startsWith(QLatin1Char('0')) && whole.size() > leastWhole)
        whole.remove(0, 1);
    whole = whole.rightJustified(leastWhole, QLatin1Char('0'));

    const bool isZero = digits.count(QLatin1Char('0')) == digits.size();
    QString text = (value < 0 && !isZero) ? QStringLiteral("-") : QString();
    text += whole;
    if (!decimals.isEmpty())
        text += separator + decimals;
    return text;
}

double ReadNumber(QStringView text)
{
    qsizetype i = 0;
    while (i < text.size() && text[i] == QLatin1Char(' '))
        ++i;
    const bool isNegative = i < text.size() && text[i] == QLatin1Char('-');
    if (i < text.size() && (isNegative || text[i] == QLatin1Char('+')))
        ++i;
    // Whole numbers of few digits, as formulas hold them, are exact as they come.
    constexpr qsizetype kFewDigits = 15;
    double digits = 0;
    qsizetype end = i;
    for (; end < text.size() && IsDigit(text[end]); ++end)
        digits = digits * 10 + (text[end].unicode() - u'0');
    if (end - i <= kFewDigits && (end == text.size() || text[end] != QLatin1Char('.')))
        return isNegative && end > i ? -digits : digits;

    QByteArray number(isNegative ? "-" : "");
    const qsizetype digitsFrom = number.size();
    bool pointSeen = false;
    for (; i < text.size(); ++i) {
        if (IsDigit(text[i]))
            number += text[i].toLatin1();
        else if (text[i] == QLatin1Char('.') && !pointSeen) {
            pointSeen = true;
            number += '.';
        } else
            break;
    }
    double value = 0;
    const auto result = std::from_chars(number.constData(), number.constData() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // Too large for the type is infinite with its sign, too small is nothing.
        const QByteArray whole = number.sliced(digitsFrom).split('.').first();
        if (whole.count('0') == whole.size())
            return 0;
        return number.startsWith('-') ? -HUGE_VAL : HUGE_VAL;
    }
    return value;
}

double ReadFileNumber(QStringView text)
{
    return ReadNumber(QString(text.toString()).replace(QLatin1Char(','), QLatin1Char('.')));
}

} // namespace stoikal
