#include "simulation/windows/frm_simul_anim.h"

#include "forms/colours.h"
#include "forms/filter_edit.h"
#include "forms/messages.h"
#include "forms/picture_surface.h"
#include "forms/style.h"
#include "platform/doors.h"
#include "simulation/number_entry.h"
#include "simulation/run_clock.h"
#include "simulation/windows/plot_surface.h"
#include "simulation/windows/run_button.h"
#include "simulation/windows/wave_handle.h"

#include <QFrame>
#include <QLabel>
#include <QPainter>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <numeric>

namespace stoikal {
namespace {

const QColor kRunning(255, 0, 0);
const QColor kStopped(0, 255, 0);
constexpr std::array<std::int32_t, kKinds> kFirstNumbers{200, 150, 50, 20, 50};

} // namespace

frmSimulAnim::frmSimulAnim(const Doors& doors, QWidget* parent)
    : Form(QStringLiteral("frmSimulAnim"), QStringLiteral("Représentation dynamique de l'avancement"),
           Kind::Child, parent)
    , m_doors(doors)
    , m_plot(this)
    , m_curves(m_plot, doors.clock.CountsPerSecond(), doors.separator)
{
    StayOnPaper(*this);
    setAutoFillBackground(true);
    setMouseTracking(true);
    Build();
    LoadNumbers();
    Connect();
    for (int i = 0; i < 2; ++i)
        sldChoc_Change(i);
    ShowState();
}

void frmSimulAnim::LoadNumbers()
{
    for (std::size_t i = 0; i < kKinds; ++i) {
        txtMol.at(i)->setText(QString::number(kFirstNumbers.at(i)));
        m_particles.SetInitialCount(i, kFirstNumbers.at(i));
    }
    m_curves.ResetSimHistory(kFirstNumbers);
    m_curves.TakeNumbers(kFirstNumbers);
    m_curves.ReadTypedScale();
}

void frmSimulAnim::Connect()
{
    for (int i = 0; i < kKindBoxes; ++i) {
        FilterEdit* const box = txtMol.at(static_cast<std::size_t>(i));
        connect(box, &FilterEdit::KeyPressed, this, [this, i](QChar key) { txtMol_KeyPress(i, key); });
        connect(box, &QLineEdit::textChanged, this, [this, i] { txtMol_Change(i); });
    }
    // A program's change of the start button counts as a click, as by hand.
    connect(chkStart, &RunButton::toggled, this, &frmSimulAnim::chkStart_Click);
    connect(tmrAnim, &QTimer::timeout, this, &frmSimulAnim::tmrAnim_Timer);
    for (int i = 0; i < 2; ++i)
        connect(sldChoc.at(static_cast<std::size_t>(i)), &QSlider::valueChanged, this,
                [this, i] { sldChoc_Change(i); });
    connect(sldWidth, &QSlider::valueChanged, this, &frmSimulAnim::sldWidth_Change);
    connect(optY[0], &QRadioButton::toggled, this, [this](bool isNumbers) {
        m_curves.optY_Click(isNumbers ? PlotQuantity::ParticleNumbers : PlotQuantity::Quotient);
        ShowState();
    });
    connect(cmdCopy, &QToolButton::clicked, this, &frmSimulAnim::cmdCopy_Click);
    connect(picWave, &WaveHandle::Dragged, this, &frmSimulAnim::picWave_MouseMove);
    connect(picWave, &WaveHandle::Stepped, this, &frmSimulAnim::picWave_Stepped);
    const PlotSurface* const plot = &m_plot.Curves();
    connect(plot, &PlotSurface::Moved, this, &frmSimulAnim::picCourbe_MouseMove);
    connect(plot, &PlotSurface::Released, this,
            [this](const QPointF& share) { m_curves.picCourbe_MouseUp(m_curves.ToPlot(share).y()); });
    connect(plot, &PlotSurface::DoubleClicked, this, [this] { m_curves.picCourbe_DblClick(); });
}

KindNumbers frmSimulAnim::TypedNumbers() const
{
    KindNumbers typed{};
    for (std::size_t i = 0; i < kKinds; ++i)
        typed.at(i) = TypedCount(txtMol.at(i)->text());
    return typed;
}

void frmSimulAnim::ShowState()
{
    const bool isDown = chkStart->isChecked();
    chkStart->setText(isDown ? QStringLiteral("Arrêter l'animation") : QStringLiteral("Lancer l'animation"));
    chkStart->SetBackColour(isDown ? kRunning : kStopped);
    if (!isDown)
        lblEtat->setText(
            QStringLiteral("À l'arrêt. Une animation commence toujours par les quantités initiales."));
    else if (tmrAnim->isActive())
        lblEtat->setText(QStringLiteral("Animation en cours. Changer un réglage l'arrête."));
    else
        lblEtat->setText(QStringLiteral("La fenêtre a changé de taille, l'animation est interrompue\u00A0: "
                                        "arrêtez-la, puis relancez-la."));
    lblAide->setText(
        m_curves.Quantity() == PlotQuantity::Quotient
            ? QStringLiteral("Un clic sur le graphique en fixe le haut à cette valeur de Qr, un "
                             "double-clic à sa valeur actuelle.")
            : QStringLiteral("Chaque courbe a la couleur de son espèce\u00A0; une bulle donne les "
                             "valeurs sous la souris."));
}

void frmSimulAnim::chkStart_Click()
{
    if (chkStart->isChecked()) {
        m_curves.StartRun(m_doors.clock.Counter(), TypedNumbers());
        txtCompteur->setText(ClockReading(0));
        PlaceParticles();
        tmrAnim->start();
    } else {
        tmrAnim->stop();
    }
    ShowState();
}

void frmSimulAnim::StopAnimation()
{
    chkStart->setChecked(false);
}

void frmSimulAnim::ResetSimHistory()
{
    m_curves.ResetSimHistory(TypedNumbers());
    txtCompteur->setText(ClockReading(0));
}

void frmSimulAnim::PlaceParticles()
{
    m_particles.PlaceParticles(picMilieu->width(), picMilieu->height(), sldWidth->value(),
                               [this] { return m_doors.randomness.Uniform(); });
    picMilieu->SetScale({0, 0}, {kBoxWidth, m_particles.State().BoxHeight()});
    ShowParticles();
    tmrAnim->stop();
}

void frmSimulAnim::ShowParticles()
{
    const ParticleState& state = m_particles.State();
    picMilieu->Clear();
    const auto last = static_cast<std::size_t>(state.ParticleCount);
    for (std::size_t i = 1; i <= last; ++i)
        picMilieu->DrawDisc({state.ParticleX[i], state.ParticleY[i]}, state.ParticleRadius,
                            FromBgr(state.DrawnColor[i]));
    for (std::size_t kind = 0; kind < kKinds; ++kind)
        lblMol.at(kind)->setText(QString::number(state.KindCount.at(kind)));
}

void frmSimulAnim::tmrAnim_Timer()
{
    m_curves.BeginTick(m_doors.clock.Counter());
    txtCompteur->setText(ClockReading(m_curves.RunSeconds()));
    m_particles.AnimationTick({sldChoc[0]->value(), sldChoc[1]->value()});
    ShowParticles();
    m_curves.EndTick(m_particles.State().KindCount);
}

void frmSimulAnim::txtMol_KeyPress(int index, QChar key)
{
    FilterEdit& box = *txtMol.at(static_cast<std::size_t>(index));
    const CountKey judged = JudgeCountKey(key, box.LengthBeforeKey());
    if (judged == CountKey::NotJudged) {
        m_doors.sound.Beep();
        return;
    }
    m_lastKey = key;
    m_badKeyFlag = judged != CountKey::Accepted;
    if (!m_badKeyFlag || box.RefusalIsTold())
        return;
    box.NoteRefusal();
    m_doors.messages.InputError(this,
                                judged == CountKey::DecimalSign
                                    ? QStringLiteral("Les nombres décimaux ne sont pas autorisés.")
                                    : QStringLiteral("Veuillez saisir un chiffre."));
}

void frmSimulAnim::txtMol_Change(int index)
{
    FilterEdit& box = *txtMol.at(static_cast<std::size_t>(index));
    StopAnimation();
    ResetSimHistory();
    if (!box.text().isEmpty() && m_badKeyFlag && !m_lastKey.isEmpty()) {
        m_badKeyFlag = false;
        const qsizetype place = box.text().indexOf(m_lastKey);
        box.setText(WithoutKey(box.text(), m_lastKey.front()));
        box.setCursorPosition(static_cast<int>(place));
        return;
    }
    const KindNumbers typed = TypedNumbers();
    const auto total = std::accumulate(typed.begin(), typed.end(), std::int64_t{0});
    const auto kind = static_cast<std::size_t>(index);
    if (total > kMostParticles) {
        m_doors.messages.Information(this, QStringLiteral("Stoikal"),
                                     QStringLiteral("Le nombre total de particules est limité à 1000."));
        box.setText(QString::number(typed.at(kind) - (total - kMostParticles)));
        return;
    }
    m_particles.SetInitialCount(kind, typed.at(kind));
    m_curves.TakeNumbers(typed);
    PlaceParticles();
    m_curves.ReadTypedScale();
}

void frmSimulAnim::sldChoc_Change(int index)
{
    const auto place = static_cast<std::size_t>(index);
    StopAnimation();
    ResetSimHistory();
    m_particles.ResetTallies();
    lblChoc.at(place)->setText(QStringLiteral("%1%").arg(sldChoc.at(place)->value()));
}

void frmSimulAnim::sldWidth_Change()
{
    StopAnimation();
    PlaceParticles();
}

void frmSimulAnim::picWave_MouseMove(Twips y, Twips rememberedY)
{
    StopAnimation();
    m_thermometer.Drag(y, rememberedY);
    TakeSpeed();
}

void frmSimulAnim::picWave_Stepped(int steps)
{
    StopAnimation();
    m_thermometer.Step(steps);
    TakeSpeed();
}

void frmSimulAnim::TakeSpeed()
{
    picWave->move(picWave->x(), ToPixels(m_thermometer.WaveTop()));
    m_particles.SetThermalSpeed(m_thermometer.ThermalSpeed());
}

bool frmSimulAnim::IsCurveColour(const QColor& colour) const
{
    for (std::size_t kind = kKindA; kind <= kKindD; ++kind) {
        if (colour.isValid() && ToBgr(colour) == KindColor.at(kind))
            return true;
    }
    return false;
}

void frmSimulAnim::picCourbe_MouseMove(const QPoint& pixel, const QPointF& share)
{
    PlotSurface& plot = m_plot.Curves();
    plot.setToolTip(IsCurveColour(plot.ColourAt(pixel)) ? m_curves.ReadOut(m_curves.ToPlot(share))
                                                        : QString());
}

void frmSimulAnim::cmdCopy_Click()
{
    m_doors.clipboard.SetImage(m_plot.Copy(devicePixelRatioF()));
}

void frmSimulAnim::resizeEvent(QResizeEvent* event)
{
    Form::resizeEvent(event);
    ResizeForm();
    txtCompteur->setText(ClockReading(0));
    m_curves.DrawSimAxes();
    PlaceParticles();
    ShowState();
}

void frmSimulAnim::paintEvent(QPaintEvent* /*event*/)
{
    // The box and the plot lie on the window as sheets of paper with a rim.
    QPainter painter(this);
    for (const QRect& sheet : {picMilieu->geometry(), m_plot.Surroundings(), picThermo->geometry()}) {
        painter.fillRect(sheet.adjusted(-1, -1, 1, 1), colours::kLine.darker(125));
        painter.fillRect(sheet, colours::kPaper);
    }
}

} // namespace stoikal
