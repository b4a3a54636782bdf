#pragma once

#include "forms/form.h"

class QFrame;
class QLabel;
class QTimer;

namespace stoikal {

class Screen;
class Settings;
struct Places;
struct RunState;

/// The sum of the charges of each side, on the colours of the sides.
class frmCharge final : public Form
{
    Q_OBJECT

public:
    frmCharge(const RunState& run, const Places& places, Settings& settings, const Screen& screen,
              QWidget* parent);

    /// Opens at its remembered place, never over the exercise.
    void OpenBeside(const QWidget& exercise);
    void ShowTotals();
    void RefreshColours();
    void RememberPlace();

protected:
    void moveEvent(QMoveEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    const RunState& m_run;
    const Places& m_places;
    Settings& m_settings;
    const Screen& m_screen;
    bool m_placed = false;
    QTimer* tmrPlace; ///< a drag is written once it rests

    QFrame* shpColor[2];
    QLabel* lblChargeReac;
    QLabel* lblChargeProd;
};

} // namespace stoikal
