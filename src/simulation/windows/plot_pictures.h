#pragma once

#include "simulation/box_layout.h"
#include "simulation/simulation_curves.h"

#include <QFont>
#include <QImage>

class QWidget;

namespace stoikal {

class PictureSurface;
class PlotSurface;

/// The four pictures of the plot: the curves, the numbers to the left of them and
/// under them, and the corner with the zero. It draws what it is told and decides
/// nothing.
class PlotPictures final : public PlotBoard
{
public:
    /// Makes the pictures as children of a window.
    explicit PlotPictures(QWidget* parent);

    void DrawAxes(const PlotAxes& axes) override;
    void DrawCurveLine(const CurveLine& line) override;

    /// The room that the numbers and titles ask for, in twips.
    Twips LabelsWidth() const;
    Twips TimesHeight() const;
    Twips ZeroHeight() const;

    /// Moves the pictures to their places.
    void Place(const BoxLayout& layout);

    /// The smallest rectangle around the plot and its numbers, in pixels of the window.
    QRect Surroundings() const;

    /// The whole plot as one image, with the program's name in its lower left
    /// corner, sharp at a device pixel ratio.
    QImage Copy(double devicePixelRatio) const;

    PlotSurface& Curves() const { return *picCourbe; }

private:
    void DrawGrid(const PlotAxes& axes);
    void DrawLevelLabels(const PlotAxes& axes);
    void DrawTimeLabels(const PlotAxes& axes);
    void DrawZero();

    PlotSurface* picCourbe;
    PictureSurface* picX;
    PictureSurface* picY;
    PictureSurface* picZero;
    PictureSurface* picName; ///< never shown: the program's name on a copy
};

/// A twip rectangle in pixels: each edge to its nearest one, so that neighbours touch.
QRect PixelRect(const QRect& twips);

} // namespace stoikal
