#include "simulation/windows/frm_simul_anim.h"

#include "forms/colours.h"
#include "forms/filter_edit.h"
#include "forms/picture_surface.h"
#include "simulation/windows/plot_surface.h"
#include "simulation/windows/run_button.h"
#include "simulation/windows/wave_handle.h"

#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <cmath>
#include <initializer_list>

namespace stoikal {
namespace {

constexpr int kGap = 8;
constexpr int kBetweenFrames = 8;

QLabel* TextLabel(QWidget* parent, const char* name, const QString& text)
{
    return Named(new QLabel(text, parent), QLatin1String(name));
}

void SetInk(QWidget& widget, const QColor& colour)
{
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, colour);
    widget.setPalette(palette);
}

QFont Enlarged(const QFont& font, double points)
{
    QFont larger = font;
    larger.setPointSizeF(font.pointSizeF() + points);
    larger.setBold(true);
    return larger;
}

QSlider* HorizontalSlider(QWidget* parent, const QString& name, const QString& accessibleName)
{
    auto* const slider = Named(new QSlider(Qt::Horizontal, parent), name, accessibleName);
    slider->setTickPosition(QSlider::TicksBelow);
    return slider;
}

} // namespace

void frmSimulAnim::Build()
{
    BuildNumbers();
    picMilieu = Named(new PictureSurface(this), QStringLiteral("picMilieu"),
                      QStringLiteral("Milieu réactionnel avec ses particules"));
    BuildThermometer();
    BuildTabs();
    BuildShares();
    lblEtat = TextLabel(this, "lblEtat", {});
    lblAide = TextLabel(this, "lblAide", {});
    for (QLabel* const line : {lblEtat, lblAide}) {
        SetInk(*line, colours::kSecondInk);
        line->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        line->setWordWrap(true);
    }
    tmrAnim = Named(new QTimer(this), QStringLiteral("tmrAnim"));
    tmrAnim->setInterval(100);
    // The first tick must not come before a tenth of a second has passed: its time
    // becomes the period of sampling.
    tmrAnim->setTimerType(Qt::PreciseTimer);
    OrderTabs();
    setMinimumSize(LeastWidth(), 420);
}

void frmSimulAnim::BuildNumbers()
{
    fraNbrMol = Named(new QGroupBox(QStringLiteral("Nombre de particules de chaque corps chimique :"), this),
                      QStringLiteral("fraNbrMol"));
    Label1 = TextLabel(fraNbrMol, "Label1", QStringLiteral("+"));
    Label2 = TextLabel(fraNbrMol, "Label2", QStringLiteral("+"));
    Label3 = TextLabel(fraNbrMol, "Label3", QStringLiteral("="));
    Label4 = TextLabel(fraNbrMol, "Label4", QStringLiteral("Quantité initiale : "));
    Label5 = TextLabel(fraNbrMol, "Label5", QStringLiteral("Quantité au cours de l'avancement : "));
    Label5->setWordWrap(true);
    auto* const grid = new QGridLayout(fraNbrMol);
    grid->setContentsMargins(kGap, 6, kGap, kGap);
    grid->setHorizontalSpacing(2); // at the least: the columns share what is left
    grid->setVerticalSpacing(4);
    grid->addWidget(Label4, 1, 0);
    grid->addWidget(Label5, 2, 0);
    // A + B = C + D, and the solvent apart.
    const std::array<int, kKinds> columns{1, 3, 5, 7, 9};
    const QString captions[]{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"),
                             QStringLiteral("D"), QStringLiteral("solvant")};
    for (int i = 0; i < kKindBoxes; ++i) {
        const auto place = static_cast<std::size_t>(i);
        QLabel* const letter = Named(new QLabel(captions[i], fraNbrMol), ArrayName("lblCorps", i));
        letter->setFont(Enlarged(font(), i == kKindBoxes - 1 ? 1 : 4));
        letter->setAlignment(Qt::AlignCenter);
        SetInk(*letter, FromBgr(KindColor.at(place)));
        FilterEdit* const box = Named(new FilterEdit(fraNbrMol), ArrayName("txtMol", i),
                                      QStringLiteral("Quantité initiale de %1").arg(captions[i]));
        box->setAlignment(Qt::AlignCenter);
        box->setFixedWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("0000")) + 12);
        QLabel* const number
            = Named(new QLabel(fraNbrMol), ArrayName("lblMol", i),
                    QStringLiteral("Quantité de %1 au cours de l'avancement").arg(captions[i]));
        number->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        // With a ground and a size of its own the frame around it is neither painted
        // nor laid out again at each tick.
        number->setAutoFillBackground(true);
        number->setFixedSize(box->width(), number->fontMetrics().height() + kGap);
        number->setAlignment(Qt::AlignCenter);
        lblCorps.at(place) = letter;
        txtMol.at(place) = box;
        lblMol.at(place) = number;
        grid->addWidget(letter, 0, columns.at(place), Qt::AlignCenter);
        grid->addWidget(box, 1, columns.at(place), Qt::AlignCenter);
        grid->addWidget(number, 2, columns.at(place), Qt::AlignCenter);
    }
    grid->addWidget(Label1, 0, 2);
    grid->addWidget(Label3, 0, 4);
    grid->addWidget(Label2, 0, 6);
    for (QLabel* const sign : {Label1, Label2, Label3}) {
        sign->setFont(Enlarged(font(), 4));
        sign->setAlignment(Qt::AlignCenter);
    }
    // What is left over spreads the letters and their boxes.
    for (const int column : {0, 2, 4, 6, 8})
        grid->setColumnStretch(column, 1);
}

void frmSimulAnim::BuildThermometer()
{
    lblTemperature = TextLabel(this, "lblTemperature", QStringLiteral("Température du milieu"));
    lblTemperature->setWordWrap(true);
    lblTemperature->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    const QFontMetrics metrics = lblTemperature->fontMetrics();
    lblTemperature->resize(metrics.horizontalAdvance(QStringLiteral("Température")) + 6,
                           2 * metrics.lineSpacing());
    picThermo = Named(new PictureSurface(this), QStringLiteral("picThermo"), QStringLiteral("Thermomètre"));
    picThermo->resize(20, 20);
    // The scale is a groove: a dark line and the light that falls on its edge.
    for (int i = 0; i < 2; ++i) {
        auto* const line = Named(new QFrame(this), ArrayName("lblCurseur", i));
        line->setAutoFillBackground(true);
        QPalette palette = line->palette();
        palette.setColor(QPalette::Window, i == 0 ? colours::kInk : colours::kPaper);
        line->setPalette(palette);
        line->resize(i == 0 ? 2 : 1, 20);
        lblCurseur.at(static_cast<std::size_t>(i)) = line;
    }
    picWave = Named(new WaveHandle(this), QStringLiteral("picWave"), QStringLiteral("Température du milieu"));
    picWave->setToolTip(QStringLiteral("Modifier la température à l'aide du curseur"));
}

void frmSimulAnim::BuildTabs()
{
    sstAnim = Named(new QTabWidget(this), QStringLiteral("sstAnim"), QStringLiteral("Réglages"));
    sstAnim->addTab(BuildAnimationTab(), QStringLiteral("Animation"));
    sstAnim->addTab(BuildParticlesTab(), QStringLiteral("Particules"));
    sstAnim->addTab(BuildCurveTab(), QStringLiteral("Courbe"));
}

QWidget* frmSimulAnim::BuildAnimationTab()
{
    auto* const page = Named(new QWidget, QStringLiteral("sstAnim(0)"));
    Label9 = TextLabel(page, "Label9", QStringLiteral("Chronomètre : "));
    txtCompteur = Named(new QLineEdit(QStringLiteral("00:00:00"), page), QStringLiteral("txtCompteur"),
                        QStringLiteral("Chronomètre"));
    txtCompteur->setReadOnly(true);
    txtCompteur->setFocusPolicy(Qt::NoFocus);
    txtCompteur->setAlignment(Qt::AlignCenter);
    txtCompteur->setFont(Enlarged(font(), 1));
    txtCompteur->setFixedWidth(
        QFontMetrics(txtCompteur->font()).horizontalAdvance(QStringLiteral("000:00:00")) + 16);
    chkStart = Named(new RunButton(page), QStringLiteral("chkStart"),
                     QStringLiteral("Lancer ou arrêter l'animation"));
    chkStart->setToolTip(QStringLiteral("Lancer/Arrêter l'animation"));
    chkStart->setMinimumHeight(chkStart->fontMetrics().height() + 14);
    // Wide enough for either caption.
    chkStart->setMinimumWidth(chkStart->fontMetrics().horizontalAdvance(QStringLiteral("Arrêter l'animation"))
                              + 32);
    auto* const clock = new QHBoxLayout;
    clock->addWidget(Label9);
    clock->addWidget(txtCompteur);
    clock->addStretch();
    auto* const rows = new QVBoxLayout(page);
    rows->setContentsMargins(12, kGap, 12, kGap);
    rows->setSpacing(kGap);
    rows->addLayout(clock);
    rows->addWidget(chkStart);
    rows->addStretch();
    return page;
}

QWidget* frmSimulAnim::BuildParticlesTab()
{
    auto* const page = Named(new QWidget, QStringLiteral("sstAnim(1)"));
    Label6 = TextLabel(page, "Label6", QStringLiteral("Grosseur des particules :"));
    sldWidth = HorizontalSlider(page, QStringLiteral("sldWidth"), QStringLiteral("Grosseur des particules"));
    sldWidth->setRange(6, 14);
    sldWidth->setPageStep(2);
    sldWidth->setTickInterval(1);
    sldWidth->setValue(10);
    sldWidth->setToolTip(QStringLiteral("Modifier la taille des particules"));
    auto* const rows = new QVBoxLayout(page);
    rows->setContentsMargins(12, kGap, 12, kGap);
    rows->setSpacing(kGap);
    rows->addWidget(Label6);
    rows->addWidget(sldWidth);
    rows->addStretch();
    return page;
}

QWidget* frmSimulAnim::BuildCurveTab()
{
    auto* const page = Named(new QWidget, QStringLiteral("sstAnim(2)"));
    Label10 = TextLabel(page, "Label10", QStringLiteral("Grandeur en ordonnées :"));
    const QString captions[]{QStringLiteral("nombre particules"), QStringLiteral("Quotient de réaction Qr")};
    for (int i = 0; i < 2; ++i)
        optY.at(static_cast<std::size_t>(i))
            = Named(new QRadioButton(captions[i], page), ArrayName("optY", i), captions[i]);
    optY[0]->setChecked(true);
    Line1 = Named(new QFrame(page), QStringLiteral("Line1"));
    Line1->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    cmdCopy = Named(new QToolButton(page), QStringLiteral("cmdCopy"), QStringLiteral("Copier la courbe"));
    cmdCopy->setIcon(QIcon(QStringLiteral(":/simulation/copy.png")));
    cmdCopy->setIconSize(QSize(18, 18));
    cmdCopy->setMinimumSize(36, 28);
    cmdCopy->setToolTip(QStringLiteral("Copier la courbe"));
    cmdCopy->setFocusPolicy(Qt::StrongFocus);
    auto* const grid = new QGridLayout(page);
    grid->setContentsMargins(10, kGap, 10, kGap);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(4);
    grid->addWidget(Label10, 0, 0);
    grid->addWidget(optY[0], 1, 0);
    grid->addWidget(optY[1], 2, 0);
    grid->addWidget(Line1, 0, 1, 3, 1);
    grid->addWidget(cmdCopy, 0, 2, 3, 1, Qt::AlignCenter);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(3, 1);
    return page;
}

void frmSimulAnim::BuildShare(int index, const char* labelName, const QString& caption, QLabel*& label)
{
    const auto place = static_cast<std::size_t>(index);
    label = TextLabel(fraChocs, labelName, caption);
    const QString sense = QStringLiteral("Pourcentage de chocs efficaces %1").arg(caption.chopped(3));
    QSlider* const slider = HorizontalSlider(fraChocs, ArrayName("sldChoc", index), sense);
    slider->setRange(0, 100);
    slider->setPageStep(5);
    slider->setTickInterval(10);
    slider->setValue(50);
    QLabel* const share = Named(new QLabel(fraChocs), ArrayName("lblChoc", index), sense);
    share->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    share->setMinimumWidth(share->fontMetrics().horizontalAdvance(QStringLiteral("100%")) + 4);
    sldChoc.at(place) = slider;
    lblChoc.at(place) = share;
}

void frmSimulAnim::BuildShares()
{
    fraChocs = Named(new QGroupBox(QStringLiteral("Chocs efficaces : "), this), QStringLiteral("fraChocs"));
    BuildShare(0, "Label7", QStringLiteral("dans le sens A + B --> C + D : "), Label7);
    BuildShare(1, "Label8", QStringLiteral("dans le sens C + D --> A + B : "), Label8);
    auto* const grid = new QGridLayout(fraChocs);
    grid->setContentsMargins(kGap, 6, kGap, kGap);
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(2);
    const std::array<QLabel*, 2> labels{Label7, Label8};
    for (int i = 0; i < 2; ++i) {
        const auto place = static_cast<std::size_t>(i);
        grid->addWidget(labels.at(place), 2 * i, 0);
        grid->addWidget(lblChoc.at(place), 2 * i, 1);
        grid->addWidget(sldChoc.at(place), 2 * i + 1, 0, 1, 2);
    }
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(4, 1);
}

void frmSimulAnim::OrderTabs()
{
    QWidget* before = txtMol[0];
    for (QWidget* const next : std::initializer_list<QWidget*>{txtMol[1], txtMol[2], txtMol[3], txtMol[4],
                                                               sstAnim, chkStart, sldWidth, optY[0], optY[1],
                                                               cmdCopy, sldChoc[0], sldChoc[1], picWave}) {
        setTabOrder(before, next);
        before = next;
    }
    setFocusProxy(txtMol[0]);
}

void frmSimulAnim::WrapCaption(bool inTwoLines)
{
    const int length = Label5->fontMetrics().horizontalAdvance(Label5->text());
    Label5->setFixedWidth(inTwoLines ? length / 2 : length + 4);
}

int frmSimulAnim::LeastWidth()
{
    WrapCaption(true);
    return 2 * kGap + fraNbrMol->sizeHint().width() + sstAnim->sizeHint().width()
        + fraChocs->minimumSizeHint().width() + 2 * kBetweenFrames;
}

void frmSimulAnim::PlaceFrames()
{
    // The long caption takes two lines where room is scarce.
    WrapCaption(width() < LeastWidth() * 5 / 4);
    const int edge = kGap;
    const int middle = kBetweenFrames;
    const int half = width() / 2;
    const int height = std::max(
        {fraNbrMol->sizeHint().height(), sstAnim->sizeHint().height(), fraChocs->sizeHint().height()});
    // Above the box the numbers, above the plot the settings, as far as they fit.
    const int leastTabs = sstAnim->sizeHint().width();
    const int leastShares = fraChocs->minimumSizeHint().width();
    const int right = width() - edge;
    const int left = std::max(edge + fraNbrMol->sizeHint().width() + middle,
                              std::min(half + edge / 2, right - leastShares - middle - leastTabs));
    fraNbrMol->setGeometry(edge, edge, left - middle - edge, height);
    const int tabsWidth
        = std::min(std::max((right - left - middle) / 2, leastTabs), right - left - middle - leastShares);
    sstAnim->setGeometry(left, edge, tabsWidth, height);
    fraChocs->setGeometry(left + tabsWidth + middle, edge, right - left - tabsWidth - middle, height);
}

void frmSimulAnim::ResizeForm()
{
    PlaceFrames();
    BoxLayoutInput input;
    input.width = FromPixels(width());
    input.height = FromPixels(height());
    input.numbersBottom = FromPixels(fraNbrMol->geometry().bottom() + 1);
    input.temperature = lblTemperature->size() * kTwipsPerPixel;
    input.thermoWidth = FromPixels(picThermo->width());
    input.cursorWidth = FromPixels(lblCurseur[0]->width());
    input.wave = picWave->size() * kTwipsPerPixel;
    input.labelsWidth = m_plot.LabelsWidth();
    input.timesHeight = m_plot.TimesHeight();
    input.zeroHeight = m_plot.ZeroHeight();
    const auto layout = LayOutBox(input);
    if (!layout)
        return;
    picMilieu->setGeometry(PixelRect(layout->milieu));
    PlaceThermometer(*layout);
    m_plot.Place(*layout);
    const QRect plot = m_plot.Surroundings();
    const int top = picMilieu->geometry().bottom() + 1 + kGap;
    lblEtat->setGeometry(picMilieu->x(), top, plot.x() - picMilieu->x() - kGap, height() - top);
    lblAide->setGeometry(plot.x(), top, plot.width(), height() - top);
    update();
}

void frmSimulAnim::PlaceThermometer(const BoxLayout& layout)
{
    lblTemperature->setGeometry(PixelRect(layout.temperature));
    picThermo->setGeometry(PixelRect(layout.thermo));
    lblCurseur[0]->setGeometry(PixelRect(layout.cursor));
    lblCurseur[1]->setGeometry(lblCurseur[0]->geometry().right() + 1, lblCurseur[0]->y(), 1,
                               lblCurseur[0]->height());
    m_thermometer.LayOut(layout.cursor.y(), layout.cursor.height(), FromPixels(picWave->height()));
    picWave->move(ToPixels(layout.waveLeft), ToPixels(m_thermometer.WaveTop()));
    picWave->raise();
    m_particles.SetThermalSpeed(m_thermometer.ThermalSpeed());
    PaintThermometer();
}

void frmSimulAnim::PaintThermometer()
{
    picThermo->Clear();
    const int rows = picThermo->height();
    picThermo->SetScale({0, 0}, {static_cast<double>(picThermo->width()), static_cast<double>(rows)});
    for (int y = 0; y <= rows; ++y)
        picThermo->FillBox(QRectF(0, y - 1, picThermo->width(), 2), FromBgr(ThermometerColour(y, rows)));
}

} // namespace stoikal
