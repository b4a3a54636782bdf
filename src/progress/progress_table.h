#pragma once

#include "equation_files/equation_record.h"

#include <QChar>
#include <QString>
#include <array>
#include <cstdint>

namespace stoikal {

/// The numbers of a reaction's progress, slot by slot: 0 to 2 are the reactants,
/// 3 to 5 the products. Amounts in mol, masses in g, volumes in L, molar masses
/// in g/mol. A slot not in use has an empty `Molecule` and only zeros. The table
/// is rebuilt whole for each equation and computes nothing itself.
struct ProgressTable {
    using Numbers = std::array<double, 6>;

    std::array<QString, 6> Molecule; ///< the formula, without state and charge
    std::array<std::int16_t, 6> Coeff{};
    std::array<std::int16_t, 6> Charge{}; ///< with its sign, 0 when the species has none
    Numbers MolarMass{}; ///< 0 for a formula with an unknown atom

    double MolarVolume = 0; ///< of any gas, in L/mol
    Numbers InitialAmount{}; ///< 0 for products
    Numbers FinalAmount{};
    Numbers Mass{}; ///< initial for reactants, final for products
    Numbers Volume{}; ///< as a gas; the same states
    double Xmax = 0; ///< the maximal advancement, in mol; 0 only without any datum
    std::int32_t XmaxScale = 1000; ///< slider steps a mol, a power of ten from 1000 on

    Numbers TypedInitial{}; ///< what the pupil typed; 0 for an empty box
    Numbers TypedFinal{};
    Numbers TypedMass{};
    Numbers TypedVolume{};

    bool IsUsed(int slot) const { return !Molecule[static_cast<std::size_t>(slot)].isEmpty(); }
};

/// What stands in the boxes of the table, row by row and slot by slot.
struct ProgressTexts {
    using Row = std::array<QString, 6>;

    Row txtMasse;
    Row txtVolGaz;
    Row txtQmat0;
    Row txtQmati;
    Row txtQmatf;
};

using MolarMasses = std::array<double, 6>;

/// 22.4 L/mol, in force while the settings give none.
constexpr double kDefaultMolarVolume = 22.4;

/// The molar volume that a setting's text gives in L/mol; 0 or no number reads
/// as the default.
double MolarVolumeOf(const QString& setting);

/// A number as a person typed it, with a comma or a point; 0 for an empty text.
double TypedNumber(QString text);

/// Whether the volume of a slot is asked for and shown: a species in state "g".
bool IsGas(const SpeciesSlot& slot);

/// What the intermediate state of a slot reads: "2*xmax" for a product,
/// "0.5-2*xmax" for a reactant whose initial amount stands in its box, and
/// "ni(0)-2*xmax", with the slot's index, where that is empty or reads as 0.
QString IntermediateText(int slot, int coefficient, const QString& initialText);

/// The boxes as a line's data fill them: each datum in its row, the
/// intermediate state in words, "0" for the initial amounts of products. A datum
/// whose number is 0 is none and leaves its box empty; an amount shows a point.
ProgressTexts FillProgressTable(const EquationRecord& record);

/// Reads the data in the boxes and computes the table.
///
/// Of several data of a slot the lower row wins; slot k, the last with a datum,
/// is the reference. With a reactant k the reactants without a datum are taken
/// in proportion to it, and the smallest amount per coefficient limits the
/// reaction. With a product k the reaction is read backwards from the final
/// state: all reactants end at 0. `XmaxScale` follows from slot 0 alone. Without
/// any datum all is 0. An amount under 1E-8 mol is 0.
///
/// A FatalFault, without a place: a coefficient 0 or a molar mass 0 to divide by,
/// a negative coefficient or datum, an amount outside the numbers, an `Xmax` too small for `XmaxScale` (32
/// bits).
ProgressTable ComputeProgress(const EquationRecord& record, const MolarMasses& masses,
                              const ProgressTexts& texts, double molarVolume);

/// The boxes with all of the table in them, each number in the precision of
/// `FormatTableValues`. The volume of what is no gas stays as it stands in `texts`.
ProgressTexts ShowComputedTable(const EquationRecord& record, const ProgressTable& table, QChar separator,
                                ProgressTexts texts);

/// An amount: "0", then three decimals up to 0.01, two up to 1, one up to 50,
/// none above.
QString AmountText(double amount, QChar separator);

/// A mass or a volume: nothing for 0, then two decimals up to 1, one up to 100,
/// none above.
QString QuantityText(double quantity, QChar separator);

/// Puts the amounts, masses and gas volumes of a table into the boxes, each in a
/// precision that fits its size. The intermediate state follows its reactant.
void FormatTableValues(const EquationRecord& record, const ProgressTable& table, QChar separator,
                       ProgressTexts& texts);

} // namespace stoikal
