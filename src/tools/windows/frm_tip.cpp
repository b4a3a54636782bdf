#include "tools/windows/frm_tip.h"

#include "base/number_text.h"
#include "base/settings_store.h"
#include "forms/button_row.h"
#include "forms/colours.h"
#include "forms/messages.h"
#include "forms/style.h"
#include "platform/doors.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace stoikal {
namespace {

constexpr QSize kTipSize(440, 132);
constexpr int kPictureSide = 48;

QString Options()
{
    return QStringLiteral("Options");
}

QString ShowTips()
{
    return QStringLiteral("Show Tips at Startup");
}

} // namespace

frmTip::frmTip(const Services& services, const QString& tipsFile, QWidget* parent)
    : ModalForm(QStringLiteral("frmTip"), QStringLiteral("Astuce du jour"), parent)
    , m_services(services)
    , lblTipText(new QLabel)
    , chkLoadTipsAtStartup(Named(new QCheckBox(QStringLiteral("&Afficher les astuces au démarrage"), this),
                                 QStringLiteral("chkLoadTipsAtStartup"),
                                 QStringLiteral("Afficher les astuces au démarrage")))
{
    Named(lblTipText, QStringLiteral("lblTipText"));
    ShowSwitch();
    connect(chkLoadTipsAtStartup, &QCheckBox::toggled, this, &frmTip::chkLoadTipsAtStartup_Click);
    Build();
    const auto loaded = m_tips.LoadTips(tipsFile);
    if (loaded)
        cmdNextTip_Click();
    else
        lblTipText->setText(loaded.Reason());
    lblTipText->setAccessibleName(lblTipText->text());
}

void frmTip::Build()
{
    // A sheet of paper with the tip on it; one too long for it is scrolled.
    auto* const sheet = Named(new QScrollArea(this), QStringLiteral("sheet"), QStringLiteral("Astuce"));
    StayOnPaper(*sheet);
    sheet->setFixedHeight(kTipSize.height());
    sheet->setMinimumWidth(kTipSize.width());
    sheet->setWidgetResizable(true);
    sheet->setWidget(lblTipText);
    sheet->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QPalette paper = sheet->palette();
    paper.setColor(QPalette::Window, colours::kPaper);
    sheet->setPalette(paper);
    lblTipText->setTextFormat(Qt::PlainText);
    lblTipText->setWordWrap(true);
    lblTipText->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblTipText->setMargin(8);
    QFont readable = lblTipText->font();
    readable.setPointSizeF(readable.pointSizeF() + 1);
    lblTipText->setFont(readable);

    auto* const Picture1 = Named(new QLabel(this), QStringLiteral("Picture1"), QStringLiteral("Ampoule"));
    Picture1->setPixmap(QIcon(QStringLiteral(":/icons/tip.png")).pixmap(QSize(kPictureSide, kPictureSide)));
    auto* const Label1
        = Named(new QLabel(QStringLiteral("Savez-vous que ..."), this), QStringLiteral("Label1"));
    QFont large = Label1->font();
    large.setPointSizeF(large.pointSizeF() + 3);
    large.setBold(true);
    Label1->setFont(large);

    auto* const cmdNextTip = Named(new QPushButton(QStringLiteral("Astuce &suivante"), this),
                                   QStringLiteral("cmdNextTip"), QStringLiteral("Astuce suivante"));
    auto* const cmdOK
        = Named(new QPushButton(QStringLiteral("OK"), this), QStringLiteral("cmdOK"), QStringLiteral("OK"));
    auto* const head = new QHBoxLayout;
    head->setSpacing(12);
    head->addWidget(Picture1);
    head->addWidget(Label1, 1);
    auto* const bottom = new QHBoxLayout;
    bottom->setSpacing(8);
    bottom->addWidget(chkLoadTipsAtStartup, 1);
    AddButtons(*bottom, {cmdNextTip, cmdOK});
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(16, 12, 16, 12);
    rows->setSpacing(8);
    rows->addLayout(head);
    rows->addWidget(sheet);
    rows->addSpacing(4);
    rows->addLayout(bottom);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    setTabOrder(sheet, chkLoadTipsAtStartup);
    setTabOrder(chkLoadTipsAtStartup, cmdNextTip);
    setTabOrder(cmdNextTip, cmdOK);
    cmdOK->setFocus();
    connect(cmdNextTip, &QPushButton::clicked, this, &frmTip::cmdNextTip_Click);
    connect(cmdOK, &QPushButton::clicked, this, [this] { done(Accepted); });
}

void frmTip::DisplayCurrentTip()
{
    if (m_tips.IsEmpty())
        return;
    lblTipText->setText(m_tips.Tip());
    lblTipText->setAccessibleName(m_tips.Tip());
}

void frmTip::cmdNextTip_Click()
{
    m_tips.Choose(m_services.randomness.Uniform());
    DisplayCurrentTip();
}

void frmTip::chkLoadTipsAtStartup_Click(bool isChecked)
{
    const auto written = m_services.settings.Write(Options(), ShowTips(),
                                                   isChecked ? QStringLiteral("1") : QStringLiteral("0"));
    if (written)
        return;
    ShowSwitch();
    m_services.messages.Critical(
        this, QStringLiteral("Stoikal"),
        QStringLiteral("Votre préférence n'a pas été enregistrée.\n\n%1").arg(written.Reason()));
}

/// The switch stands as it is stored; showing it stores nothing.
void frmTip::ShowSwitch()
{
    const QSignalBlocker quiet(chkLoadTipsAtStartup);
    chkLoadTipsAtStartup->setChecked(ReadFileNumber(m_services.settings.Read(Options(), ShowTips())) != 0);
}

} // namespace stoikal
