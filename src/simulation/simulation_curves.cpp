#include "simulation/simulation_curves.h"

#include "simulation/reaction_quotient.h"
#include "simulation/run_clock.h"

#include <algorithm>

namespace stoikal {
namespace {

/// The most that any one curve can reach: one side used up, on top of the other.
std::int32_t MostParticles(const KindNumbers& typed)
{
    const auto [lessReactant, moreReactant] = std::minmax(typed[kKindA], typed[kKindB]);
    const auto [lessProduct, moreProduct] = std::minmax(typed[kKindC], typed[kKindD]);
    return std::max(lessReactant + moreProduct, moreReactant + lessProduct);
}

} // namespace

SimulationCurves::SimulationCurves(PlotBoard& board, std::int64_t countsPerSecond, QChar separator)
    : m_board(board)
    , m_countsPerSecond(countsPerSecond)
    , m_separator(separator)
    , m_timeMax(kFirstTimeMax)
    , m_quotientNow(kLeastQuotientMax)
    , m_quotientMax(kLeastQuotientMax)
{
}

void SimulationCurves::DrawAll()
{
    DrawSimAxes();
    RedrawSimCurves(m_samples.SampleIndex());
}

void SimulationCurves::optY_Click(PlotQuantity quantity)
{
    m_quantity = quantity;
    if (quantity == PlotQuantity::Quotient)
        m_quotientMax = std::max(m_quotientNow, kLeastQuotientMax);
    DrawAll();
}

void SimulationCurves::ResetSimHistory(const KindNumbers& typed)
{
    m_samples.Reset(typed);
    m_timeMax = kFirstTimeMax;
}

void SimulationCurves::TakeNumbers(const KindNumbers& typed)
{
    m_particleMax = MostParticles(typed);
    m_timeMax = kFirstTimeMax;
    m_quotientNow = QuotientOfNumbers(typed);
    m_quotientMax = m_quotientNow;
    DrawSimAxes();
}

void SimulationCurves::ReadTypedScale()
{
    if (m_particleMax != 0)
        m_readScale = ScaleOfTypedNumbers(m_particleMax);
}

void SimulationCurves::StartRun(std::int64_t counter, const KindNumbers& typed)
{
    m_clockStart = counter;
    m_runSeconds = 0;
    ResetSimHistory(typed);
    m_quotientNow = QuotientOfStart(typed);
    m_quotientMax = m_quotientNow;
    DrawSimAxes();
}

void SimulationCurves::BeginTick(std::int64_t counter)
{
    m_runSeconds = RunSecondsAt(counter, m_clockStart, m_countsPerSecond);
    m_gap = m_samples.Gap();
    if (m_runSeconds > m_timeMax) {
        m_timeMax = ExtendedTimeMax(m_timeMax, m_runSeconds);
        DrawAll();
    }
}

void SimulationCurves::EndTick(const KindNumbers& counts)
{
    m_quotientNow = QuotientOfTick(counts);
    if (m_quotientNow > m_quotientMax) {
        m_quotientMax = m_quotientNow;
        if (m_quantity == PlotQuantity::Quotient)
            DrawAll();
    }
    if (!m_samples.IsDue(m_runSeconds, m_gap))
        return;
    m_samples.Store(counts, m_runSeconds);
    DrawSimSegment(m_samples.SampleIndex());
    m_samples.Advance();
}

void SimulationCurves::picCourbe_MouseUp(double y)
{
    m_quotientMax = std::max(y, kLeastQuotientMax);
    if (m_quantity == PlotQuantity::Quotient)
        DrawAll();
}

void SimulationCurves::picCourbe_DblClick()
{
    m_quotientMax = m_quotientNow;
    if (m_quantity == PlotQuantity::Quotient)
        DrawAll();
}

void SimulationCurves::DrawSimAxes()
{
    VerticalScale vertical;
    if (m_quantity == PlotQuantity::Quotient) {
        vertical = ScaleOfQuotient(m_quotientMax);
        m_quotientMax = static_cast<double>(vertical.top);
    } else {
        vertical = ScaleOfNumbers(m_particleMax);
    }
    const PlotAxes axes = AxesOf(m_quantity, vertical, m_timeMax, m_separator);
    m_readScale = axes.scale;
    m_board.DrawAxes(axes);
}

void SimulationCurves::DrawNumbers(int k)
{
    const SampleSeries::Sample& before = m_samples.At(k - 1);
    const SampleSeries::Sample& after = m_samples.At(k);
    for (std::size_t kind = kKindA; kind <= kKindD; ++kind)
        m_board.DrawCurveLine({{before.seconds, static_cast<double>(before.counts.at(kind))},
                               {after.seconds, static_cast<double>(after.counts.at(kind))},
                               kind});
}

void SimulationCurves::DrawQuotient(int k, double before, double after)
{
    m_board.DrawCurveLine({{m_samples.At(k - 1).seconds, before}, {m_samples.At(k).seconds, after}, kKindA});
}

void SimulationCurves::RedrawSimCurves(int n)
{
    for (int k = 1; k < n; ++k) {
        if (m_quantity == PlotQuantity::Quotient)
            DrawQuotient(k, QuotientOfSample(m_samples.At(k - 1).counts),
                         QuotientOfSample(m_samples.At(k).counts));
        else
            DrawNumbers(k);
    }
}

void SimulationCurves::DrawSimSegment(int k)
{
    if (m_quantity == PlotQuantity::ParticleNumbers) {
        DrawNumbers(k);
        return;
    }
    const double before = QuotientOfSample(m_samples.At(k - 1).counts);
    const double after = QuotientOfNewestSample(m_samples.At(k).counts);
    if (after > m_quotientNow) {
        m_quotientNow = after;
        DrawSimAxes();
        RedrawSimCurves(k);
    }
    DrawQuotient(k, before, after);
}

QPointF SimulationCurves::ToPlot(const QPointF& share) const
{
    return {share.x() * m_readScale.right,
            m_readScale.top * (1 - share.y()) + m_readScale.bottom * share.y()};
}

QString SimulationCurves::ReadOut(const QPointF& place) const
{
    return CurveReadOut(m_quantity, place.x(), place.y(), m_separator);
}

} // namespace stoikal
