#include "base/text_lines.h"
#include "equation_files/equation_file.h"
#include "equation_files/equation_line.h"
#include "exercise/answer_judge.h"
#include "exercise/atom_list.h"
#include "exercise/charge_totals.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <algorithm>
#include <array>
#include <map>
#include <numeric>
#include <span>

using namespace stoikal;
using namespace Qt::StringLiterals;

namespace {

QDir Folder()
{
    return QDir(QStringLiteral(STOIKAL_DATA_DIR "/exercises"));
}

QStringList ShippedFiles()
{
    QStringList paths;
    for (const QString& name : Folder().entryList({u"*.Equ"_s}, QDir::Files, QDir::Name))
        paths << Folder().filePath(name);
    return paths;
}

QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

EquationFile Opened(const QString& path)
{
    const Outcome<EquationFile> file = EquationFile::Open(path);
    EXPECT_TRUE(file.Succeeded()) << path.toStdString();
    return *file;
}

/// Calls a check for each equation of each shipped file, with the place in the trace.
template <typename Check>
void ForEachEquation(Check check)
{
    for (const QString& path : ShippedFiles()) {
        EquationFile file = Opened(path);
        while (file.NextLine()) {
            SCOPED_TRACE(u"%1, ligne %2 : %3"_s.arg(path, QString::number(file.LineNumber()), file.Line())
                             .toStdString());
            check(ParseEquationLine(file.Line()));
        }
    }
}

AtomList CompositionOfSide(const EquationRecord& record, std::size_t first)
{
    std::array<SpeciesInput, 3> side;
    for (std::size_t i = 0; i < side.size(); ++i)
        side[i] = {record.Slots[first + i].Molecule, record.Slots[first + i].Coeff};
    AtomList list;
    ComputeComposition(list, side);
    return list;
}

std::map<QString, int> TotalsBySymbol(const AtomList& list)
{
    std::map<QString, int> totals;
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.Kinds); ++i)
        totals[list.Symbol[i]] = list.TotalCount[i];
    return totals;
}

std::array<int, 6> CoefficientsOf(const EquationRecord& record)
{
    std::array<int, 6> coefficients{};
    for (std::size_t i = 0; i < coefficients.size(); ++i)
        coefficients[i] = record.Slots[i].Coeff;
    return coefficients;
}

} // namespace

TEST(ShippedExercises, AreAtLeastTwelveFiles)
{
    EXPECT_GE(ShippedFiles().size(), 12);
}

TEST(ShippedExercises, HoldAtLeastOneHundredAndFiftyEquations)
{
    int equations = 0;
    ForEachEquation([&equations](const ParsedLine&) { ++equations; });

    EXPECT_GE(equations, 150);
}

TEST(ShippedExercises, BeginWithAComment)
{
    ASSERT_FALSE(ShippedFiles().isEmpty());
    for (const QString& path : ShippedFiles()) {
        const QStringList lines = DecodeLines(BytesOf(path));
        ASSERT_FALSE(lines.isEmpty()) << path.toStdString();
        EXPECT_TRUE(lines.front().startsWith(u'\'')) << path.toStdString();
        EXPECT_GT(lines.front().size(), 1) << path.toStdString();
    }
}

TEST(ShippedExercises, AreBalancingFilesThatTheFirstPassCountsRight)
{
    ASSERT_FALSE(ShippedFiles().isEmpty());
    for (const QString& path : ShippedFiles()) {
        SCOPED_TRACE(path.toStdString());
        EquationFile file = Opened(path);
        int lines = 0;
        while (file.NextLine())
            ++lines;

        EXPECT_FALSE(file.Pass().hasProgressData);
        EXPECT_GT(file.Pass().equationCount, 0);
        EXPECT_EQ(file.Pass().equationCount, lines);
    }
}

TEST(ShippedExercises, AreWorthFivePointsEach)
{
    ForEachEquation([](const ParsedLine& parsed) { EXPECT_EQ(parsed.points, 5); });
}

TEST(ShippedExercises, GiveEachSpeciesACoefficientThatFitsItsBox)
{
    ForEachEquation([](const ParsedLine& parsed) {
        EXPECT_FALSE(parsed.record.Slots[0].Molecule.isEmpty());
        EXPECT_FALSE(parsed.record.Slots[3].Molecule.isEmpty());
        for (const SpeciesSlot& slot : parsed.record.Slots) {
            if (slot.Molecule.isEmpty()) {
                EXPECT_EQ(slot.Coeff, 0);
                continue;
            }
            EXPECT_GE(slot.Coeff, 1) << slot.Molecule.toStdString();
            EXPECT_LE(slot.Coeff, 99) << slot.Molecule.toStdString();
        }
    });
}

TEST(ShippedExercises, UseKnownSymbolsOnly)
{
    ForEachEquation([](const ParsedLine& parsed) {
        EXPECT_EQ(UnknownSymbols(CompositionOfSide(parsed.record, 0)).join(u' '), u""_s);
        EXPECT_EQ(UnknownSymbols(CompositionOfSide(parsed.record, 3)).join(u' '), u""_s);
    });
}

TEST(ShippedExercises, LeaveNoSignInAFormula)
{
    ForEachEquation([](const ParsedLine& parsed) {
        for (const SpeciesSlot& slot : parsed.record.Slots) {
            for (const QChar sign : u"+-,<>{}# "_s)
                EXPECT_FALSE(slot.Molecule.contains(sign)) << slot.Molecule.toStdString();
        }
    });
}

TEST(ShippedExercises, BalanceInAtoms)
{
    ForEachEquation([](const ParsedLine& parsed) {
        const std::map<QString, int> reactants = TotalsBySymbol(CompositionOfSide(parsed.record, 0));
        const std::map<QString, int> products = TotalsBySymbol(CompositionOfSide(parsed.record, 3));

        EXPECT_EQ(reactants, products);
        EXPECT_TRUE(std::all_of(reactants.begin(), reactants.end(),
                                [](const auto& atom) { return atom.second > 0; }));
    });
}

TEST(ShippedExercises, BalanceInCharges)
{
    ForEachEquation([](const ParsedLine& parsed) {
        const ChargeTotals totals = ComputeChargeTotals(parsed.record, CoefficientsOf(parsed.record));

        EXPECT_EQ(totals.reactants, totals.products);
    });
}

TEST(ShippedExercises, AreInLowestTerms)
{
    ForEachEquation([](const ParsedLine& parsed) {
        const std::array<int, 6> coefficients = CoefficientsOf(parsed.record);

        EXPECT_EQ(std::accumulate(coefficients.begin(), coefficients.end(), 0, std::gcd<int, int>), 1);
    });
}

TEST(ShippedExercises, AreJudgedRightWithTheirOwnCoefficients)
{
    ForEachEquation([](const ParsedLine& parsed) {
        AtomList reactants = CompositionOfSide(parsed.record, 0);
        AtomList products = CompositionOfSide(parsed.record, 3);
        AlignAtomLists(reactants, products);
        const std::array<int, 6> coefficients = CoefficientsOf(parsed.record);
        std::array<bool, 6> visible{};
        for (std::size_t i = 0; i < visible.size(); ++i)
            visible[i] = !parsed.record.Slots[i].Molecule.isEmpty();

        const Balance verdict
            = Judge({reactants, products, parsed.chargesPresent,
                     ComputeChargeTotals(parsed.record, coefficients), coefficients, visible});

        EXPECT_EQ(verdict, Balance::Right);
    });
}
