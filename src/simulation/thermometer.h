#pragma once

#include "base/twips.h"

namespace stoikal {

/// The cursor that slides along the thermometer's scale and sets the particles'
/// speed. Lengths in twips from the top of the window. There are no degrees: the
/// temperature is the length of a particle's step, 5 at the bottom, 50 at the top.
class Thermometer
{
public:
    /// Takes a new place of the scale and puts the cursor where the speed is 15.
    /// The scale's height must be above 0.
    void LayOut(Twips scaleTop, Twips scaleHeight, Twips waveHeight);

    /// The top of the cursor.
    Twips WaveTop() const { return m_waveTop; }

    /// The cursor is dragged: the mouse went down at `rememberedY` from the top of
    /// it and is at `y` now. The cursor's middle stays on the scale.
    void Drag(Twips y, Twips rememberedY);

    /// Raises (or, below 0, lowers) the cursor by whole steps of speed.
    void Step(int steps);

    /// Box units a tick, 5 to 50, as the cursor stands.
    float ThermalSpeed() const;

private:
    void MoveTo(Twips top);
    void MoveToSpeed(float aboveLeast);

    Twips m_scaleTop = 0;
    Twips m_scaleBottom = 0;
    Twips m_scaleHeight = 1;
    Twips m_waveHalfHeight = 0;
    float m_speedPerTwip = 45;
    Twips m_waveTop = 0;
};

/// The colour of a row of the thermometer's tube, `height` rows high: red at the
/// top (0), blue at the bottom. 24 bits, red in the low byte.
std::uint32_t ThermometerColour(int row, int height);

} // namespace stoikal
