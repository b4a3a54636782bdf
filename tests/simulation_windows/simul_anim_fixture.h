#pragma once

#include "base/twips.h"
#include "forms/colours.h"
#include "forms/filter_edit.h"
#include "forms/picture_surface.h"
#include "simulation/windows/frm_simul_anim.h"

#include "support/fake_messages.h"
#include "support/fake_platform.h"
#include "support/window_driver.h"

#include <QLabel>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <QTimer>
#include <gtest/gtest.h>
#include <random>

namespace stoikal {

/// The same throws in every test.
struct SameDice final : Randomness {
    std::mt19937_64 generator{20};
    std::uniform_real_distribution<double> uniform{0.0, 1.0};
    double Uniform() override { return uniform(generator); }
};

/// The window on the screen, 1200 x 700, with ten counts a second.
class FrmSimulAnim : public testing::Test
{
protected:
    FrmSimulAnim()
    {
        window.resize(1200, 700);
        window.show();
        window.activateWindow();
        Settle();
    }

    template <typename T>
    T& Get(const char* name)
    {
        return Control<T>(window, name);
    }

    QAbstractButton& Start() { return Get<QAbstractButton>("chkStart"); }
    QTimer& Timer() { return Get<QTimer>("tmrAnim"); }
    PictureSurface& Plot() { return Get<PictureSurface>("picCourbe"); }
    FilterEdit& Box(int kind) { return Get<FilterEdit>(qPrintable(ArrayName("txtMol", kind))); }
    QString Clock() { return Get<QLineEdit>("txtCompteur").text(); }
    const ParticleState& Particles() const { return window.Particles().State(); }

    QString Numbers(const char* array)
    {
        QStringList texts;
        for (int kind = 0; kind < 5; ++kind)
            texts << Get<QLabel>(qPrintable(ArrayName(array, kind))).text();
        return texts.join(u' ');
    }

    /// Selects the tab of a control, as a person does before reaching it.
    void ShowTab(int index) { Get<QTabWidget>("sstAnim").setCurrentIndex(index); }

    void ChooseCurve(int index)
    {
        ShowTab(2);
        Click(Get<QRadioButton>(qPrintable(ArrayName("optY", index))));
    }

    void ClickStart()
    {
        ShowTab(0);
        Click(Start());
    }

    /// The next tenth of a second passes, and the timer fires.
    void Tick(int times = 1)
    {
        for (int i = 0; i < times; ++i) {
            ++clock.counter;
            stoikal::Tick(Timer());
        }
    }

    /// Types a number in place of that of a kind.
    void TypeNumber(int kind, const QString& text)
    {
        Box(kind).setFocus();
        Box(kind).selectAll();
        Type(Box(kind), text);
    }

    void SetNumbers(const QStringList& numbers)
    {
        for (int kind = 0; kind < 5; ++kind)
            Box(kind).setText(QStringLiteral("0"));
        for (int kind = 0; kind < 5; ++kind)
            Box(kind).setText(numbers.at(kind));
    }

    void ExpectStopped()
    {
        EXPECT_FALSE(Start().isChecked());
        EXPECT_FALSE(Timer().isActive());
        EXPECT_EQ(Start().text(), QStringLiteral("Lancer l'animation"));
    }

    FakeClock clock;
    FakeMessages messages;
    FakeSound sound;
    FakeClipboard clipboard;
    SameDice dice;
    frmSimulAnim window{{clock, messages, sound, clipboard, dice, QLatin1Char(',')}, nullptr};
};

} // namespace stoikal
