#include "shell/windows/frm_pref.h"

#include "base/number_text.h"
#include "base/settings_store.h"
#include "forms/colours.h"
#include "forms/messages.h"
#include "platform/doors.h"

#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <initializer_list>

namespace stoikal {
namespace {

constexpr Side kSides[]{Side::Reactants, Side::Products};

QString Options()
{
    return QStringLiteral("Options");
}

QString ShowTips()
{
    return QStringLiteral("Show Tips at Startup");
}

QString ShowBubbles()
{
    return QStringLiteral("Show info-bulles at Startup");
}

QString Arrangement()
{
    return QStringLiteral("Affichage fenetres");
}

/// Sixteen greys, from almost black to almost white: 15 times (n + 1).
QList<QColor> Greys()
{
    QList<QColor> greys;
    for (int n = 0; n < 16; ++n) {
        const int level = 15 * (n + 1);
        greys << QColor(level, level, level);
    }
    return greys;
}

/// A switch that was never set counts as on.
bool IsOn(const QString& value)
{
    return value.isEmpty() || ReadFileNumber(value) != 0;
}

} // namespace

frmPref::frmPref(const Services& services, QWidget* parent)
    : Form(QStringLiteral("frmPref"), QStringLiteral("Préférences"), Kind::Tool, parent)
    , m_services(services)
{
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(12, 12, 12, 12);
    rows->setSpacing(12);
    rows->addWidget(BuildColours());
    rows->addWidget(BuildArrangement());
    rows->addWidget(BuildStart());
    rows->setSizeConstraint(QLayout::SetFixedSize);
    SetTabOrders();
    ShowSettings();
    Connect();
}

QGroupBox* frmPref::BuildColours()
{
    const QString texts[]{QStringLiteral("partie réactifs"), QStringLiteral("partie produits")};
    auto* const frame = Named(new QGroupBox(QStringLiteral("Couleur de fond"), this),
                              QStringLiteral("Frame1"), QStringLiteral("Couleur de fond"));
    auto* const grid = new QGridLayout(frame);
    grid->setContentsMargins(12, 12, 12, 12);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(8);
    for (int side = 0; side < 2; ++side) {
        optColor[side]
            = Named(new QRadioButton(texts[side], frame), ArrayName("optColor", side), texts[side]);
        shpColor[side] = Named(new QFrame(frame), ArrayName("shpColor", side),
                               QStringLiteral("Couleur de la %1").arg(texts[side]));
        shpColor[side]->setFrameShape(QFrame::Box);
        shpColor[side]->setAutoFillBackground(true);
        shpColor[side]->setFixedSize(64, 24);
        grid->addWidget(optColor[side], side, 0);
        grid->addWidget(shpColor[side], side, 1, Qt::AlignRight);
    }
    optColor[0]->setChecked(true);
    cmdPalette = Named(new QPushButton(QStringLiteral("Palette de couleurs"), frame),
                       QStringLiteral("cmdPalette"), QStringLiteral("Palette de couleurs"));
    cmdColor_Defaut = Named(new QPushButton(QStringLiteral("Couleurs par défaut"), frame),
                            QStringLiteral("cmdColor_Defaut"), QStringLiteral("Couleurs par défaut"));
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addWidget(cmdPalette);
    buttons->addWidget(cmdColor_Defaut);
    grid->addLayout(buttons, 2, 0, 1, 2);
    return frame;
}

QGroupBox* frmPref::BuildArrangement()
{
    const QString texts[]{QStringLiteral("mode portrait"), QStringLiteral("mode paysage")};
    auto* const frame = Named(new QGroupBox(QStringLiteral("Affichage des fenêtres d'atomes"), this),
                              QStringLiteral("Frame2"), QStringLiteral("Affichage des fenêtres d'atomes"));
    auto* const row = new QHBoxLayout(frame);
    row->setContentsMargins(12, 12, 12, 12);
    row->setSpacing(16);
    for (int index = 0; index < 2; ++index) {
        optAffichage[index]
            = Named(new QRadioButton(texts[index], frame), ArrayName("optAffichage", index), texts[index]);
        row->addWidget(optAffichage[index]);
    }
    row->addStretch();
    return frame;
}

QGroupBox* frmPref::BuildStart()
{
    auto* const frame = Named(new QGroupBox(QStringLiteral("Aide à l'écran"), this), QStringLiteral("Frame3"),
                              QStringLiteral("Aide à l'écran"));
    auto* const rows = new QVBoxLayout(frame);
    rows->setContentsMargins(12, 12, 12, 12);
    rows->setSpacing(8);
    chkLoadTipsAtStartup
        = Named(new QCheckBox(QStringLiteral("&Afficher les astuces au démarrage"), frame),
                QStringLiteral("chkLoadTipsAtStartup"), QStringLiteral("Afficher les astuces au démarrage"));
    chkInfoBulles = Named(new QCheckBox(QStringLiteral("Afficher les info-bulles"), frame),
                          QStringLiteral("chkInfoBulles"), QStringLiteral("Afficher les info-bulles"));
    rows->addWidget(chkLoadTipsAtStartup);
    rows->addWidget(chkInfoBulles);
    return frame;
}

void frmPref::SetTabOrders()
{
    QWidget* before = optColor[0];
    for (QWidget* const next :
         std::initializer_list<QWidget*>{optColor[1], cmdPalette, cmdColor_Defaut, optAffichage[0],
                                         optAffichage[1], chkLoadTipsAtStartup, chkInfoBulles}) {
        setTabOrder(before, next);
        before = next;
    }
    setFocusProxy(optColor[0]);
}

void frmPref::Connect()
{
    connect(cmdPalette, &QPushButton::clicked, this, &frmPref::cmdPalette_Click);
    connect(cmdColor_Defaut, &QPushButton::clicked, this, &frmPref::cmdColor_Defaut_Click);
    for (int index = 0; index < 2; ++index) {
        connect(optAffichage[index], &QRadioButton::toggled, this, [this, index](bool isChosen) {
            if (isChosen)
                optAffichage_Click(index);
        });
    }
    connect(chkLoadTipsAtStartup, &QCheckBox::toggled, this,
            [this](bool isOn) { WriteSwitch(ShowTips(), isOn); });
    connect(chkInfoBulles, &QCheckBox::toggled, this,
            [this](bool isOn) { WriteSwitch(ShowBubbles(), isOn); });
}

void frmPref::ShowSettings()
{
    m_isLoading = true;
    ShowColours();
    // Any other index than 0 puts one window above the other.
    const bool isStacked = ReadFileNumber(m_services.settings.Read(Options(), Arrangement())) != 0;
    optAffichage[isStacked ? 1 : 0]->setChecked(true);
    chkLoadTipsAtStartup->setChecked(IsOn(m_services.settings.Read(Options(), ShowTips())));
    chkInfoBulles->setChecked(IsOn(m_services.settings.Read(Options(), ShowBubbles())));
    m_isLoading = false;
}

void frmPref::ShowColours()
{
    for (int side = 0; side < 2; ++side) {
        const QColor colour = FromBgr(SideColour(m_services.settings, kSides[side]));
        QPalette palette = shpColor[side]->palette();
        palette.setColor(QPalette::Window, colour);
        palette.setColor(QPalette::WindowText, colour.darker());
        shpColor[side]->setPalette(palette);
        shpColor[side]->setAccessibleDescription(colour.name());
    }
}

void frmPref::cmdPalette_Click()
{
    const Side side = optColor[1]->isChecked() ? Side::Products : Side::Reactants;
    const auto chosen
        = m_services.dialogs.ChooseColour(this, FromBgr(SideColour(m_services.settings, side)), Greys());
    if (!chosen)
        return;
    if (IsStored([&] { return SetSideColour(m_services.settings, side, ToBgr(*chosen)); }))
        ShowNewColours();
}

void frmPref::cmdColor_Defaut_Click()
{
    if (IsStored([this] { return SetDefaultSideColours(m_services.settings); }))
        ShowNewColours();
}

void frmPref::ShowNewColours()
{
    ShowColours();
    Q_EMIT ColoursChanged();
}

void frmPref::optAffichage_Click(int index)
{
    if (m_isLoading)
        return;
    if (IsStored([&] { return m_services.settings.Write(Options(), Arrangement(), QString::number(index)); }))
        Q_EMIT ArrangementChanged();
}

void frmPref::WriteSwitch(const QString& key, bool isOn)
{
    if (!m_isLoading)
        (void)IsStored([&] {
            return m_services.settings.Write(Options(), key,
                                             isOn ? QStringLiteral("1") : QStringLiteral("0"));
        });
}

/// What could not be stored is reported, as often as he asks for another try, and no
/// control says otherwise meanwhile or afterwards.
bool frmPref::IsStored(const std::function<Outcome<QString>()>& store)
{
    auto written = store();
    if (written)
        return true;
    do {
        ShowSettings();
        if (!m_services.messages.AskRetry(
                this, QStringLiteral("Stoikal"),
                QStringLiteral("Votre préférence n'a pas été enregistrée.\n\n%1").arg(written.Reason())))
            return false;
        written = store();
    } while (!written);
    ShowSettings();
    return true;
}

} // namespace stoikal
