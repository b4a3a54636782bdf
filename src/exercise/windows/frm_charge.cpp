#include "exercise/windows/frm_charge.h"

#include "base/session_state.h"
#include "base/settings_store.h"
#include "exercise/charge_place.h"
#include "exercise/charge_totals.h"
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

frmCharge::frmCharge(const SessionState& session, Settings& settings, const Screen& screen, QWidget* parent)
    : Form(QStringLiteral("frmCharge"), QStringLiteral("Total des charges"), Kind::Tool, parent)
    , m_session(session)
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
        auto* const title = new QLabel(titles[side], this);
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
    setFixedSize(sizeHint());
}

void frmCharge::RefreshColours()
{
    Fill(shpColor[0], FromBgr(SideColour(m_settings, Side::Reactants)));
    Fill(shpColor[1], FromBgr(SideColour(m_settings, Side::Products)));
}

void frmCharge::ShowTotals()
{
    lblChargeReac->setText(ChargeLabel(m_session.ChargeTotalReactants));
    lblChargeProd->setText(ChargeLabel(m_session.ChargeTotalProducts));
}

void frmCharge::OpenBeside(const QWidget& exercise)
{
    // Only a window that is shown knows its frame, which must not lie over the exercise either.
    show();
    const QSize size = frameGeometry().size();
    const QRect frame = exercise.frameGeometry();
    const QPoint corner = frame.topLeft() - m_screen.WorkArea().topLeft();
    const ChargePlaceInput input{
        m_settings.Read(QLatin1String(kSection), QStringLiteral("Left")),
        m_settings.Read(QLatin1String(kSection), QStringLiteral("Top")),
        QSize(FromPixels(size.width()), FromPixels(size.height())),
        QRect(FromPixels(corner.x()), FromPixels(corner.y()), FromPixels(frame.width()),
              FromPixels(frame.height())),
        m_session.LargeurUtile,
        m_session.HauteurUtile,
    };
    const QPoint place = ChargePlace(input);
    PlaceWindow(*this, m_screen, place.x(), place.y());
    m_placed = true;
    RememberPlace();
}

void frmCharge::RememberPlace()
{
    const QPoint place = PlaceOf(*this, m_screen);
    m_settings.Write(QLatin1String(kSection), QStringLiteral("Left"), QString::number(place.x()));
    m_settings.Write(QLatin1String(kSection), QStringLiteral("Top"), QString::number(place.y()));
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
