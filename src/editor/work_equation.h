#pragma once

#include <QString>
#include <array>
#include <cstddef>

namespace stoikal {

/// The two kinds of equation files: for balancing, and for the study of a
/// reaction's progress, whose lines carry data.
enum class FileType { Equ, Avt };

/// One equation as the editor keeps it: texts as they were typed or read,
/// slots 0 to 2 the reactants, 3 to 5 the products.
struct WorkEquation {
    static constexpr std::size_t kSlots = 6;

    std::array<QString, kSlots> Molecule; ///< with its charge, without its state; empty: slot not in use
    std::array<QString, kSlots> Etat; ///< empty when the state is not shown
    std::array<QString, kSlots> Coeff; ///< decimal text; empty when nothing gave one
    std::array<QString, kSlots> MVQ; ///< a kind letter and a number, on a progress file
    QString Comment; ///< the line shown in front of the equation
    QString ECHEC; ///< "1" not balanced, "0" balanced; empty when nobody tried, which counts as "0"

    bool IsInUse(std::size_t slot) const { return !Molecule.at(slot).isEmpty(); }
    bool HasFailed() const { return ECHEC == QLatin1String("1"); }
    /// Whether each species has a coefficient.
    bool HasCoefficients() const
    {
        for (std::size_t slot = 0; slot < kSlots; ++slot) {
            if (IsInUse(slot) && Coeff.at(slot).isEmpty())
                return false;
        }
        return true;
    }
    /// Whether the engine has something to find: the coefficients are not all there,
    /// or the last try failed.
    bool NeedsBalancing() const { return HasFailed() || !HasCoefficients(); }
    /// Enters the formulas. Others than before make another equation, of which no
    /// coefficient is known.
    void SetFormulas(const std::array<QString, kSlots>& formulas)
    {
        if (formulas == Molecule)
            return;
        Molecule = formulas;
        Coeff.fill(QString());
        ECHEC.clear();
    }
    bool operator==(const WorkEquation&) const = default;
};

} // namespace stoikal
