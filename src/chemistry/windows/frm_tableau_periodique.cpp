#include "chemistry/windows/frm_tableau_periodique.h"

#include "base/twips.h"
#include "chemistry/windows/element_button.h"
#include "forms/style.h"

#include <QGroupBox>
#include <QLabel>
#include <algorithm>
#include <cmath>

namespace stoikal {
namespace {

constexpr int kLegendMargin = 12;
/// A narrower window has a smaller legend.
constexpr int kLegendNarrow = 600;

/// The one size beside the maximised one, with the frame.
constexpr Twips kSmallWidth = 7600;
constexpr Twips kSmallHeight = 6500;

int Pixels(double twips)
{
    return ToPixels(static_cast<Twips>(std::lround(twips)));
}

void SetPoints(QLabel& label, double points)
{
    QFont font = label.font();
    font.setPointSizeF(points);
    label.setFont(font);
    label.adjustSize();
}

/// The points, or as many less as bring the words into the room.
void SetPointsWithin(QLabel& label, double points, int room)
{
    constexpr double kLeast = 5;
    for (SetPoints(label, points); label.width() > room && points > kLeast; SetPoints(label, points))
        points -= 0.5;
}

} // namespace

/// How the samples of the legend stand, in pixels.
struct frmTableauPeriodique::LegendGrid {
    int side = 0; ///< of a sample
    int gap = 6; ///< between a sample and its words
    int columns = 0;
    int columnWidth = 0;
    int headHeight = 0;
    int rowHeight = 0;
    int height = 0; ///< of the whole frame
};

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
        cell->SetElementName(ElementFieldText(i, 1));
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
        cell->setText(i < kFamilies ? QString() : QStringLiteral("X"));
        cell->setFocusPolicy(Qt::NoFocus);
        m_colours.SetButtonForeColor(cell, StateColour(sample.state));
        cmdAtome.at(static_cast<size_t>(number)) = cell;
        m_legend.at(static_cast<size_t>(i))
            = Named(new QLabel(sample.caption, fraLegende), QLatin1String(sample.label));
    }
}

void frmTableauPeriodique::KeepSmallSize()
{
    QWidget* const frame = parentWidget();
    const QSize small(ToPixels(kSmallWidth), ToPixels(kSmallHeight));
    if (IsLarge() || frame->isMinimized() || frame->size() == small)
        return;
    // The frame is still busy with the size that it gave.
    QMetaObject::invokeMethod(
        frame,
        [frame, small] {
            if (!frame->isMaximized() && !frame->isMinimized())
                frame->resize(small);
        },
        Qt::QueuedConnection);
}

bool frmTableauPeriodique::IsLarge() const
{
    return parentWidget() == nullptr || parentWidget()->isMaximized();
}

void frmTableauPeriodique::LayOut()
{
    const bool isLarge = IsLarge();
    for (QLabel* const head : lblCol)
        SetPoints(*head, isLarge ? 14 : 8);
    const LegendGrid legend = Legend();
    GridInput input;
    input.innerWidth = static_cast<float>(FromPixels(width()));
    input.headHeight = static_cast<float>(FromPixels(lblCol[0]->height()));
    // A low window makes smaller cells: nothing of the legend is cut.
    input.heightLimit = static_cast<float>(FromPixels(height() - legend.height - kLegendMargin));
    m_layout = LayOutGrid(input);
    fraTableau->setGeometry((width() - Pixels(m_layout.frameWidth)) / 2, 0, Pixels(m_layout.frameWidth),
                            Pixels(m_layout.frameHeight));
    const double points = CaptionPoints();
    for (int i = 0; i < kElementCount; ++i) {
        const auto place = static_cast<size_t>(i);
        const int left = Pixels(m_layout.left.at(place));
        const int top = Pixels(m_layout.cellTop.at(place));
        cmdAtome.at(place)->SetSize(points);
        cmdAtome.at(place)->setGeometry(left, top, Pixels(m_layout.left.at(place) + m_layout.side) - left,
                                        Pixels(m_layout.cellTop.at(place) + m_layout.side) - top);
    }
    PlaceHeads(m_layout);
    PlaceLegend(legend, Pixels(m_layout.frameHeight));
}

double frmTableauPeriodique::CaptionPoints() const
{
    const double wanted = IsLarge() ? 14 : 7;
    // Small cells of a magnified screen: the widest symbols of two letters leave
    // some ground on both sides, and all have one size.
    QFont face = font();
    face.setPointSizeF(wanted);
    face.setBold(true);
    const double room = m_layout.side / kTwipsPerPixel * 0.8;
    return std::clamp(wanted * room / QFontMetricsF(face).horizontalAdvance(QStringLiteral("Mn")), 1.0,
                      wanted);
}

void frmTableauPeriodique::PlaceHeads(const GridLayout& layout)
{
    constexpr double kLeft = 240;
    for (size_t c = 0; c < 18; ++c) {
        const double width = FromPixels(lblCol.at(c)->width());
        lblCol.at(c)->move(Pixels(kLeft + layout.side * static_cast<double>(c) + (layout.side - width) / 2),
                           0);
    }
    const bool isLarge = IsLarge();
    for (size_t r = 0; r < 7; ++r) {
        SetPoints(*lblLig.at(r), isLarge ? 11 : 8);
        const double middle = layout.top + (static_cast<double>(r) + 0.5) * layout.side;
        lblLig.at(r)->move(Pixels(kLeft - 60) - lblLig.at(r)->width(),
                           Pixels(middle) - lblLig.at(r)->height() / 2);
    }
    // The longer word first: both have one size.
    double points = isLarge ? 10 : 8;
    for (size_t row = 0; row < 2; ++row) {
        const QWidget& first = *cmdAtome.at(row == 0 ? 57 : 89);
        const int right = first.x() - ToPixels(100);
        SetPointsWithin(*lblAc.at(row), points, right);
        points = lblAc.at(row)->font().pointSizeF();
        lblAc.at(row)->move(right - lblAc.at(row)->width(),
                            first.y() + (first.height() - lblAc.at(row)->height()) / 2);
    }
    // From the first column to the thirteenth; the second one begins lower.
    const double middle = kLeft + layout.side * 6.5;
    SetPointsWithin(*lblTitre, isLarge ? 18 : 10, Pixels(layout.side * 9) - 16);
    lblTitre->move(Pixels(middle) - lblTitre->width() / 2, Pixels(layout.top + layout.side * 0.7));
}

frmTableauPeriodique::LegendGrid frmTableauPeriodique::Legend()
{
    LegendGrid grid;
    const bool isNarrow = width() < kLegendNarrow;
    grid.side = isNarrow ? 20 : 26;
    grid.rowHeight = grid.side + (isNarrow ? 4 : 6);
    grid.headHeight = fraLegende->fontMetrics().height() + 10;
    int widest = 0;
    for (QLabel* const label : m_legend) {
        SetPoints(*label, isNarrow ? 8 : fraLegende->font().pointSizeF());
        widest = std::max(widest, label->sizeHint().width());
    }
    const int column = grid.side + grid.gap + widest;
    const int room = width() - 3 * kLegendMargin;
    // The families, then the states: in one row, in two, or in three.
    const int states = kSamples - kFamilies;
    if (room >= kSamples * (column + kLegendMargin))
        grid.columns = kSamples;
    else if (room >= states * column)
        grid.columns = states;
    else
        grid.columns = kFamilies;
    grid.columnWidth = std::min(room / grid.columns, column + 2 * kLegendMargin);
    const int rows = grid.columns == kSamples ? 1 : 1 + (states + grid.columns - 1) / grid.columns;
    grid.height = grid.headHeight + rows * grid.rowHeight + 4;
    return grid;
}

void frmTableauPeriodique::PlaceLegend(const LegendGrid& grid, int top)
{
    const int legendWidth = grid.columns * grid.columnWidth + 2 * kLegendMargin;
    fraLegende->setGeometry((width() - legendWidth) / 2, top, legendWidth, grid.height);
    const bool isOneRow = grid.columns == kSamples;
    for (int i = 0; i < kSamples; ++i) {
        const auto place = static_cast<size_t>(i);
        const bool isState = !isOneRow && i >= kFamilies;
        const int inRow = isState ? (i - kFamilies) % grid.columns : i;
        const int row = isState ? 1 + (i - kFamilies) / grid.columns : 0;
        const int x = kLegendMargin + inRow * grid.columnWidth;
        const int y = grid.headHeight + row * grid.rowHeight;
        cmdAtome.at(kElementCount + place)->setGeometry(x, y, grid.side, grid.side);
        const int before = grid.side + grid.gap;
        m_legend.at(place)->setGeometry(x + before, y, grid.columnWidth - before, grid.side);
    }
}

void frmTableauPeriodique::MoveFocus(int from, int dx, int dy)
{
    cmdAtome.at(static_cast<size_t>(NeighbourOf(m_layout, from, dx, dy)))->setFocus(Qt::OtherFocusReason);
}

void frmTableauPeriodique::resizeEvent(QResizeEvent* event)
{
    Form::resizeEvent(event);
    KeepSmallSize();
    LayOut();
}

void frmTableauPeriodique::showEvent(QShowEvent* event)
{
    LayOut();
    Form::showEvent(event);
}

} // namespace stoikal
