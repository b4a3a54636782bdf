#include "picture_fixture.h"

#include <QSlider>
#include <QTabWidget>
#include <chrono>
#include <cmath>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// 0.5 mol of methane burns in 1.2 mol of oxygen, of which 0.2 mol is left.
const QString kMethane = u"CH4<g>+O2<g>=CO2<g>+H2O<l>/1,2,1,2#Q0.5,Q1.2,Q0,Q0"_s;

class ProgressPictures : public PictureTest
{
protected:
    /// The particles move for so many tenths of a second.
    void Run(QWidget& window, int ticks)
    {
        for (int i = 0; i < ticks; ++i) {
            desktop.clock.counter += 1;
            Tick(Control<QTimer>(window, "tmrAnim"));
        }
    }
};

} // namespace

TEST_F(ProgressPictures, OfASeries)
{
    OpenProgress(kMethane, "optSimul(0)");
    Fill(Exercise(), "txtMasMol", {u"16"_s, u"32"_s, {}, u"44"_s, u"18"_s});
    Click(Button(Exercise(), "cmdValidMassMol"));
    Tick(Control<QTimer>(Exercise(), "Timer1"));
    Fill(Exercise(), "txtMasse", {u"8"_s, u"38,4"_s, {}, u"22"_s, u"18"_s});
    Fill(Exercise(), "txtVolGaz", {u"11,2"_s, u"26,9"_s, {}, u"11,2"_s});
    Fill(Exercise(), "txtQmatf", {u"0"_s, u"0,3"_s});
    Keep(Exercise(), u"progress_series"_s);
    Fill(Exercise(), "txtQmatf", {{}, {}, {}, u"0,5"_s, u"1"_s});
    Click(Button(Exercise(), "cmdValidMVQ"));
    Keep(Exercise(), u"progress_wrong"_s);
}

TEST_F(ProgressPictures, OfTheStudyOfProgress)
{
    OpenProgress(kMethane, "optSimul(1)");
    Keep(Exercise(), u"progress"_s);
    Choose("Mnu_MassMol");
    Keep("frmMassMol");
    Fill(Shown("frmMassMol"), "txtData", {{}, u"20"_s});
    Click(Button(Shown("frmMassMol"), "cmdCalcul"));
    Keep(Shown("frmMassMol"), u"gas_law"_s);
    Click(Button(Exercise(), "chkHistoMol"));
    Settle();
    auto& slider = Control<QSlider>(Shown("frmHistoMol"), "sldAnim");
    slider.setValue(slider.maximum() * 2 / 3);
    Keep("frmHistoMol");
}

TEST_F(ProgressPictures, OfTheParticles)
{
    // Evenly spread numbers, the same in every picture.
    double last = 0;
    desktop.randomness.draw = [last]() mutable { return last = std::fmod(last * 16807 + 0.37, 1.0); };
    Choose("Mnu_SimulAnim");
    QWidget& window = Shown("frmSimulAnim");
    Settle();
    Click(Button(window, "chkStart"));
    // No tick but ours: the picture is that of the 300th.
    Control<QTimer>(window, "tmrAnim").setInterval(std::chrono::hours(1));
    Run(window, 300);
    Keep("frmSimulAnim");
    Control<QTabWidget>(window, "sstAnim").setCurrentIndex(2);
    Click(Button(window, "optY(1)"));
    Keep(window, u"simulation_quotient"_s);
}

} // namespace stoikal
