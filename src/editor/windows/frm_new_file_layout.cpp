#include "editor/windows/frm_new_file.h"

#include "editor/windows/comment_page.h"
#include "editor/windows/data_page.h"
#include "editor/windows/formula_page.h"
#include "editor/windows/state_page.h"
#include "forms/colours.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace stoikal {
namespace {

/// A red disc with a white cross.
QPixmap FailureMark(qreal ratio)
{
    constexpr int kSide = 22;
    QPixmap picture(QSize(kSide, kSide) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours::kWrong);
    painter.drawEllipse(QRectF(1, 1, kSide - 2, kSide - 2));
    painter.setPen(QPen(Qt::white, 2.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(7, 7), QPointF(kSide - 7, kSide - 7));
    painter.drawLine(QPointF(kSide - 7, 7), QPointF(7, kSide - 7));
    return picture;
}

QPushButton* Button(QWidget* parent, const char* name, const QString& caption, const QKeySequence& keys = {})
{
    auto* const button = Named(new QPushButton(caption, parent), QLatin1String(name), caption);
    button->setAutoDefault(false);
    constexpr int kPadding = 16;
    button->setMinimumWidth(button->sizeHint().width() + kPadding);
    if (!keys.isEmpty()) {
        // A button's own key would press it with a delay.
        QObject::connect(new QShortcut(keys, parent), &QShortcut::activated, button, &QPushButton::click);
        button->setToolTip(QStringLiteral("%1 (%2)").arg(caption, keys.toString(QKeySequence::NativeText)));
    }
    return button;
}

void KeepsItsPlace(QWidget& widget)
{
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
    widget.hide();
}

} // namespace

void frmNewFile::MakeControls()
{
    sstEdit = Named(new QTabWidget(this), QStringLiteral("sstEdit"), QStringLiteral("Equation"));
    m_formulas = new FormulaPage(m_doors.messages, this);
    m_states = new StatePage(this);
    m_comments = new CommentPage(this);
    m_data = new DataPage(m_doors.messages, this);
    sstEdit->addTab(m_formulas, QStringLiteral("&Formules"));
    sstEdit->addTab(m_states, QStringLiteral("Etats &physiques"));
    sstEdit->addTab(m_comments, QStringLiteral("&Commentaires"));
    sstEdit->addTab(m_data, QStringLiteral("&Données"));
    sstEdit->tabBar()->installEventFilter(this);

    cmdInsEqu = Button(this, "cmdInsEqu", QStringLiteral("Insérer une équation"), QStringLiteral("Alt+I"));
    cmdSupEqu = Button(this, "cmdSupEqu", QStringLiteral("Supprimer une équation"));
    hscNumEqu = Named(new QScrollBar(Qt::Horizontal, this), QStringLiteral("hscNumEqu"),
                      QStringLiteral("Numéro de l'équation"));
    hscNumEqu->setRange(1, 1);
    hscNumEqu->setPageStep(1);
    hscNumEqu->setTracking(false);
    hscNumEqu->setFocusPolicy(Qt::StrongFocus);
    hscNumEqu->setMinimumSize(160, 20);
    hscNumEqu->installEventFilter(this);
    txtNumEqu
        = Named(new QLineEdit(this), QStringLiteral("txtNumEqu"), QStringLiteral("Numéro de l'équation"));
    txtNumEqu->setReadOnly(true);
    txtNumEqu->setFocusPolicy(Qt::ClickFocus);
    txtNumEqu->setAlignment(Qt::AlignRight);
    txtNumEqu->setFixedWidth(56);
    lblCount = Named(new QLabel(this), QStringLiteral("lblCount"));
    chkPreview = Named(new QCheckBox(QStringLiteral("Prévisualisation"), this), QStringLiteral("chkPreview"),
                       QStringLiteral("Prévisualisation"));

    imgECHEC = Named(new QLabel(this), QStringLiteral("imgECHEC"),
                     QStringLiteral("Une équation n'a pas pu être équilibrée"));
    imgECHEC->setPixmap(FailureMark(devicePixelRatioF()));
    imgECHEC->setToolTip(QStringLiteral("Une équation n'a pas pu être équilibrée"));
    lblECHEC = Named(new QLabel(this), QStringLiteral("lblECHEC"));
    KeepsItsPlace(*imgECHEC);
    KeepsItsPlace(*lblECHEC);
    pgbCompteur = Named(new QProgressBar(this), QStringLiteral("pgbCompteur"),
                        QStringLiteral("Progression de l'opération"));
    pgbCompteur->setTextVisible(false);
    pgbCompteur->setFixedWidth(200);
    KeepsItsPlace(*pgbCompteur);

    cmdValid = Button(this, "cmdValid", QStringLiteral("Création"), QStringLiteral("Ctrl+S"));
    // Its other caption is longer.
    cmdValid->setText(QStringLiteral("Enregistrement"));
    cmdValid->setMinimumWidth(cmdValid->sizeHint().width() + 16);
    cmdCancel = Button(this, "cmdCancel", QStringLiteral("Annulation"));
    cmdHelp = Button(this, "cmdHelp", QStringLiteral("Aide"), {});
    tmrDraft = Named(new QTimer(this), QStringLiteral("tmrDraft"));
    tmrDraft->setSingleShot(true);
    tmrDraft->setInterval(300);
}

QGroupBox* frmNewFile::MakeFileFrame()
{
    auto* const frame = new QGroupBox(QStringLiteral("Renseignements fichier d'équations : "), this);
    txtNameFile = Named(new QLineEdit(frame), QStringLiteral("txtNameFile"),
                        QStringLiteral("Nom du fichier (sans extension)"));
    optType[0] = Named(new QRadioButton(QStringLiteral("Equilibrage d'équations chimiques (*.Equ)"), frame),
                       QStringLiteral("optType(0)"),
                       QStringLiteral("Type de fichier\u00A0: équilibrage d'équations chimiques"));
    optType[1] = Named(
        new QRadioButton(QStringLiteral("Etude de l'avancement d'une réaction chimique (*.Avt)"), frame),
        QStringLiteral("optType(1)"),
        QStringLiteral("Type de fichier\u00A0: étude de l'avancement d'une réaction chimique"));
    optType[0]->setChecked(true);
    flbAllFilesEQU = Named(new QListWidget(frame), QStringLiteral("flbAllFilesEQU"),
                           QStringLiteral("Fichiers d'équations du dossier"));
    flbAllFilesEQU->hide();
    auto* const lblName = new QLabel(QStringLiteral("Nom du fichier (sans extension) :"), frame);
    lblName->setBuddy(txtNameFile);
    auto* const grid = new QGridLayout(frame);
    grid->setContentsMargins(12, 8, 12, 12);
    grid->setSpacing(8);
    grid->addWidget(lblName, 0, 0);
    grid->addWidget(txtNameFile, 0, 1, 1, 2);
    grid->addWidget(new QLabel(QStringLiteral("Type de fichier (Equ ou Avt ?) : "), frame), 1, 0);
    grid->addWidget(optType[0], 1, 1);
    grid->addWidget(optType[1], 1, 2);
    grid->setColumnStretch(2, 1);
    return frame;
}

void frmNewFile::Build()
{
    // Made in the order of the eye: the first control has the keyboard at first.
    QGroupBox* const file = MakeFileFrame();
    MakeControls();
    // A screen that is too small for it all shows a part, and the keyboard's control in it.
    m_sheet = Named(new QScrollArea(this), QStringLiteral("sheet"), QStringLiteral("Editeur"));
    m_sheet->setFrameShape(QFrame::NoFrame);
    m_sheet->setFocusPolicy(Qt::NoFocus);
    m_sheet->setWidgetResizable(true);
    auto* const content = new QWidget;
    m_sheet->setWidget(content);
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(m_sheet);
    auto* const rows = new QVBoxLayout(content);
    rows->setContentsMargins(12, 12, 12, 12);
    rows->setSpacing(8);
    rows->addWidget(file);
    rows->addWidget(sstEdit, 1);

    auto* const moves = new QHBoxLayout;
    moves->setSpacing(8);
    moves->addWidget(cmdInsEqu);
    moves->addWidget(cmdSupEqu);
    moves->addSpacing(8);
    auto* const lblNum = new QLabel(QStringLiteral("Numéro de l'équation : "), this);
    lblNum->setBuddy(hscNumEqu);
    moves->addWidget(lblNum);
    moves->addWidget(txtNumEqu);
    moves->addWidget(lblCount);
    moves->addWidget(hscNumEqu, 1);
    rows->addLayout(moves);

    auto* const ends = new QHBoxLayout;
    ends->setSpacing(8);
    ends->addWidget(chkPreview);
    ends->addSpacing(8);
    ends->addWidget(imgECHEC);
    ends->addWidget(lblECHEC);
    ends->addStretch();
    ends->addWidget(pgbCompteur);
    ends->addWidget(cmdValid);
    ends->addWidget(cmdCancel);
    ends->addWidget(cmdHelp);
    rows->addLayout(ends);

    QWidget* const order[]{cmdInsEqu, cmdSupEqu, hscNumEqu, chkPreview, cmdValid, cmdCancel, cmdHelp};
    for (std::size_t i = 0; i + 1 < std::size(order); ++i)
        setTabOrder(order[i], order[i + 1]);
    setTabOrder(txtNameFile, optType[0]);
    setTabOrder(optType[0], optType[1]);
}

} // namespace stoikal
