#include "tools/windows/frm_chrono.h"

#include "forms/colours.h"
#include "forms/style.h"
#include "platform/doors.h"

#include <QIcon>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRegion>
#include <QSignalBlocker>
#include <QSlider>
#include <QTimer>
#include <QToolButton>
#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace stoikal {
namespace {

constexpr int kTickMs = 100;
const QColor kCase(0xC9, 0xD8, 0xF0); ///< the ordinary colour of the watch
const QColor kAlarm(255, 0, 0);
constexpr int kDarkGround = 110; ///< grey below which white is the better ink

} // namespace

frmChrono::frmChrono(StopwatchSeconds& seconds, Clock& clock, Sound& sound, QChar separator, QWidget* parent)
    : Form(QStringLiteral("frmChrono"), QStringLiteral("Chronomètre"), Kind::Tool, parent)
    , m_seconds(seconds)
    , m_clock(clock)
    , m_sound(sound)
    , m_separator(separator)
    , m_stopwatch(clock.CountsPerSecond())
    , tmrChrono(Named(new QTimer(this), QStringLiteral("tmrChrono")))
{
    setWindowFlag(Qt::FramelessWindowHint);
    StayOnPaper(*this);
    BuildControls();
    PlaceControls();
    SetBackColour(kCase);
    tmrChrono->setInterval(kTickMs);
    connect(tmrChrono, &QTimer::timeout, this, &frmChrono::tmrChrono_Timer);
    lblTime->setText(StopwatchReading(0, m_separator));
    ShowState();
}

void frmChrono::BuildControls()
{
    lblEcran = Named(new QLabel(this), QStringLiteral("lblEcran"));
    lblEcran->setFrameShape(QFrame::StyledPanel);
    lblEcran->setAutoFillBackground(true);
    QPalette screen = lblEcran->palette();
    screen.setColor(QPalette::Window, QColor(0xE6, 0xEE, 0xDD));
    lblEcran->setPalette(screen);

    lblTime = Named(new QLabel(lblEcran), QStringLiteral("lblTime"));
    QFont digits(QStringLiteral("Liberation Sans"));
    digits.setStyleHint(QFont::SansSerif);
    digits.setPointSize(22);
    digits.setBold(true);
    lblTime->setFont(digits);
    lblTime->setAlignment(Qt::AlignCenter);

    lblOnOff = Named(new QLabel(QStringLiteral("MARCHE"), lblEcran), QStringLiteral("lblOnOff"));
    lblStop = Named(new QLabel(QStringLiteral("STOP"), lblEcran), QStringLiteral("lblStop"));
    lblAlarme = Named(new QLabel(QStringLiteral("ALARME"), lblEcran), QStringLiteral("lblAlarme"));
    QFont small = font();
    small.setPointSizeF(8);
    small.setBold(true);
    for (QLabel* const label : {lblOnOff, lblStop, lblAlarme})
        label->setFont(small);

    chkStart_Stop = Named(new QToolButton(this), QStringLiteral("chkStart_Stop"),
                          QStringLiteral("Démarrer ou suspendre"));
    chkStart_Stop->setCheckable(true);
    chkAlarme = Named(new QToolButton(this), QStringLiteral("chkAlarme"), QStringLiteral("Alarme"));
    chkAlarme->setIcon(QIcon(QStringLiteral(":/icons/bell.png")));
    chkAlarme->setCheckable(true);
    chkAlarme->setToolTip(QStringLiteral("Pour déclencher l'alarme."));
    sldAlarme = Named(new QSlider(Qt::Horizontal, this), QStringLiteral("sldAlarme"),
                      QStringLiteral("Intervalle de l'alarme en secondes"));
    sldAlarme->setRange(1, 10);
    sldAlarme->setValue(5);
    sldAlarme->setPageStep(1);
    sldAlarme->setTickPosition(QSlider::TicksBelow);
    sldAlarme->setToolTip(QStringLiteral("Pour augmenter ou diminuer l'intervalle de temps"));
    Label1 = Named(new QLabel(QStringLiteral("1s         5s           10s"), this), QStringLiteral("Label1"));
    QFont scale = font();
    scale.setPointSizeF(8);
    Label1->setFont(scale);
    cmdRAZ = Named(new QPushButton(this), QStringLiteral("cmdRAZ"), QStringLiteral("Remise à zéro"));
    cmdRAZ->setIcon(QIcon(QStringLiteral(":/icons/reset.png")));
    cmdRAZ->setToolTip(QStringLiteral("Pour remettre à zéro le chronomètre."));
    cmdEnd = Named(new QPushButton(this), QStringLiteral("cmdEnd"), QStringLiteral("Fermer le chronomètre"));
    cmdEnd->setIcon(QIcon(QStringLiteral(":/icons/close.png")));
    cmdEnd->setToolTip(QStringLiteral("Pour fermer le chronomètre."));
    for (QToolButton* const button : {chkStart_Stop, chkAlarme})
        button->setFocusPolicy(Qt::StrongFocus);

    QWidget* before = chkStart_Stop;
    for (QWidget* const next : std::initializer_list<QWidget*>{cmdRAZ, chkAlarme, sldAlarme, cmdEnd}) {
        setTabOrder(before, next);
        before = next;
    }

    // A program's change of the start button counts as a click, as by hand.
    connect(chkStart_Stop, &QToolButton::toggled, this, &frmChrono::chkStart_Stop_Click);
    connect(chkAlarme, &QToolButton::toggled, this, &frmChrono::chkAlarme_Click);
    connect(sldAlarme, &QSlider::valueChanged, this, [this](int seconds) {
        sldAlarme->setToolTip(
            QStringLiteral("Pour augmenter ou diminuer l'intervalle de temps (%1 s)").arg(seconds));
    });
    connect(cmdRAZ, &QPushButton::clicked, this, &frmChrono::cmdRAZ_Click);
    connect(cmdEnd, &QPushButton::clicked, this, &frmChrono::CloseAsked);
}

void frmChrono::PlaceControls()
{
    // Everything stands inside the ellipse that the window is cut to, and grows
    // with the type: told for a line of 14 pixels.
    const double scale = std::max(1.0, fontMetrics().height() / 14.0);
    const auto px = [scale](double pixels) { return static_cast<int>(std::lround(pixels * scale)); };
    const auto place = [&px](QWidget* widget, int x, int y, int width, int height) {
        widget->setGeometry(px(x), px(y), px(width), px(height));
    };
    resize(px(300), px(240));
    place(lblEcran, 70, 26, 160, 70);
    place(lblTime, 2, 18, 156, 50);
    place(lblStop, 8, 3, 68, 16);
    place(lblOnOff, 8, 3, 68, 16);
    place(lblAlarme, 86, 3, 66, 16);
    lblAlarme->setAlignment(Qt::AlignRight);
    place(chkStart_Stop, 66, 104, 48, 30);
    place(cmdRAZ, 126, 104, 48, 30);
    place(chkAlarme, 186, 104, 48, 30);
    place(sldAlarme, 75, 140, 150, 24);
    place(Label1, 75, 164, 150, 16);
    Label1->setAlignment(Qt::AlignCenter);
    // The scale's blanks are stretched so that its ends stand under those of the slider.
    QFont scaleFont = Label1->font();
    const double natural = QFontMetricsF(scaleFont).horizontalAdvance(Label1->text());
    constexpr int kGaps = 2; // Each run of blanks counts once.
    scaleFont.setWordSpacing((px(150) - 2 - natural) / kGaps);
    Label1->setFont(scaleFont);
    place(cmdEnd, 126, 186, 48, 30);
    for (QAbstractButton* const button :
         std::initializer_list<QAbstractButton*>{chkStart_Stop, chkAlarme, cmdRAZ, cmdEnd})
        button->setIconSize(QSize(px(18), px(18)));
}

void frmChrono::SetBackColour(const QColor& colour)
{
    QPalette wanted = palette();
    if (wanted.color(QPalette::Window) == colour)
        return;
    wanted.setColor(QPalette::Window, colour);
    setPalette(wanted);
    // The scale stands on the case itself; the other words on the display.
    QPalette scale = Label1->palette();
    scale.setColor(QPalette::WindowText, qGray(colour.rgb()) < kDarkGround ? colours::kPaper : colours::kInk);
    Label1->setPalette(scale);
}

void frmChrono::SetButtonsEnabled(bool enabled)
{
    cmdRAZ->setEnabled(enabled);
    chkStart_Stop->setEnabled(enabled);
}

void frmChrono::chkStart_Stop_Click()
{
    m_stopwatch.StartOrSuspend(m_clock.Counter());
    ShowState();
}

void frmChrono::chkAlarme_Click()
{
    if (!chkAlarme->isChecked())
        SetBackColour(kCase);
    ShowState();
}

void frmChrono::cmdRAZ_Click()
{
    m_stopwatch.Reset();
    m_seconds.BankedSeconds = 0;
    m_seconds.ElapsedSeconds = 0;
    lblTime->setText(StopwatchReading(0, m_separator));
    SetBackColour(kCase);
    ShowState();
}

void frmChrono::StartRun()
{
    m_stopwatch.RestartFrom(m_clock.Counter());
    ShowState();
}

void frmChrono::StopRun()
{
    if (!IsRunning())
        return;
    m_stopwatch.StartOrSuspend(m_clock.Counter());
    ShowState();
}

void frmChrono::tmrChrono_Timer()
{
    m_seconds.ElapsedSeconds = m_stopwatch.SecondsAt(m_clock.Counter(), m_seconds.BankedSeconds);
    lblTime->setText(StopwatchReading(m_seconds.ElapsedSeconds, m_separator));
    if (!chkAlarme->isChecked())
        return;
    if (AlarmSounds(m_seconds.ElapsedSeconds, sldAlarme->value())) {
        m_sound.Beep();
        SetBackColour(kAlarm);
    } else {
        SetBackColour(palette().color(QPalette::Active, QPalette::Highlight));
    }
}

void frmChrono::ShowState()
{
    const Stopwatch::State state = m_stopwatch.CurrentState();
    const bool isRunning = state == Stopwatch::State::Running;
    lblOnOff->setVisible(isRunning);
    lblStop->setVisible(!isRunning);
    lblStop->setText(state == Stopwatch::State::Suspended ? QStringLiteral("ARRET") : QStringLiteral("STOP"));
    lblAlarme->setVisible(chkAlarme->isChecked());
    chkStart_Stop->setIcon(
        QIcon(isRunning ? QStringLiteral(":/icons/pause.png") : QStringLiteral(":/icons/start.png")));
    chkStart_Stop->setToolTip(isRunning ? QStringLiteral("Pour suspendre le chronomètre.")
                                        : QStringLiteral("Pour démarrer le chronomètre."));
    const QSignalBlocker quiet(chkStart_Stop);
    chkStart_Stop->setChecked(isRunning);
    if (isRunning && !tmrChrono->isActive())
        tmrChrono->start();
    else if (!isRunning)
        tmrChrono->stop();
}

void frmChrono::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.setPen(QPen(colours::kInk, 2));
    painter.drawEllipse(QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5));
}

void frmChrono::resizeEvent(QResizeEvent* event)
{
    Form::resizeEvent(event);
    if (!isMinimized())
        setMask(QRegion(rect(), QRegion::Ellipse));
}

void frmChrono::mousePressEvent(QMouseEvent* event)
{
    // Without a title bar the watch is moved by its case.
    m_grip = event->globalPosition().toPoint() - pos();
}

void frmChrono::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        move(event->globalPosition().toPoint() - m_grip);
}

} // namespace stoikal
