#pragma once

#include "charts/reaction_tables.h"
#include "charts/windows/frm_histo_mol.h"
#include "charts/windows/progress_pictures.h"
#include "forms/picture_surface.h"
#include "support/fake_platform.h"
#include "support/window_driver.h"

#include <QGroupBox>
#include <QLabel>
#include <QSignalSpy>
#include <QSlider>
#include <memory>

namespace stoikal {

/// The evolution window of a table on the test's desk, shown.
struct HistoMolBench {
    explicit HistoMolBench(const ProgressTable& shown = BurningMethane(), QChar separator = u',')
        : table(shown)
        , window(std::make_unique<frmHistoMol>(table, frmHistoMol::Doors{clipboard, separator}, nullptr))
    {
        window->resize(1000, 640);
        window->show();
        Settle();
    }

    template <typename T>
    T& Get(const char* name)
    {
        return Control<T>(*window, name);
    }
    QSlider& Slider() { return Get<QSlider>("sldAnim"); }
    QString Label(const char* name) { return Get<QLabel>(name).text(); }
    PictureSurface& Histogram() { return Get<PictureSurface>("picHistoMol"); }
    PictureSurface& Curves() { return Get<PictureSurface>("picCourbeMol"); }

    /// The height of a slot's filled bar, in units of the axis.
    double BarHeight(int slot)
    {
        for (const auto& box : Histogram().Drawn<PictureSurface::Box>()) {
            if (box.colour == SlotColour(slot) && box.rim == 0)
                return box.box.height();
        }
        return -1;
    }
    /// Where the line of a slot ends.
    QPointF CurveEnd(int slot)
    {
        for (const auto& line : Curves().Drawn<PictureSurface::Line>()) {
            if (line.colour == SlotColour(slot))
                return line.to;
        }
        return {-1, -1};
    }

    FakeClipboard clipboard;
    ProgressTable table;
    std::unique_ptr<frmHistoMol> window;
};

} // namespace stoikal
