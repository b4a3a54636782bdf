#pragma once

#include "simulation/plot_axes.h"
#include "simulation/sample_series.h"

#include <QPointF>

namespace stoikal {

/// A stroke of a curve in user coordinates, in the colour of a kind. The curve of
/// Qr has the colour of A.
struct CurveLine {
    QPointF from;
    QPointF to;
    std::size_t kind = kKindA;
};

/// What the curves are drawn on.
class PlotBoard
{
public:
    virtual ~PlotBoard() = default;
    /// Takes everything away and draws the axes.
    virtual void DrawAxes(const PlotAxes& axes) = 0;
    virtual void DrawCurveLine(const CurveLine& line) = 0;
};

/// The curves of a run over its time: the clock, the samples, the scales and what
/// is drawn of them. It has no widget, no timer and no clock of its own, and knows
/// the particles by their numbers alone.
class SimulationCurves
{
public:
    /// The board must outlive the curves. The separator is the system's decimal sign.
    SimulationCurves(PlotBoard& board, std::int64_t countsPerSecond, QChar separator);

    /// The curve that is shown from now on; Qr begins with its present value as
    /// scale, 2 at least.
    void optY_Click(PlotQuantity quantity);

    /// Forgets the run: sample 0 is the numbers typed, the axis ends at 40. What
    /// stands on the board stays until the axes are drawn again.
    void ResetSimHistory(const KindNumbers& typed);

    /// Other numbers of particles: new scales, and the axes alone are drawn. What
    /// a click reads is then told by `ReadTypedScale`.
    void TakeNumbers(const KindNumbers& typed);
    /// From now to the next drawing of the axes a place on the plot is read in
    /// numbers of particles, whatever is shown. Nothing happens without particles.
    void ReadTypedScale();

    /// A run begins at this reading of the counter.
    void StartRun(std::int64_t counter, const KindNumbers& typed);

    /// The first half of a tick, before the particles move: the clock and the
    /// time axis.
    void BeginTick(std::int64_t counter);

    /// The second half, with the particles as they are now: Qr, sample, segment.
    /// While Qr is shown, a run with A and without B ends in a FatalFault.
    void EndTick(const KindNumbers& counts);

    /// A click on the plot: the scale of Qr ends at this height of it.
    void picCourbe_MouseUp(double y);
    /// The scale of Qr ends at its present value.
    void picCourbe_DblClick();

    void DrawSimAxes();
    /// The curve through samples 0 to n - 1.
    void RedrawSimCurves(int n);
    /// The stroke from sample k - 1 to sample k.
    void DrawSimSegment(int k);

    /// A place of the board, in shares of its width and height from the upper
    /// left, in the coordinates in which the plot is read.
    QPointF ToPlot(const QPointF& share) const;

    /// The bubble over a curve at a place of the plot.
    QString ReadOut(const QPointF& place) const;

    PlotQuantity Quantity() const { return m_quantity; }
    const SampleSeries& Samples() const { return m_samples; }
    double RunSeconds() const { return m_runSeconds; }
    double TimeMax() const { return m_timeMax; }
    std::int32_t ParticleMax() const { return m_particleMax; }
    double QuotientNow() const { return m_quotientNow; }
    double QuotientMax() const { return m_quotientMax; }

private:
    void DrawAll();
    void DrawNumbers(int k);
    void DrawQuotient(int k, double before, double after);

    PlotBoard& m_board;
    std::int64_t m_countsPerSecond;
    QChar m_separator;
    PlotQuantity m_quantity = PlotQuantity::ParticleNumbers;
    SampleSeries m_samples;
    PlotScale m_readScale; ///< in which a place on the plot is read
    std::int64_t m_clockStart = 0;
    double m_runSeconds = 0;
    double m_gap = 0; ///< of the samples, as the tick began
    double m_timeMax;
    std::int32_t m_particleMax = 220; ///< the largest number that a curve can reach
    double m_quotientNow;
    double m_quotientMax;
};

} // namespace stoikal
