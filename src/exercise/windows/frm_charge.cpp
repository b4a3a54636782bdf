#include "exercise/windows/frm_charge.h"

#include "base/places.h"
#include "base/settings_store.h"
#include "exercise/charge_place.h"
#include "exercise/charge_totals.h"
#include "exercise/run_state.h"
#include "exercise/side_colours.h"
#include "forms/colours.h"
#include "forms/place.h"
#include "forms/style.h"
#include "platform/doors.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QTimer>

namespace stoikal {
namespace {

const char kSection[] = "Charge Window";

QLabel* TotalLabel(QFrame* shape, const QString& name, const QString& accessibleName)
{
    auto* const label = Named(new QLabel(shape), name, accessibleName);
    QFont font(QStringLiteral("Liberation Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPointSize(16);
    font.setBold(true);
    label->setFont(font);
    label->setAlignment(Qt::AlignCenter);
    auto* const layout = new QGridLayout(shape);
    layout->addWidget(label);
    return label;
}

void Fill(QFrame* shape, const QColor& colour)
{
    QPalette palette = shape->palette();
    palette.setColor(QPalette::Window, colour);
    shape->setPalette(palette);
}

} // namespace

frmCharge::frmCharge(const RunState& run, const Places& places, Settings& settings, const Screen& screen,
                     QWidget* parent)
    : Form(QStringLiteral("frmCharge"), QStringLiteral("Total des charges"), Kind::Tool, parent)
    , m_run(run)
    , m_places(places)
    , m_settings(settings)
    , m_screen(screen)
    , tmrPlace(Named(new QTimer(this), QStringLiteral("tmrPlace")))
{
    tmrPlace->setSingleShot(true);
    tmrPlace->setInterval(200);
    connect(tmrPlace, &QTimer::timeout, this, &frmCharge::RememberPlace);
    StayOnPaper(*this);
    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(12, 8, 12, 12);
    layout->setSpacing(8);
    const QString titles[]{QStringLiteral("Réactifs"), QStringLiteral("Produits")};
    for (int side = 0; side < 2; ++side) {
        auto* const title = Named(new QLabel(titles[side], this), ArrayName("lblTitre", side));
        title->setAlignment(Qt::AlignCenter);
        layout->addWidget(title, 0, side);
        shpColor[side] = Named(new QFrame(this), ArrayName("shpColor", side));
        shpColor[side]->setAutoFillBackground(true);
        shpColor[side]->setFrameShape(QFrame::Box);
        shpColor[side]->setMinimumSize(88, 56);
        layout->addWidget(shpColor[side], 1, side);
    }
    lblChargeReac = TotalLabel(shpColor[0], QStringLiteral("lblChargeReac"),
                               QStringLiteral("Charge totale des réactifs"));
    lblChargeProd = TotalLabel(shpColor[1], QStringLiteral("lblChargeProd"),
                               QStringLiteral("Charge totale des produits"));
    RefreshColours();
    ShowTotals();
    // Wide enough for its title bar.
    setFixedSize(sizeHint().expandedTo(QSize(250, 0)));
}

void frmCharge::RefreshColours()
{
    Fill(shpColor[0], FromBgr(SideColour(m_settings, Side::Reactants)));
    Fill(shpColor[1], FromBgr(SideColour(m_settings, Side::Products)));
}

void frmCharge::ShowTotals()
{
    lblChargeReac->setText(ChargeLabel(m_run.ChargeTotalReactants));
    lblChargeProd->setText(ChargeLabel(m_run.ChargeTotalProducts));
    lblChargeReac->setAccessibleName(
        QStringLiteral("Charge totale des réactifs : %1").arg(lblChargeReac->text()));
    lblChargeProd->setAccessibleName(
        QStringLiteral("Charge totale des produits : %1").arg(lblChargeProd->text()));
}

void frmCharge::OpenBeside(const QWidget& exercise)
{
    // The frame must not lie over the exercise either. It is known only some time
    // after the window is shown; the exercise's own frame, which is, stands for it.
    const QRect frame = exercise.frameGeometry();
    const QSize size = this->size() + (frame.size() - exercise.size());
    const QPoint corner = frame.topLeft() - m_screen.WorkArea().topLeft();
    const ChargePlaceInput input{
        m_settings.Read(QLatin1String(kSection), QStringLiteral("Left")),
        m_settings.Read(QLatin1String(kSection), QStringLiteral("Top")),
        QSize(FromPixels(size.width()), FromPixels(size.height())),
        QRect(FromPixels(corner.x()), FromPixels(corner.y()), FromPixels(frame.width()),
              FromPixels(frame.height())),
        m_places.LargeurUtile,
        m_places.HauteurUtile,
    };
    const QPoint place = ChargePlace(input);
    // Placed before it is shown: a place given later would be taken for that of
    // the inside while the frame is not known, and the window would wander.
    PlaceWindow(*this, m_screen, place.x(), place.y());
    show();
    m_placed = true;
    RememberPlace();
}

void frmCharge::RememberPlace()
{
    const QPoint place = PlaceOf(*this, m_screen);
    m_settings.Remember(QLatin1String(kSection), QStringLiteral("Left"), QString::number(place.x()));
    m_settings.Remember(QLatin1String(kSection), QStringLiteral("Top"), QString::number(place.y()));
}

void frmCharge::moveEvent(QMoveEvent* event)
{
    Form::moveEvent(event);
    if (m_placed && isVisible())
        tmrPlace->start();
}

void frmCharge::hideEvent(QHideEvent* event)
{
    if (m_placed)
        RememberPlace();
    tmrPlace->stop();
    Form::hideEvent(event);
}

} // namespace stoikal
