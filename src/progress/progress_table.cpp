#include "progress/progress_table.h"

#include "base/fatal_fault.h"
#include "base/number_text.h"
#include "base/quote.h"
#include "chemistry/formula.h"

#include <algorithm>
#include <cmath>

namespace stoikal {
namespace {

constexpr std::size_t kFirstProduct = 3;
constexpr double kLeastAmount = 1E-8; ///< mol; what is below is the rest of a subtraction
constexpr int kLeastScaleDigits = 3;
constexpr int kMostScaleDigits = 9; ///< a power of ten above does not fit 32 bits

bool IsReactant(std::size_t slot)
{
    return slot < kFirstProduct;
}

bool IsUsed(const EquationRecord& record, std::size_t slot)
{
    return !record.Slots[slot].Molecule.isEmpty();
}

/// The power of ten that turns an advancement into whole steps: two digits more
/// than it takes to reach 1, a thousand at least.
std::int32_t ScaleOf(double xmax)
{
    int digits = 0;
    std::int32_t scale = 1;
    while (std::trunc(scale * xmax) == 0) {
        if (digits + 1 == kMostScaleDigits)
            throw FatalFault(QStringLiteral("l'avancement maximal est nul ou trop petit."));
        ++digits;
        scale *= 10;
    }
    for (const int wanted = std::max(digits + 1, kLeastScaleDigits); digits < wanted; ++digits)
        scale *= 10;
    return scale;
}

/// One computation over the slots of an equation; its steps in their order.
class Computation
{
public:
    Computation(const EquationRecord& record, const MolarMasses& masses, double molarVolume)
        : m_record(record)
    {
        m_table.MolarVolume = molarVolume;
        for (std::size_t slot = 0; slot < 6; ++slot) {
            if (!IsUsed(record, slot))
                continue;
            const SpeciesSlot& species = record.Slots[slot];
            m_table.Molecule[slot] = species.Molecule;
            m_table.Coeff[slot] = species.Coeff;
            m_table.Charge[slot] = species.Charge;
            m_table.MolarMass[slot] = masses[slot];
        }
    }

    ProgressTable Run(const ProgressTexts& texts)
    {
        const int reference = ReadData(texts);
        if (reference < 0)
            return m_table;
        CheckCoefficients();
        if (reference < static_cast<int>(kFirstProduct))
            GoForward(static_cast<std::size_t>(reference));
        else
            GoBackward(static_cast<std::size_t>(reference));
        FillMassesAndVolumes();
        CheckFinite();
        ClearRests();
        return m_table;
    }

private:
    /// \returns the last slot with a datum, -1 without any.
    int ReadData(const ProgressTexts& texts)
    {
        int reference = -1;
        for (std::size_t slot = 0; slot < 6; ++slot) {
            if (!IsUsed(m_record, slot))
                continue;
            double& amount = IsReactant(slot) ? m_table.InitialAmount[slot] : m_table.FinalAmount[slot];
            const QString& amountText = IsReactant(slot) ? texts.txtQmat0[slot] : texts.txtQmatf[slot];
            const double mass = TypedNumber(texts.txtMasse[slot]);
            const double volume = TypedNumber(texts.txtVolGaz[slot]);
            const double typedAmount = TypedNumber(amountText);
            if (mass < 0 || volume < 0 || typedAmount < 0)
                throw FatalFault(QStringLiteral("la donnée d'avancement de %1 est négative.")
                                     .arg(Quoted(m_table.Molecule[slot])));
            if (mass != 0)
                amount = mass / CheckedMolarMass(slot);
            if (volume != 0)
                amount = volume / m_table.MolarVolume;
            if (typedAmount != 0)
                amount = typedAmount;
            if (mass != 0 || volume != 0 || typedAmount != 0)
                reference = static_cast<int>(slot);
        }
        return reference;
    }

    double CheckedMolarMass(std::size_t slot) const
    {
        if (m_table.MolarMass[slot] == 0) {
            throw FatalFault(
                QStringLiteral("la masse molaire de %1 est nulle.").arg(Quoted(m_table.Molecule[slot])));
        }
        return m_table.MolarMass[slot];
    }

    void CheckCoefficients() const
    {
        if (!IsUsed(m_record, 0))
            throw FatalFault(QStringLiteral("l'équation n'a pas de premier réactif."));
        for (std::size_t slot = 0; slot < 6; ++slot) {
            if (!IsUsed(m_record, slot))
                continue;
            if (m_table.Coeff[slot] == 0)
                throw FatalFault(
                    QStringLiteral("le coefficient de %1 est nul.").arg(Quoted(m_table.Molecule[slot])));
            if (m_table.Coeff[slot] < 0)
                throw FatalFault(
                    QStringLiteral("le coefficient de %1 est négatif.").arg(Quoted(m_table.Molecule[slot])));
        }
    }

    /// The proportion to the reference: its amount for one of each coefficient.
    double Share(std::size_t slot, double referenceAmount, std::size_t reference) const
    {
        return m_table.Coeff[slot] * referenceAmount / m_table.Coeff[reference];
    }

    void FillInitialAmounts(double referenceAmount, std::size_t reference)
    {
        for (std::size_t slot = 0; slot < kFirstProduct; ++slot) {
            if (IsUsed(m_record, slot) && m_table.InitialAmount[slot] == 0)
                m_table.InitialAmount[slot] = Share(slot, referenceAmount, reference);
        }
    }

    void StartFromFirstReactant()
    {
        m_table.Xmax = m_table.InitialAmount[0] / m_table.Coeff[0];
        m_table.XmaxScale = ScaleOf(m_table.Xmax);
    }

    void GoForward(std::size_t reference)
    {
        FillInitialAmounts(m_table.InitialAmount[reference], reference);
        StartFromFirstReactant();
        for (std::size_t slot = 1; slot < kFirstProduct; ++slot) {
            if (IsUsed(m_record, slot))
                m_table.Xmax = std::min(m_table.Xmax, m_table.InitialAmount[slot] / m_table.Coeff[slot]);
        }
        for (std::size_t slot = 0; slot < 6; ++slot) {
            const double turnedOver = m_table.Coeff[slot] * m_table.Xmax;
            m_table.FinalAmount[slot]
                = IsReactant(slot) ? m_table.InitialAmount[slot] - turnedOver : turnedOver;
        }
    }

    void GoBackward(std::size_t reference)
    {
        const double known = m_table.FinalAmount[reference];
        for (std::size_t slot = kFirstProduct; slot < 6; ++slot) {
            if (IsUsed(m_record, slot) && m_table.FinalAmount[slot] == 0)
                m_table.FinalAmount[slot] = Share(slot, known, reference);
        }
        FillInitialAmounts(known, reference);
        StartFromFirstReactant();
        for (std::size_t slot = 1; slot < kFirstProduct; ++slot) {
            // The amount itself is compared here, not the amount per coefficient.
            if (IsUsed(m_record, slot) && m_table.InitialAmount[slot] < m_table.Xmax)
                m_table.Xmax = m_table.InitialAmount[slot] / m_table.Coeff[slot];
        }
    }

    void FillMassesAndVolumes()
    {
        for (std::size_t slot = 0; slot < 6; ++slot) {
            const double amount = IsReactant(slot) ? m_table.InitialAmount[slot] : m_table.FinalAmount[slot];
            m_table.Mass[slot] = m_table.MolarMass[slot] * amount;
            m_table.Volume[slot] = amount * m_table.MolarVolume;
        }
    }

    void CheckFinite() const
    {
        const auto areFinite = [](const ProgressTable::Numbers& numbers) {
            return std::all_of(numbers.begin(), numbers.end(), [](double x) { return std::isfinite(x); });
        };
        if (!areFinite(m_table.InitialAmount) || !areFinite(m_table.FinalAmount) || !areFinite(m_table.Mass)
            || !areFinite(m_table.Volume))
            throw FatalFault(QStringLiteral("une donnée d'avancement est hors limites."));
    }

    void ClearRests()
    {
        for (std::size_t slot = 0; slot < 6; ++slot) {
            if (m_table.InitialAmount[slot] < kLeastAmount)
                m_table.InitialAmount[slot] = 0;
            if (m_table.FinalAmount[slot] < kLeastAmount)
                m_table.FinalAmount[slot] = 0;
        }
    }

    const EquationRecord& m_record;
    ProgressTable m_table;
};

/// A number in the first mask whose limit it does not pass.
QString Masked(double value, QChar separator, double twoDecimalsUpTo, double oneDecimalUpTo)
{
    if (value <= twoDecimalsUpTo)
        return FormatMask(value, u"0.00", separator);
    return FormatMask(value, value <= oneDecimalUpTo ? u"0.0" : u"0", separator);
}

} // namespace

double MolarVolumeOf(const QString& setting)
{
    const double volume = ReadFileNumber(setting);
    return volume == 0 ? kDefaultMolarVolume : volume;
}

double TypedNumber(QString text)
{
    NormaliseDecimalComma(text);
    return ReadNumber(text);
}

bool IsGas(const SpeciesSlot& slot)
{
    return slot.Etat == QLatin1String("g") && !slot.Molecule.isEmpty();
}

QString IntermediateText(int slot, int coefficient, const QString& initialText)
{
    QString turnedOver = QStringLiteral("%1*xmax").arg(coefficient);
    if (slot >= static_cast<int>(kFirstProduct))
        return turnedOver;
    if (TypedNumber(initialText) == 0)
        return QStringLiteral("ni(%1)-%2").arg(QString::number(slot), turnedOver);
    return QStringLiteral("%1-%2").arg(initialText, turnedOver);
}

ProgressTexts FillProgressTable(const EquationRecord& record)
{
    ProgressTexts texts;
    for (std::size_t slot = 0; slot < 6; ++slot) {
        const SpeciesSlot& species = record.Slots[slot];
        if (species.Molecule.isEmpty())
            continue;
        QString value = species.MVQ.mid(1);
        if (TypedNumber(value) != 0) {
            if (species.MVQ.startsWith(QLatin1Char('M')))
                texts.txtMasse[slot] = value;
            else if (species.MVQ.startsWith(QLatin1Char('V')))
                texts.txtVolGaz[slot] = value;
            else if (species.MVQ.startsWith(QLatin1Char('Q'))) {
                NormaliseDecimalComma(value);
                (IsReactant(slot) ? texts.txtQmat0 : texts.txtQmatf)[slot] = value;
            }
        }
        texts.txtQmati[slot] = IntermediateText(static_cast<int>(slot), species.Coeff, texts.txtQmat0[slot]);
        if (!IsReactant(slot))
            texts.txtQmat0[slot] = QStringLiteral("0");
    }
    return texts;
}

ProgressTable ComputeProgress(const EquationRecord& record, const MolarMasses& masses,
                              const ProgressTexts& texts, double molarVolume)
{
    return Computation(record, masses, molarVolume).Run(texts);
}

QString AmountText(double amount, QChar separator)
{
    if (amount == 0)
        return QStringLiteral("0");
    if (amount <= 0.01)
        return FormatMask(amount, u"0.000", separator);
    return Masked(amount, separator, 1, 50);
}

QString QuantityText(double quantity, QChar separator)
{
    return quantity == 0 ? QString() : Masked(quantity, separator, 1, 100);
}

void FormatTableValues(const EquationRecord& record, const ProgressTable& table, QChar separator,
                       ProgressTexts& texts)
{
    for (std::size_t slot = 0; slot < 6; ++slot) {
        const SpeciesSlot& species = record.Slots[slot];
        if (species.Molecule.isEmpty())
            continue;
        texts.txtMasse[slot] = QuantityText(table.Mass[slot], separator);
        if (IsGas(species))
            texts.txtVolGaz[slot] = QuantityText(table.Volume[slot], separator);
        texts.txtQmat0[slot] = AmountText(table.InitialAmount[slot], separator);
        texts.txtQmati[slot] = IntermediateText(static_cast<int>(slot), species.Coeff, texts.txtQmat0[slot]);
        texts.txtQmatf[slot] = AmountText(table.FinalAmount[slot], separator);
    }
}

ProgressTexts ShowComputedTable(const EquationRecord& record, const ProgressTable& table, QChar separator,
                                ProgressTexts texts)
{
    FormatTableValues(record, table, separator, texts);
    return texts;
}

} // namespace stoikal
