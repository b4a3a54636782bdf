#include "exercise/windows/band_controls.h"

#include "exercise/windows/reaction_arrow.h"
#include "forms/colours.h"
#include "forms/filter_edit.h"
#include "forms/form.h"
#include "forms/species_label.h"

#include <QFontMetricsF>
#include <QFrame>
#include <QLabel>
#include <cmath>

namespace stoikal {
namespace {

constexpr int kMostDigits = 2;
constexpr Twips kPlusWidth = 330;
constexpr Twips kArrowWidth = 720;
constexpr int kCloseSpace = 8; ///< pixels behind a species where room is short

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

} // namespace

BandControls MakeBand(QWidget& window)
{
    BandControls band;
    QFont formulaFont = window.font();
    formulaFont.setPointSizeF(window.font().pointSizeF() + 2);
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
    widths.coefficient
        = FromPixels(QFontMetrics(band.txtCoef[0]->font()).horizontalAdvance(QStringLiteral("00")) + 18);
    widths.plus = kPlusWidth;
    widths.arrow = kArrowWidth;
    std::array<double, 6> pixels{};
    for (size_t slot = 0; slot < 6; ++slot) {
        const SpeciesLabel* const species = band.rtbCorp.at(slot);
        pixels.at(slot) = QFontMetricsF(species->font()).horizontalAdvance(species->text());
        widths.species.at(slot) = SpeciesWidth(pixels.at(slot));
    }
    const EquationLayout layout = LayoutEquation(widths);
    if (!widths.isProgressFile || layout.width <= available)
        return layout;
    for (size_t slot = 0; slot < 6; ++slot)
        widths.species.at(slot) = FromPixels(static_cast<int>(std::ceil(pixels.at(slot))) + kCloseSpace);
    return LayoutEquation(widths);
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
