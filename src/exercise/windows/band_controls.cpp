#include "exercise/windows/band_controls.h"

#include "exercise/windows/reaction_arrow.h"
#include "forms/colours.h"
#include "forms/filter_edit.h"
#include "forms/form.h"
#include "forms/species_label.h"

#include <QFontMetricsF>
#include <QFrame>
#include <QLabel>
#include <algorithm>
#include <cmath>
#include <limits>

namespace stoikal {
namespace {

constexpr int kMostDigits = 2;
constexpr Twips kPlusWidth = 330;
constexpr Twips kArrowWidth = 720;
constexpr int kSpeciesMargins = 4; ///< pixels beside a species' text at least, both sides together
constexpr int kMeasuredPoints = 8; ///< the size in which a species is measured
constexpr int kBoxPadding = 18; ///< pixels beside the two digits of a coefficient
constexpr int kNarrowBoxPadding = 12;
constexpr Twips kNarrowPlusWidth = 240;
constexpr Twips kNarrowArrowWidth = 510;
/// What is tried, one after the other, where the usual widths find no room.
constexpr std::array<double, 7> kTypeSizes{1, 0.92, 0.85, 0.78, 0.7, 0.6, 0.5};

QFont FormulaFont(const QFont& windowFont, double size)
{
    QFont font = windowFont;
    font.setPointSizeF((windowFont.pointSizeF() + 2) * size);
    return font;
}

/// The formulas, coefficients and signs in type of a size, 1 being the usual one.
void SetType(const BandControls& band, double size)
{
    const QFont font = FormulaFont(band.txtCoef[0]->window()->font(), size);
    for (size_t slot = 0; slot < 6; ++slot) {
        band.txtCoef.at(slot)->setFont(font);
        band.rtbCorp.at(slot)->setFont(font);
    }
    for (QLabel* const plus : band.lblPlus)
        plus->setFont(font);
}

/// The width of the boxes, with so many pixels beside two digits.
Twips CoefficientWidth(const BandControls& band, int padding)
{
    return FromPixels(QFontMetrics(band.txtCoef[0]->font()).horizontalAdvance(QStringLiteral("00"))
                      + padding);
}

/// The least width in which a species is drawn whole.
Twips DrawnSpeciesWidth(const SpeciesLabel& species)
{
    return FromPixels(static_cast<int>(std::ceil(species.DrawnWidth())) + kSpeciesMargins);
}

/// The width of a species: that of its text in a small size and as much again as
/// larger type takes, so that the "+" after it stands midway.
Twips UsualSpeciesWidth(const SpeciesLabel& species)
{
    QFont font = species.font();
    font.setPointSize(kMeasuredPoints);
    return std::max(SpeciesWidth(QFontMetricsF(font).horizontalAdvance(species.text())),
                    DrawnSpeciesWidth(species));
}

/// The widths with as little between the species as they can be told apart with.
EquationWidths NarrowWidths(const BandControls& band, EquationWidths widths)
{
    widths.coefficient = CoefficientWidth(band, kNarrowBoxPadding);
    widths.plus = kNarrowPlusWidth;
    widths.arrow = kNarrowArrowWidth;
    for (size_t slot = 0; slot < 6; ++slot)
        widths.species.at(slot) = DrawnSpeciesWidth(*band.rtbCorp.at(slot));
    return widths;
}

FilterEdit* MakeCoefficientBox(QWidget& window, int slot, const QFont& font)
{
    const QString side
        = slot < 3 ? QStringLiteral("réactif %1").arg(slot + 1) : QStringLiteral("produit %1").arg(slot - 2);
    auto* const box = Named(new FilterEdit(&window), ArrayName("txtCoef", slot),
                            QStringLiteral("Coefficient du %1").arg(side));
    box->setToolTip(QStringLiteral("Saisir les coefficients corrects afin d'équilibrer l'équation chimique"));
    box->setMaxLength(kMostDigits);
    box->setAlignment(Qt::AlignCenter);
    box->setFont(font);
    // Given coefficients and a shown solution are there to be read.
    QPalette palette = box->palette();
    palette.setColor(QPalette::Disabled, QPalette::Text, colours::kInk);
    box->setPalette(palette);
    return box;
}

/// The layout in the largest type that the screen has room for. Smaller type that
/// does not make the band narrower, as where the columns of a table take the room,
/// is of no use.
EquationLayout FitNarrowBand(const BandControls& band, EquationWidths& widths, Twips available)
{
    double best = kTypeSizes.front();
    Twips least = std::numeric_limits<Twips>::max();
    for (auto size = kTypeSizes.begin(); size != kTypeSizes.end() && least > available; ++size) {
        SetType(band, *size);
        const Twips width = LayoutEquation(NarrowWidths(band, widths)).width;
        if (width < least) {
            best = *size;
            least = width;
        }
    }
    SetType(band, best);
    widths = NarrowWidths(band, widths);
    return LayoutEquation(widths);
}

} // namespace

BandControls MakeBand(QWidget& window)
{
    BandControls band;
    const QFont formulaFont = FormulaFont(window.font(), 1);
    for (int slot = 0; slot < 6; ++slot) {
        const auto place = static_cast<size_t>(slot);
        band.txtCoef.at(place) = MakeCoefficientBox(window, slot, formulaFont);
        band.rtbCorp.at(place) = Named(new SpeciesLabel(&window), ArrayName("rtbCorp", slot));
        band.rtbCorp.at(place)->setFont(formulaFont);
    }
    for (int i = 0; i < 4; ++i) {
        const auto place = static_cast<size_t>(i);
        QFrame* const ground = Named(new QFrame(&window), ArrayName("picPlus", i));
        ground->setAutoFillBackground(true);
        QLabel* const plus
            = Named(new QLabel(QStringLiteral("+"), ground), ArrayName("lblPlus", i), QStringLiteral("plus"));
        plus->setAutoFillBackground(true);
        plus->setAlignment(Qt::AlignCenter);
        plus->setFont(formulaFont);
        band.picPlus.at(place) = ground;
        band.lblPlus.at(place) = plus;
    }
    band.imgFleche = Named(new ReactionArrow(&window), QStringLiteral("imgFleche"), QStringLiteral("donne"));
    return band;
}

EquationLayout FitBand(const BandControls& band, EquationWidths& widths, Twips available)
{
    SetType(band, 1);
    widths.coefficient = CoefficientWidth(band, kBoxPadding);
    widths.plus = kPlusWidth;
    widths.arrow = kArrowWidth;
    for (size_t slot = 0; slot < 6; ++slot)
        widths.species.at(slot) = UsualSpeciesWidth(*band.rtbCorp.at(slot));
    const EquationLayout layout = LayoutEquation(widths);
    return layout.width <= available ? layout : FitNarrowBand(band, widths, available);
}

void PlaceBand(const BandControls& band, const EquationLayout& layout, const EquationWidths& widths, int top,
               int height)
{
    for (size_t slot = 0; slot < 6; ++slot) {
        band.txtCoef.at(slot)->setGeometry(ToPixels(layout.coefficientLeft.at(slot)), top,
                                           ToPixels(widths.coefficient), height);
        band.rtbCorp.at(slot)->setGeometry(ToPixels(layout.speciesLeft.at(slot)), top,
                                           ToPixels(widths.species.at(slot)), height);
        band.txtCoef.at(slot)->setVisible(layout.shown.at(slot));
        band.rtbCorp.at(slot)->setVisible(layout.shown.at(slot));
    }
    for (size_t i = 0; i < 4; ++i) {
        band.picPlus.at(i)->setGeometry(ToPixels(layout.plusLeft.at(i)), top, ToPixels(widths.plus), height);
        band.lblPlus.at(i)->setGeometry(0, 0, ToPixels(widths.plus), height);
        band.picPlus.at(i)->setVisible(layout.plusShown.at(i));
    }
    band.imgFleche->setGeometry(ToPixels(layout.arrowLeft), top, ToPixels(widths.arrow), height);
}

void PaintBand(const BandControls& band, QWidget& window, const QColor& colour)
{
    const auto paint = [&colour](QWidget* widget) {
        QPalette palette = widget->palette();
        palette.setColor(QPalette::Window, colour);
        widget->setPalette(palette);
    };
    paint(&window);
    for (SpeciesLabel* const species : band.rtbCorp)
        paint(species);
    for (QFrame* const plus : band.picPlus)
        paint(plus);
    for (QLabel* const plus : band.lblPlus)
        paint(plus);
}

} // namespace stoikal
