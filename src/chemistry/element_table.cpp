#include "chemistry/element_table.h"

#include "base/number_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace stoikal {
namespace {

constexpr double kUnknownBallRadius = 1.43;

bool IsElement(int index)
{
    return index >= 0 && index < kElementCount;
}

const ElementRecord& RowAt(int index)
{
    return kElementRows[static_cast<std::size_t>(index)];
}

/// A text of the table without a copy of its letters: they live for ever.
QString Constant(QStringView text)
{
    return QString::fromRawData(text.data(), text.size());
}

template <typename Number>
ElementValue NumberOrDash(std::optional<Number> number)
{
    return number ? ElementValue(static_cast<double>(*number)) : ElementValue(u"-"_s);
}

/// Places for all texts of a capital and at most two small letters, each with
/// the number of its element, counted from 1, or 0.
using SymbolPlaces = std::array<std::uint8_t, std::size_t{27} * 27 * 27>;

/// The place of a text that can be a symbol of the table; 0 for all others.
std::size_t SymbolPlace(QStringView symbol)
{
    constexpr qsizetype kLongest = 3;
    if (symbol.isEmpty() || symbol.size() > kLongest)
        return 0;
    std::size_t place = 0;
    for (qsizetype i = 0; i < kLongest; ++i) {
        std::size_t letter = 0;
        if (i < symbol.size()) {
            const char16_t first = i == 0 ? u'A' : u'a';
            const char16_t c = symbol[i].unicode();
            if (c < first || c >= first + 26)
                return 0;
            letter = static_cast<std::size_t>(c - first) + 1;
        }
        place = place * 27 + letter;
    }
    return place;
}

SymbolPlaces MakeSymbolPlaces()
{
    SymbolPlaces places{};
    for (const ElementRecord& row : kElementRows)
        places[SymbolPlace(row.symbol)] = static_cast<std::uint8_t>(row.atomicNumber);
    return places;
}

QString FieldText(const ElementValue& value)
{
    const double* number = std::get_if<double>(&value);
    return number ? PlainNumber(*number) : std::get<QString>(value);
}

/// A number in the mask; a text as it stands.
QString Masked(const ElementValue& value, QStringView mask, QChar separator)
{
    const double* number = std::get_if<double>(&value);
    return number ? FormatMask(*number, mask, separator) : std::get<QString>(value);
}

/// The density, in thousandths where two decimals do not show it: hydrogen's
/// 8.99e-05 reads "0.09.001", that is 0.09 times 0.001.
QString DensityText(const ElementValue& value, QChar separator)
{
    constexpr QStringView kMask = u"#0.00";
    const double* number = std::get_if<double>(&value);
    if (!number)
        return std::get<QString>(value);
    if (ReadNumber(FormatMask(*number, kMask, u'.')) < 0.01)
        return FormatMask(*number * 1000, kMask, separator) + u".001"_s;
    return FormatMask(*number, kMask, separator);
}

/// The names of the look-up by colour are a list of their own: it differs from
/// the list of small names at these atomic numbers.
QStringView ColourName(const ElementRecord& row)
{
    switch (row.atomicNumber) {
    case 71:
        return u"lutécium";
    case 97:
        return u"berkelium";
    case 101:
        return u"mendelevium";
    case 102:
        return u"nobelium";
    default:
        return row.smallName;
    }
}

} // namespace

ElementValue ElementField(int index, int field)
{
    if (!IsElement(index))
        return field == 0 ? ElementValue(double{kUnknownElementColour}) : ElementValue(u"inconnu"_s);
    const ElementRecord& row = RowAt(index);
    switch (field) {
    case 0:
        return static_cast<double>(row.colour);
    case 1:
        return Constant(row.name);
    case 2:
        return Constant(row.symbol);
    case 3:
        return Constant(row.configuration);
    case 4:
        return static_cast<double>(row.atomicNumber);
    case 5:
        return row.molarMass;
    case 6:
        return NumberOrDash(row.electronegativity);
    case 7:
        return NumberOrDash(row.density);
    case 8:
        return NumberOrDash(row.meltingPoint);
    case 9:
        return NumberOrDash(row.boilingPoint);
    case 10:
        return NumberOrDash(row.atomicRadius);
    case 11:
        return NumberOrDash(row.ionicRadius);
    case 12:
        return NumberOrDash(row.isotopeCount);
    case 13:
        return NumberOrDash(row.ionisationEnergy);
    default:
        return u"inconnu"_s;
    }
}

QString ElementFieldText(int index, int field)
{
    return FieldText(ElementField(index, field));
}

QString ElementDataText(int index, int field, QChar separator)
{
    const ElementValue value = ElementField(index, field);
    switch (field) {
    case 5:
        return FieldText(value).replace(u'.', separator) + u" g/mol"_s;
    case 6:
        return FieldText(value).replace(u'.', separator);
    case 7:
        return DensityText(value, separator) + u" g/cm3"_s;
    case 8:
    case 9:
        return Masked(value, u"####.0", separator) + u" °C"_s;
    case 10:
    case 11:
        return Masked(value, u"0.000", separator) + u" nm"_s;
    case 13:
        return Masked(value, u"###0.0", separator) + u" kJ/mol"_s;
    default:
        return FieldText(value);
    }
}

int ElementIndex(QStringView symbol)
{
    static const SymbolPlaces places = MakeSymbolPlaces();
    return places[SymbolPlace(symbol)] - 1;
}

QString ElementSymbol(int index)
{
    return IsElement(index) ? Constant(RowAt(index).symbol) : u"inconnu"_s;
}

double ElementMolarMass(int index)
{
    return IsElement(index) ? RowAt(index).molarMass : 0;
}

ElementBall ElementBySymbol(const QString& symbol)
{
    const int index = ElementIndex(symbol);
    if (index < 0)
        return {u"(inconnu)"_s, kUnknownElementColour, kUnknownBallRadius};
    const ElementRecord& row = RowAt(index);
    return {Constant(row.smallName), row.colour, row.ballRadius};
}

QString ElementNameByColour(std::uint32_t colour)
{
    const auto row = std::ranges::find(kElementRows, colour, &ElementRecord::colour);
    if (row == kElementRows.end())
        return u" (inconnu) "_s;
    if (row->atomicNumber > kKnownAtomCount)
        return Constant(row->smallName);
    return u" %1 "_s.arg(ColourName(*row));
}

} // namespace stoikal
