#include "shell/windows/frm_about.h"

#include "forms/button_row.h"
#include "forms/messages.h"
#include "shell/product.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QSysInfo>
#include <QVBoxLayout>

namespace stoikal {

frmAbout::frmAbout(const QString& programFolder, Messages& messages, QWidget* parent)
    : ModalForm(QStringLiteral("frmAbout"), QStringLiteral("A propos de %1").arg(product::Title()), parent)
    , m_messages(messages)
{
    auto* const columns = new QHBoxLayout(this);
    columns->setContentsMargins(16, 16, 16, 16);
    columns->setSpacing(16);
    auto* const imgAbout = Named(new QLabel(this), QStringLiteral("imgAbout"));
    QPixmap picture(programFolder + QStringLiteral("/about.png"));
    picture.setDevicePixelRatio(2);
    imgAbout->setPixmap(picture);
    columns->addWidget(imgAbout, 0, Qt::AlignTop);

    auto* const rows = new QVBoxLayout;
    rows->setSpacing(8);
    columns->addLayout(rows);
    auto* const lblTitle = Named(new QLabel(product::Title(), this), QStringLiteral("lblTitle"));
    QFont large = lblTitle->font();
    large.setPointSizeF(large.pointSizeF() * 2);
    large.setBold(true);
    lblTitle->setFont(large);
    rows->addWidget(lblTitle);
    rows->addWidget(Named(new QLabel(QStringLiteral("Version %1").arg(product::Version()), this),
                          QStringLiteral("lblVersion")));
    rows->addWidget(Named(
        new QLabel(QStringLiteral("Équilibrer des équations chimiques,\nétudier l'avancement des réactions."),
                   this),
        QStringLiteral("lblDescription")));
    rows->addStretch();
    auto* const lblWeb = Named(new QPushButton(QStringLiteral("Visiter le site de l'auteur"), this),
                               QStringLiteral("lblWeb"), QStringLiteral("Visiter le site de l'auteur"));
    auto* const cmdSysInfo
        = Named(new QPushButton(QStringLiteral("Infos &système ..."), this), QStringLiteral("cmdSysInfo"),
                QStringLiteral("Informations sur le système"));
    auto* const cmdOK
        = Named(new QPushButton(QStringLiteral("OK"), this), QStringLiteral("cmdOK"), QStringLiteral("OK"));
    AddButtons(*rows, {lblWeb, cmdSysInfo, cmdOK});
    cmdOK->setFocus();
    columns->setSizeConstraint(QLayout::SetFixedSize);
    connect(lblWeb, &QPushButton::clicked, this, &frmAbout::WebAsked);
    connect(cmdSysInfo, &QPushButton::clicked, this, &frmAbout::cmdSysInfo_Click);
    connect(cmdOK, &QPushButton::clicked, this, [this] { done(Accepted); });
}

void frmAbout::cmdSysInfo_Click()
{
    const QSize screen = QGuiApplication::primaryScreen()->size();
    m_messages.Information(this, QStringLiteral("Informations sur le système"),
                           QStringLiteral("Système\u00A0: %1\nNoyau\u00A0: %2 %3\nProcesseur\u00A0: "
                                          "%4\nQt\u00A0: %5\nÉcran\u00A0: %6 x %7 pixels (%8)")
                               .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(),
                                    QSysInfo::kernelVersion(), QSysInfo::currentCpuArchitecture(),
                                    QString::fromLatin1(qVersion()), QString::number(screen.width()),
                                    QString::number(screen.height()), QGuiApplication::platformName()));
}

} // namespace stoikal
