#include "balancing/molecule_reader.h"
#include "chemistry/formula.h"
#include "exercise/atom_list.h"
#include "fuzz.h"

#include <array>
#include <cmath>

using namespace stoikal;

/// The four readers of a formula, each with rules of its own.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    const QString formula = fuzz::LineOf(data, size);
    const auto ignore = [](const QString&) {};
    fuzz::Tolerating([&] {
        const MolarMassResult mass = MolarMass(formula, ignore);
        fuzz::Require(std::isfinite(mass.gramsPerMole), "a molar mass is a number");
    });
    fuzz::Tolerating([&] { CheckFormulaAtoms(formula, ignore); });
    fuzz::Tolerating([&] {
        const MoleculeAtoms atoms = ParseMolecule(formula);
        const int used = atoms.tally.Used();
        for (int i = 0; i < AtomTally::kPlaces; ++i)
            fuzz::Require(atoms.tally.symbols.at(static_cast<size_t>(i)).isEmpty() == (i >= used),
                          "places in use stand first");
    });
    fuzz::Tolerating([&] {
        const std::array<SpeciesInput, 2> species{{{formula, 2}, {formula, 3}}};
        AtomList reactants;
        AtomList products;
        ComputeComposition(reactants, species);
        ComputeComposition(products, species);
        AlignAtomLists(reactants, products);
        fuzz::Require(reactants.Symbol == products.Symbol && reactants.TotalCount == products.TotalCount,
                      "equal sides are equal aligned");
    });
    return 0;
}
