#include "progress/progress_fixture.h"

#include "base/number_text.h"
#include "base/text_lines.h"
#include "chemistry/element_table.h"
#include "equation_files/equation_file.h"
#include "exercise/atom_list.h"
#include "exercise/charge_totals.h"

#include <QDir>
#include <QFile>
#include <map>
#include <numeric>
#include <optional>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

__extension__ using Wide = __int128;

/// An exact fraction with a positive denominator, in lowest terms.
struct Fraction {
    Wide above = 0;
    Wide below = 1;

    Fraction() = default;
    Fraction(Wide numerator, Wide denominator)
        : above(numerator)
        , below(denominator)
    {
        Wide a = above < 0 ? -above : above;
        Wide b = below;
        while (b != 0) {
            const Wide rest = a % b;
            a = b;
            b = rest;
        }
        above /= a;
        below /= a;
    }

    double Value() const { return static_cast<double>(above) / static_cast<double>(below); }
};

Fraction operator*(const Fraction& a, const Fraction& b)
{
    // Shortened crosswise first, so that the products stay small.
    const Fraction left(a.above, b.below);
    const Fraction right(b.above, a.below);
    return {left.above * right.above, left.below * right.below};
}

Fraction operator/(const Fraction& a, const Fraction& b)
{
    return a * Fraction(b.below, b.above);
}

Fraction operator-(const Fraction& a, const Fraction& b)
{
    return {a.above * b.below - b.above * a.below, a.below * b.below};
}

Fraction operator+(const Fraction& a, const Fraction& b)
{
    return {a.above * b.below + b.above * a.below, a.below * b.below};
}

bool operator<(const Fraction& a, const Fraction& b)
{
    return a.above * b.below < b.above * a.below;
}

/// "12.0107" as 120107 / 10000.
Fraction FromDecimal(const QString& text)
{
    const qsizetype point = text.indexOf(u'.');
    Wide below = 1;
    for (qsizetype i = point + 1; point >= 0 && i < text.size(); ++i)
        below *= 10;
    return {QString(text).remove(u'.').toLongLong(), below};
}

/// The molar mass by a reading of its own: symbols, indices, one level of
/// parentheses, which is all that the shipped files use.
Fraction ExactMolarMass(const QString& formula)
{
    Fraction sum;
    Fraction group;
    bool isInGroup = false;
    qsizetype i = 0;
    const auto index = [&formula, &i] {
        QString digits;
        while (i < formula.size() && formula[i].isDigit())
            digits += formula[i++];
        return Fraction(digits.isEmpty() ? 1 : digits.toInt(), 1);
    };
    while (i < formula.size()) {
        if (formula[i] == u'(') {
            isInGroup = true;
            group = {};
            ++i;
        } else if (formula[i] == u')') {
            isInGroup = false;
            ++i;
            sum = sum + group * index();
        } else {
            QString symbol(formula[i++]);
            while (i < formula.size() && formula[i].isLower())
                symbol += formula[i++];
            const Fraction mass = FromDecimal(PlainNumber(ElementMolarMass(ElementIndex(symbol))));
            (isInGroup ? group : sum) = (isInGroup ? group : sum) + mass * index();
        }
    }
    return sum;
}

/// The amount that a datum says, in mol; nothing for a datum of 0.
std::optional<Fraction> ExactAmount(const SpeciesSlot& species)
{
    const Fraction number = FromDecimal(species.MVQ.mid(1));
    if (species.Molecule.isEmpty() || number.above == 0)
        return std::nullopt;
    if (species.MVQ.startsWith(u'M'))
        return number / ExactMolarMass(species.Molecule);
    if (species.MVQ.startsWith(u'V'))
        return number / Fraction(224, 10);
    return number;
}

/// The greatest advancement: from a given product the amount for one of its
/// coefficient, else the least of those of the given reactants.
Fraction ExactXmax(const EquationRecord& record)
{
    std::optional<Fraction> least;
    for (std::size_t slot = 0; slot < 6; ++slot) {
        const auto amount = ExactAmount(record.Slots[slot]);
        if (!amount)
            continue;
        const Fraction advancement = *amount / Fraction(record.Slots[slot].Coeff, 1);
        if (!least || slot >= 3 || advancement < *least)
            least = advancement;
    }
    return least.value_or(Fraction());
}

QDir Folder()
{
    return QDir(QStringLiteral(STOIKAL_DATA_DIR "/exercises"));
}

QStringList ProgressFiles()
{
    return Folder().entryList({u"*.Avt"_s}, QDir::Files, QDir::Name);
}

/// Calls a check for each equation of each shipped progress file, with its place.
template <typename Check>
void ForEachReaction(Check check)
{
    for (const QString& name : ProgressFiles()) {
        Outcome<EquationFile> opened = EquationFile::Open(Folder().filePath(name));
        ASSERT_TRUE(opened) << name.toStdString();
        EquationFile file = *opened;
        while (file.NextLine()) {
            SCOPED_TRACE(u"%1, ligne %2 : %3"_s.arg(name, QString::number(file.LineNumber()), file.Line())
                             .toStdString());
            check(ParseEquationLine(file.Line()));
        }
    }
}

AtomList Side(const EquationRecord& record, std::size_t first)
{
    std::array<SpeciesInput, 3> species;
    for (std::size_t i = 0; i < 3; ++i)
        species[i] = {record.Slots[first + i].Molecule, record.Slots[first + i].Coeff};
    AtomList list;
    ComputeComposition(list, species);
    return list;
}

std::map<QString, int> Totals(const AtomList& list)
{
    std::map<QString, int> totals;
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.Kinds); ++i)
        totals[list.Symbol[i]] = list.TotalCount[i];
    return totals;
}

ProgressTable Compute(const EquationRecord& record)
{
    return ComputeProgress(record, MassesOf(record), FillProgressTable(record), kDefaultMolarVolume);
}

} // namespace

TEST(ShippedProgressFiles, AreAtLeastSixWithFiftyReactions)
{
    int reactions = 0;
    ForEachReaction([&reactions](const ParsedLine&) { ++reactions; });

    EXPECT_GE(ProgressFiles().size(), 6);
    EXPECT_GE(reactions, 50);
}

TEST(ShippedProgressFiles, BeginWithACommentAndEndTheirLinesByCrLf)
{
    for (const QString& name : ProgressFiles()) {
        QFile file(Folder().filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        const QByteArray bytes = file.readAll();
        EXPECT_TRUE(DecodeLines(bytes).front().startsWith(u"' Thème"_s)) << name.toStdString();
        EXPECT_EQ(bytes.count('\n'), bytes.count("\r\n")) << name.toStdString();
    }
}

TEST(ShippedProgressFiles, HaveDataInEveryReactionAndNoneInAComment)
{
    ForEachReaction([](const ParsedLine& parsed) { EXPECT_EQ(parsed.points, 10); });
    for (const QString& name : ProgressFiles()) {
        QFile file(Folder().filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        for (const QString& line : DecodeLines(file.readAll())) {
            EXPECT_FALSE(line.startsWith(u'\'') && line.contains(u'#')) << line.toStdString();
        }
    }
}

TEST(ShippedProgressFiles, BalanceInAtoms)
{
    ForEachReaction([](const ParsedLine& parsed) {
        EXPECT_TRUE(UnknownSymbols(Side(parsed.record, 0)).isEmpty());
        EXPECT_TRUE(UnknownSymbols(Side(parsed.record, 3)).isEmpty());
        EXPECT_EQ(Totals(Side(parsed.record, 0)), Totals(Side(parsed.record, 3)));
    });
}

TEST(ShippedProgressFiles, BalanceInCharges)
{
    ForEachReaction([](const ParsedLine& parsed) {
        std::array<int, 6> coefficients{};
        for (std::size_t slot = 0; slot < 6; ++slot)
            coefficients[slot] = parsed.record.Slots[slot].Coeff;
        const ChargeTotals totals = ComputeChargeTotals(parsed.record, coefficients);

        EXPECT_EQ(totals.reactants, totals.products);
        EXPECT_EQ(std::accumulate(coefficients.begin(), coefficients.end(), 0, std::gcd<int, int>), 1);
    });
}

TEST(ShippedProgressFiles, GiveEachSpeciesAState)
{
    const QStringList states{u"s"_s, u"l"_s, u"g"_s, u"aq"_s};
    ForEachReaction([&states](const ParsedLine& parsed) {
        for (const SpeciesSlot& species : parsed.record.Slots) {
            EXPECT_TRUE(species.Molecule.isEmpty() || states.contains(species.Etat))
                << species.Molecule.toStdString();
        }
    });
}

TEST(ShippedProgressFiles, GiveVolumesOfGasesOnly)
{
    ForEachReaction([](const ParsedLine& parsed) {
        for (const SpeciesSlot& species : parsed.record.Slots) {
            EXPECT_TRUE(!species.MVQ.startsWith(u'V') || IsGas(species)) << species.Molecule.toStdString();
        }
    });
}

TEST(ShippedProgressFiles, HaveTheMolarMassesOfAnExactSum)
{
    ForEachReaction([](const ParsedLine& parsed) {
        const MolarMasses masses = MassesOf(parsed.record);
        for (std::size_t slot = 0; slot < 6; ++slot) {
            const double exact = ExactMolarMass(parsed.record.Slots[slot].Molecule).Value();
            EXPECT_NEAR(masses[slot], exact, 1e-10 * (1 + exact));
        }
    });
}

TEST(ShippedProgressFiles, ReachTheAdvancementOfAnExactComputation)
{
    ForEachReaction([](const ParsedLine& parsed) {
        const double exact = ExactXmax(parsed.record).Value();
        ASSERT_GT(exact, 0);
        EXPECT_NEAR(Compute(parsed.record).Xmax, exact, 1e-12 * exact);
    });
}

TEST(ShippedProgressFiles, EndWithTheAmountsOfAnExactComputation)
{
    ForEachReaction([](const ParsedLine& parsed) {
        const ProgressTable table = Compute(parsed.record);
        const Fraction xmax = ExactXmax(parsed.record);
        for (std::size_t slot = 0; slot < 6; ++slot) {
            const SpeciesSlot& species = parsed.record.Slots[slot];
            const Fraction turnedOver = xmax * Fraction(species.Coeff, 1);
            const Fraction initial = slot < 3 ? ExactAmount(species).value_or(turnedOver) : Fraction();
            const Fraction left = slot < 3 ? initial - turnedOver : turnedOver;
            EXPECT_NEAR(table.InitialAmount[slot], initial.Value(), 1e-11) << slot;
            EXPECT_NEAR(table.FinalAmount[slot], left.Value(), 1e-11) << slot;
        }
    });
}

TEST(ShippedProgressFiles, LimitByTheFirstReactantByTheSecondAndByNone)
{
    int first = 0;
    int second = 0;
    int both = 0;
    int fromProduct = 0;
    ForEachReaction([&](const ParsedLine& parsed) {
        const ProgressTable table = Compute(parsed.record);
        const auto slots = parsed.record.Slots;
        fromProduct += std::any_of(slots.begin() + 3, slots.end(),
                                   [](const SpeciesSlot& slot) { return ExactAmount(slot).has_value(); })
            ? 1
            : 0;
        const auto isGiven = [&slots](std::size_t slot) { return ExactAmount(slots[slot]).has_value(); };
        if (!isGiven(0) || !isGiven(1))
            return;
        const bool firstIsUsedUp = table.FinalAmount[0] == 0;
        const bool secondIsUsedUp = table.FinalAmount[1] == 0;
        first += firstIsUsedUp && !secondIsUsedUp ? 1 : 0;
        second += secondIsUsedUp && !firstIsUsedUp ? 1 : 0;
        both += firstIsUsedUp && secondIsUsedUp ? 1 : 0;
    });

    EXPECT_GE(first, 10);
    EXPECT_GE(second, 10);
    EXPECT_GE(both, 4);
    EXPECT_GE(fromProduct, 8);
}

} // namespace stoikal
