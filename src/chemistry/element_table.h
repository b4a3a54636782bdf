#pragma once

#include <QChar>
#include <QString>
#include <QStringView>
#include <array>
#include <cstdint>
#include <optional>
#include <variant>

namespace stoikal {

/// All elements of the table.
constexpr int kElementCount = 118;

/// The elements that a formula may use: the first ones of the table, "H" to "Mt".
constexpr int kKnownAtomCount = 109;

/// The colour that stands for no element, and for those that no formula may use.
constexpr std::uint32_t kUnknownElementColour = 1234567;

/// One row of the constant table of elements: its 14 fields in the order of
/// their numbers, 0 to 13. What the table does not have is left without value
/// and reads "-".
struct ElementRecord {
    std::uint32_t colour; ///< 24 bits, blue in the high byte, red in the low one.
    QStringView name; ///< Capitalised.
    QStringView symbol;
    QStringView configuration;
    int atomicNumber;
    double molarMass; ///< g/mol
    std::optional<double> electronegativity;
    std::optional<double> density; ///< g/cm3
    std::optional<double> meltingPoint; ///< °C
    std::optional<double> boilingPoint; ///< °C
    std::optional<double> atomicRadius; ///< nm, Van der Waals
    std::optional<double> ionicRadius; ///< nm
    std::optional<int> isotopeCount;
    std::optional<double> ionisationEnergy; ///< kJ/mol, the first one

    // Beside the fields, for the drawing of atoms.
    QStringView smallName; ///< In small letters; not always the small form of the name.
    double ballRadius; ///< Drawing units.
};

/// The table in the order of the atomic numbers. Constant data: the look-ups
/// below are the way to it.
extern const std::array<ElementRecord, kElementCount> kElementRows;

/// A field of the table: a number, or a text ("-" where the table has no number).
using ElementValue = std::variant<double, QString>;

/// The field (0 to 13) of the element with this index (atomic number - 1). Any
/// other index, or field, answers the colour 1234567 for field 0 and "inconnu"
/// for the rest.
ElementValue ElementField(int index, int field);

/// The same as plain text: numbers in their shortest form, with a point.
QString ElementFieldText(int index, int field);

/// A field (1 to 13) as the window of an element's data shows it, with its unit
/// and the given decimal separator; "- °C" where the table has no number.
QString ElementDataText(int index, int field, QChar separator);

/// The index of the element with exactly this symbol, case counting; -1 when
/// there is none. Cheap enough to be called for each letter of a formula.
int ElementIndex(QStringView symbol);

/// The symbol of an element by its index; "inconnu" outside 0 to 117.
QString ElementSymbol(int index);

/// The molar mass in g/mol of an element by its index; 0 outside 0 to 117.
double ElementMolarMass(int index);

/// What a drawing needs of an atom.
struct ElementBall {
    QString name; ///< In small letters.
    std::uint32_t colour; ///< 24 bits, blue in the high byte, red in the low one.
    double ballRadius; ///< Drawing units.
};

/// The ball of the element with exactly this symbol; for any other symbol the
/// name "(inconnu)", the colour 1234567 and the radius 1.43. Allocates nothing.
ElementBall ElementBySymbol(const QString& symbol);

/// The name of the element with this colour, as the info bubble shows it: a
/// blank on each side for the 109 known atoms, none for the others, of which
/// "darmstadtium" answers for all; " (inconnu) " for a colour of no element.
QString ElementNameByColour(std::uint32_t colour);

} // namespace stoikal
