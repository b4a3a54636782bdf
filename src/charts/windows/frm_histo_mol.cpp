#include "charts/windows/frm_histo_mol.h"

#include "base/twips.h"
#include "charts/progress_slider.h"
#include "charts/windows/progress_pictures.h"
#include "forms/colours.h"
#include "forms/picture_surface.h"
#include "forms/style.h"
#include "platform/doors.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QTimer>
#include <QToolButton>
#include <algorithm>

namespace stoikal {
namespace {

constexpr int kTickMs = 100;
constexpr Twips kBelowFrames = 60;
constexpr Twips kBelowPictures = 520;
constexpr int kEdge = 12;
constexpr int kGap = 8;

/// A button that has an icon alone, and its sense in a tool tip.
QToolButton* IconButton(QWidget* parent, const QString& name, const QString& icon, const QString& toolTip)
{
    auto* const button = Named(new QToolButton(parent), name, toolTip);
    button->setIcon(QIcon(QStringLiteral(":/charts/%1.png").arg(icon)));
    button->setIconSize(QSize(18, 18));
    button->setMinimumSize(36, 28);
    button->setToolTip(toolTip);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

} // namespace

frmHistoMol::frmHistoMol(const ProgressTable& table, const Doors& doors, QWidget* parent)
    : Form(QStringLiteral("frmHistoMol"), QStringLiteral("Courbes d'évolution des espèces"), Kind::Child,
           parent)
    , m_table(table)
    , m_doors(doors)
{
    StayOnPaper(*this);
    setAutoFillBackground(true);
    setMinimumSize(940, 460); // less, and texts of the drawings cover each other
    Build();
    Connect();
    SetUpProgressSlider();
}

void frmHistoMol::Build()
{
    m_head = new QWidget(this);
    BuildOptions();
    BuildAnimation();
    chkMask = IconButton(m_head, QStringLiteral("chkMask"), QStringLiteral("hide"),
                         QStringLiteral("Pour masquer / afficher l'équation"));
    chkMask->setCheckable(true);
    auto* const row = new QHBoxLayout(m_head);
    row->setContentsMargins(kEdge, kGap, kEdge, 0);
    row->setSpacing(2 * kGap);
    row->addWidget(fraOption);
    row->addWidget(fraAnim, 1);
    row->addWidget(chkMask);

    picHistoMol
        = Named(new PictureSurface(this), QStringLiteral("picHistoMol"), QStringLiteral("Histogramme"));
    picCourbeMol = Named(new PictureSurface(this), QStringLiteral("picCourbeMol"), QStringLiteral("Courbes"));
    cmdCopy[1] = IconButton(this, ArrayName("cmdCopy", 1), QStringLiteral("copy"),
                            QStringLiteral("Pour copier l'histogramme dans le presse-papiers"));
    cmdCopy[0] = IconButton(this, ArrayName("cmdCopy", 0), QStringLiteral("copy"),
                            QStringLiteral("Pour copier la courbe dans le presse-papiers"));
    tmrAnim = Named(new QTimer(this), QStringLiteral("tmrAnim"));
    tmrAnim->setInterval(kTickMs);
    setFocusProxy(sldAnim);
    setMouseTracking(true);
    for (QWidget* const widget :
         std::initializer_list<QWidget*>{m_head, fraAnim, picHistoMol, picCourbeMol}) {
        widget->setMouseTracking(true);
    }
}

void frmHistoMol::BuildOptions()
{
    fraOption = Named(new QGroupBox(QStringLiteral("Grandeurs en ordonnée : "), m_head),
                      QStringLiteral("fraOption"), QStringLiteral("Grandeurs en ordonnée"));
    struct Option {
        QString caption;
        QString toolTip;
    };
    const std::array<Option, 2> options{{
        {QStringLiteral("quantité de matière (mol)"),
         QStringLiteral("Pour afficher la quantité de matière en ordonnées des histogrammes")},
        {QStringLiteral("masse (g)"),
         QStringLiteral("Pour afficher la masse des réactifs/produits en ordonnées des histogrammes")},
    }};
    auto* const rows = new QVBoxLayout(fraOption);
    rows->setContentsMargins(kEdge, 4, kEdge, 6);
    rows->setSpacing(4);
    for (std::size_t i = 0; i < options.size(); ++i) {
        const Option& option = options.at(i);
        optCourbe.at(i) = Named(new QRadioButton(option.caption, fraOption),
                                ArrayName("optCourbe", static_cast<int>(i)), option.caption);
        optCourbe.at(i)->setToolTip(option.toolTip);
        rows->addWidget(optCourbe.at(i));
    }
    optCourbe[0]->setChecked(true);
}

void frmHistoMol::BuildAnimation()
{
    fraAnim = Named(new QGroupBox(QStringLiteral("Animation  : "), m_head), QStringLiteral("fraAnim"),
                    QStringLiteral("Animation"));
    chkAnim = IconButton(fraAnim, QStringLiteral("chkAnim"), QStringLiteral("start"),
                         QStringLiteral("Pour lancer / stopper l'animation"));
    chkAnim->setCheckable(true);
    cmdRAZ = IconButton(fraAnim, QStringLiteral("cmdRAZ"), QStringLiteral("reset"),
                        QStringLiteral("Pour recommencer au début l'animation"));
    sldAnim = Named(new QSlider(Qt::Horizontal, fraAnim), QStringLiteral("sldAnim"),
                    QStringLiteral("Etat d'avancement"));
    sldAnim->setToolTip(QStringLiteral("Déplacez le curseur pour un état d'avancement donné"));
    sldAnim->setTickPosition(QSlider::TicksBelow);
    Label1 = Named(new QLabel(QStringLiteral("Etat d'avancement : "), fraAnim), QStringLiteral("Label1"));
    lblAvct = Named(new QLabel(QStringLiteral("0%1000 mol").arg(m_doors.separator), fraAnim),
                    QStringLiteral("lblAvct"));
    QFont strong = lblAvct->font();
    strong.setBold(true);
    lblAvct->setFont(strong);
    lblMaxEtat = Named(new QLabel(fraAnim), QStringLiteral("lblMaxEtat"));
    lblMaxEtat->setToolTip(QStringLiteral("Avancement maximal"));

    auto* const grid = new QGridLayout(fraAnim);
    grid->setContentsMargins(kEdge, 4, kEdge, 6);
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(2);
    grid->addWidget(chkAnim, 0, 0, 2, 1, Qt::AlignVCenter);
    grid->addWidget(cmdRAZ, 0, 1, 2, 1, Qt::AlignVCenter);
    auto* const state = new QHBoxLayout;
    state->setSpacing(0);
    state->addWidget(Label1);
    state->addWidget(lblAvct);
    state->addStretch();
    state->addWidget(lblMaxEtat);
    grid->addLayout(state, 0, 2);
    grid->addWidget(sldAnim, 1, 2);
    grid->setColumnStretch(2, 1);
}

void frmHistoMol::Connect()
{
    // The eye's way: the head from left to right, then the pictures.
    QWidget* before = optCourbe[0];
    for (QWidget* const next : std::initializer_list<QWidget*>{optCourbe[1], chkAnim, cmdRAZ, sldAnim,
                                                               chkMask, cmdCopy[1], cmdCopy[0]}) {
        setTabOrder(before, next);
        before = next;
    }
    connect(sldAnim, &QSlider::valueChanged, this, &frmHistoMol::sldAnim_Change);
    for (QRadioButton* const option : optCourbe) {
        connect(option, &QRadioButton::toggled, this, [this](bool chosen) {
            if (chosen)
                DrawBoth();
        });
    }
    connect(chkAnim, &QToolButton::toggled, this, &frmHistoMol::chkAnim_Click);
    connect(tmrAnim, &QTimer::timeout, this, &frmHistoMol::tmrAnim_Timer);
    connect(cmdRAZ, &QToolButton::clicked, this, [this] { sldAnim->setValue(0); });
    connect(chkMask, &QToolButton::toggled, this, &frmHistoMol::HideEquationAsked);
    for (int i = 0; i < 2; ++i)
        connect(cmdCopy.at(static_cast<std::size_t>(i)), &QToolButton::clicked, this,
                [this, i] { cmdCopy_Click(i); });
}

void frmHistoMol::SetSliderLimits()
{
    const std::int32_t max = SliderMax(m_table.Xmax, m_table.XmaxScale);
    const SliderChanges changes = SliderChangesFor(m_table.Xmax);
    sldAnim->setTickInterval(TickFrequency(max));
    sldAnim->setSingleStep(changes.small);
    sldAnim->setPageStep(changes.large);
    sldAnim->setRange(0, max);
    lblMaxEtat->setText(ProgressText(m_table.Xmax, m_doors.separator));
}

void frmHistoMol::SetUpProgressSlider()
{
    SetSliderLimits();
    sldAnim->setValue(sldAnim->maximum());
    sldAnim->setValue(0);
}

void frmHistoMol::Refresh()
{
    {
        // One drawing is enough, also where the position must give way.
        const QSignalBlocker quiet(sldAnim);
        SetSliderLimits();
    }
    sldAnim_Change();
}

double frmHistoMol::Progress() const
{
    return static_cast<double>(sldAnim->value()) / m_table.XmaxScale;
}

Ordinate frmHistoMol::ShownOrdinate() const
{
    return optCourbe[1]->isChecked() ? Ordinate::Mass : Ordinate::Amount;
}

void frmHistoMol::DrawHistogram(double progress)
{
    PaintHistogram(*picHistoMol, HistogramAt(m_table, progress, ShownOrdinate()), m_doors.separator);
}

void frmHistoMol::DrawProgressCurves(double progress)
{
    PaintProgressCurves(*picCourbeMol, ProgressCurvesAt(m_table, progress, ShownOrdinate()),
                        m_doors.separator);
}

void frmHistoMol::DrawBoth()
{
    // The table may be gone before the window is freed.
    if (m_isReleased)
        return;
    DrawHistogram(Progress());
    DrawProgressCurves(Progress());
}

void frmHistoMol::sldAnim_Change()
{
    lblAvct->setText(ProgressText(Progress(), m_doors.separator));
    DrawBoth();
}

void frmHistoMol::chkAnim_Click()
{
    const bool runs = chkAnim->isChecked();
    chkAnim->setIcon(
        QIcon(runs ? QStringLiteral(":/charts/pause.png") : QStringLiteral(":/charts/start.png")));
    if (runs)
        tmrAnim->start();
    else
        tmrAnim->stop();
}

void frmHistoMol::tmrAnim_Timer()
{
    sldAnim->setValue(NextAnimationValue(sldAnim->value(), m_table.Xmax, m_table.XmaxScale));
    if (sldAnim->value() == sldAnim->maximum())
        chkAnim->setChecked(false);
}

void frmHistoMol::cmdCopy_Click(int index)
{
    const PictureSurface& picture = index == 0 ? *picCourbeMol : *picHistoMol;
    m_doors.clipboard.SetImage(picture.Picture(devicePixelRatioF()));
}

void frmHistoMol::ClearMask()
{
    chkMask->setChecked(false);
}

void frmHistoMol::Release()
{
    if (m_isReleased)
        return;
    m_isReleased = true;
    tmrAnim->stop();
    chkMask->setChecked(false);
    Q_EMIT Released();
}

void frmHistoMol::resizeEvent(QResizeEvent* event)
{
    Form::resizeEvent(event);
    const int headHeight = m_head->sizeHint().height();
    m_head->setGeometry(0, 0, width(), headHeight);
    const int top = headHeight + ToPixels(kBelowFrames);
    const int height = std::max(1, this->height() - top - ToPixels(kBelowPictures));
    const int half = width() / 2;
    picHistoMol->setGeometry(0, top, half, height);
    picCourbeMol->setGeometry(width() - half, top, half, height);
    // Each button under the right corner of its own picture.
    const auto place = [](QToolButton& button, const QWidget& picture) {
        const QSize size = button.sizeHint().expandedTo(button.minimumSize());
        button.setGeometry(
            QRect(QPoint(picture.geometry().right() - kEdge - size.width(), picture.geometry().bottom() + 4),
                  size));
    };
    place(*cmdCopy[1], *picHistoMol);
    place(*cmdCopy[0], *picCourbeMol);
    DrawBoth();
}

bool frmHistoMol::focusNextPrevChild(bool next)
{
    // From the last control to the first and back: by itself the frame around the
    // window would come between them, and that leads to the slider.
    QWidget* const first = optCourbe.at(optCourbe[1]->isChecked() ? 1 : 0);
    QWidget* const last = cmdCopy[0];
    if (focusWidget() != (next ? last : first))
        return Form::focusNextPrevChild(next);
    (next ? first : last)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

} // namespace stoikal
