#include "chemistry/windows/frm_tableau_periodique.h"

#include "base/twips.h"
#include "chemistry/windows/element_button.h"
#include "forms/style.h"

#include <QGroupBox>
#include <QLabel>
#include <cmath>

namespace stoikal {
namespace {

constexpr int kLegendSide = 26;
constexpr int kLegendRow = 32;

int Pixels(double twips)
{
    return ToPixels(static_cast<Twips>(std::lround(twips)));
}

void SetPoints(QWidget& widget, double points)
{
    QFont font = widget.font();
    font.setPointSizeF(points);
    widget.setFont(font);
}

} // namespace

frmTableauPeriodique::frmTableauPeriodique(QWidget* parent)
    : Form(QStringLiteral("frmTableauPeriodique"), QStringLiteral("Tableau périodique"), Kind::Child, parent)
    , fraTableau(Named(new QWidget(this), QStringLiteral("fraTableau")))
    , fraLegende(Named(new QGroupBox(QStringLiteral("Légende : "), this), QStringLiteral("fraLegende")))
    , lblTitre(Named(new QLabel(QStringLiteral("Classification périodique des éléments"), fraTableau),
                     QStringLiteral("lblTitre")))
{
    StayOnPaper(*this);
    setAutoFillBackground(true);
    setMouseTracking(true);
    fraTableau->setMouseTracking(true);
    BuildGrid();
    BuildLegend();
    setFocusProxy(cmdAtome[0]);
}

void frmTableauPeriodique::BuildGrid()
{
    QFont title = lblTitre->font();
    title.setBold(true);
    lblTitre->setFont(title);
    lblTitre->setAlignment(Qt::AlignCenter);
    for (int c = 0; c < 18; ++c)
        lblCol.at(static_cast<size_t>(c))
            = Named(new QLabel(QString::number(c + 1), fraTableau), ArrayName("lblCol", c));
    for (int r = 0; r < 7; ++r)
        lblLig.at(static_cast<size_t>(r))
            = Named(new QLabel(QString::number(r + 1), fraTableau), ArrayName("lblLig", r));
    lblAc[0] = Named(new QLabel(QStringLiteral(" lanthanides"), fraTableau), QStringLiteral("lblAc(0)"));
    lblAc[1] = Named(new QLabel(QStringLiteral(" actinides"), fraTableau), QStringLiteral("lblAc(1)"));
    for (int i = 0; i < kElementCount; ++i) {
        const ElementState state = StateOf(i);
        auto* const cell = Named(new ElementButton(fraTableau), ArrayName("cmdAtome", i),
                                 QStringLiteral("%1 (%2), %3, %4")
                                     .arg(ElementFieldText(i, 1), QString::number(i + 1),
                                          FamilyName(FamilyOf(i)), StateName(state)));
        cell->setText(ElementSymbol(i));
        cell->SetGround(FamilyColour(FamilyOf(i)));
        cell->SetState(state);
        cell->SetNumber(i + 1);
        cell->setCursor(Qt::PointingHandCursor);
        m_colours.SetButtonForeColor(cell, StateColour(state));
        connect(cell, &QPushButton::clicked, this, [this, i] { Q_EMIT ElementChosen(i); });
        connect(cell, &ElementButton::ArrowPressed, this,
                [this, i](int dx, int dy) { MoveFocus(i, dx, dy); });
        connect(cell, &ElementButton::Hovered, this, [cell, i] {
            cell->setToolTip(QStringLiteral("%1 (%2)").arg(ElementFieldText(i, 1), QString::number(i + 1)));
        });
        cmdAtome.at(static_cast<size_t>(i)) = cell;
    }
}

void frmTableauPeriodique::BuildLegend()
{
    struct Sample {
        const char* label;
        QString caption;
        QColor ground;
        ElementState state;
    };
    const QColor paper(Qt::white);
    const Sample samples[kSamples]{
        {"Label1", QStringLiteral("Non-métaux"), FamilyColour(ElementFamily::NonMetal), ElementState::Solid},
        {"Label2", QStringLiteral("Métaux"), FamilyColour(ElementFamily::Metal), ElementState::Solid},
        {"Label3", QStringLiteral("Semi-conducteurs"), FamilyColour(ElementFamily::SemiConductor),
         ElementState::Solid},
        {"Label4", QStringLiteral("Solide"), paper, ElementState::Solid},
        {"Label5", QStringLiteral("Liquide (30°C)"), paper, ElementState::Liquid},
        {"Label6", QStringLiteral("Gazeux"), paper, ElementState::Gas},
        {"Label7", QStringLiteral("obtenu par synthèse"), paper, ElementState::Synthetic},
        {"Label8", QStringLiteral("non encore synthétisé"), paper, ElementState::NotYetSynthesised},
    };
    for (int i = 0; i < kSamples; ++i) {
        const Sample& sample = samples[i];
        const int number = kElementCount + i;
        auto* const cell
            = Named(new ElementButton(fraLegende), ArrayName("cmdAtome", number), sample.caption);
        cell->SetGround(sample.ground);
        cell->SetState(sample.state);
        cell->SetSize(10);
        // The samples of the families have no letter; those of the states show theirs.
        cell->setText(i < 3 ? QString() : QStringLiteral("X"));
        cell->setFocusPolicy(Qt::NoFocus);
        m_colours.SetButtonForeColor(cell, StateColour(sample.state));
        cmdAtome.at(static_cast<size_t>(number)) = cell;
        m_legend.at(static_cast<size_t>(i))
            = Named(new QLabel(sample.caption, fraLegende), QLatin1String(sample.label));
    }
}

bool frmTableauPeriodique::IsLarge() const
{
    return parentWidget() == nullptr || parentWidget()->isMaximized();
}

void frmTableauPeriodique::LayOut()
{
    const bool isLarge = IsLarge();
    for (QLabel* const head : lblCol) {
        SetPoints(*head, isLarge ? 14 : 8);
        head->adjustSize();
    }
    const int legendHeight = kLegendRow * 2 + fraLegende->fontMetrics().height() + 24;
    GridInput input;
    input.innerWidth = FromPixels(width());
    input.headHeight = FromPixels(lblCol[0]->height());
    input.heightLimit = FromPixels(height() - legendHeight - 16);
    m_layout = LayOutGrid(input);
    // The rule of the width leaves it centred; a low window makes smaller cells.
    fraTableau->setGeometry((width() - Pixels(m_layout.frameWidth)) / 2, 0, Pixels(m_layout.frameWidth),
                            Pixels(m_layout.frameHeight));
    for (int i = 0; i < kElementCount; ++i) {
        const auto place = static_cast<size_t>(i);
        const int left = Pixels(m_layout.left.at(place));
        const int top = Pixels(m_layout.cellTop.at(place));
        cmdAtome.at(place)->SetSize(isLarge ? 14 : 7);
        cmdAtome.at(place)->setGeometry(left, top, Pixels(m_layout.left.at(place) + m_layout.side) - left,
                                        Pixels(m_layout.cellTop.at(place) + m_layout.side) - top);
    }
    PlaceHeads(m_layout);
    PlaceLegend(Pixels(m_layout.frameHeight));
}

void frmTableauPeriodique::PlaceHeads(const GridLayout& layout)
{
    constexpr double kLeft = 240;
    for (size_t c = 0; c < 18; ++c) {
        const double width = FromPixels(lblCol.at(c)->width());
        lblCol.at(c)->move(Pixels(kLeft + layout.side * static_cast<double>(c) + (layout.side - width) / 2),
                           0);
    }
    for (size_t r = 0; r < 7; ++r) {
        lblLig.at(r)->adjustSize();
        const double middle = layout.top + (static_cast<double>(r) + 0.5) * layout.side;
        lblLig.at(r)->move(Pixels(kLeft - 60) - lblLig.at(r)->width(),
                           Pixels(middle) - lblLig.at(r)->height() / 2);
    }
    for (size_t row = 0; row < 2; ++row) {
        const QWidget& first = *cmdAtome.at(row == 0 ? 57 : 89);
        lblAc.at(row)->adjustSize();
        // Beside the row while there is room for the word.
        lblAc.at(row)->move(std::max(0, first.x() - ToPixels(100) - lblAc.at(row)->width()),
                            first.y() + (first.height() - lblAc.at(row)->height()) / 2);
    }
    SetPoints(*lblTitre, IsLarge() ? 15 : 10);
    lblTitre->adjustSize();
    const double middle = kLeft + layout.side * 6.5;
    lblTitre->move(Pixels(middle) - lblTitre->width() / 2, Pixels(layout.top + layout.side * 0.7));
}

void frmTableauPeriodique::PlaceLegend(int top)
{
    const int headHeight = fraLegende->fontMetrics().height() + 10;
    const int column = std::max(170, std::min(240, (width() - 48) / 4));
    fraLegende->setGeometry((width() - column * 4 - 24) / 2, top, column * 4 + 24,
                            headHeight + 2 * kLegendRow + 8);
    for (int i = 0; i < kSamples; ++i) {
        const auto place = static_cast<size_t>(i);
        // Families in the first row, states behind them.
        const int x = 12 + (i % 4) * column;
        const int y = headHeight + (i / 4) * kLegendRow;
        cmdAtome.at(kElementCount + place)->setGeometry(x, y, kLegendSide, kLegendSide);
        m_legend.at(place)->setGeometry(x + kLegendSide + 8, y, column - kLegendSide - 12, kLegendSide);
    }
}

void frmTableauPeriodique::MoveFocus(int from, int dx, int dy)
{
    cmdAtome.at(static_cast<size_t>(NeighbourOf(m_layout, from, dx, dy)))->setFocus(Qt::OtherFocusReason);
}

void frmTableauPeriodique::resizeEvent(QResizeEvent* event)
{
    Form::resizeEvent(event);
    LayOut();
}

void frmTableauPeriodique::showEvent(QShowEvent* event)
{
    LayOut();
    Form::showEvent(event);
}

void frmTableauPeriodique::mouseMoveEvent(QMouseEvent* event)
{
    Q_EMIT MouseMovedOver();
    Form::mouseMoveEvent(event);
}

} // namespace stoikal
