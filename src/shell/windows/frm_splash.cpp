#include "shell/windows/frm_splash.h"

#include "forms/colours.h"
#include "forms/style.h"
#include "shell/product.h"

#include <QEventLoop>
#include <QLabel>
#include <QPixmap>
#include <QTimer>
#include <QVBoxLayout>

namespace stoikal {

frmSplash::frmSplash(const QString& programFolder, const QString& owner, QWidget* parent)
    : ModalForm(QStringLiteral("frmSplash"), product::Title(), parent)
    , tmrSplash(Named(new QTimer(this), QStringLiteral("tmrSplash")))
{
    constexpr int kWidth = 480;
    constexpr int kHeight = 300;
    constexpr int kTextLeft = 256;
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    setModal(true);
    StayOnPaper(*this);
    setFixedSize(kWidth, kHeight);

    auto* const imgLogo = Named(new QLabel(this), QStringLiteral("imgLogo"));
    QPixmap picture(programFolder + QStringLiteral("/splash.png"));
    picture.setDevicePixelRatio(2);
    imgLogo->setPixmap(picture);
    imgLogo->setGeometry(0, 0, kWidth, kHeight);

    auto* const texts = new QWidget(this);
    texts->setGeometry(kTextLeft, 24, kWidth - kTextLeft - 16, kHeight - 40);
    auto* const rows = new QVBoxLayout(texts);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(8);
    auto* const lblProductName = Named(new QLabel(product::Title(), texts), QStringLiteral("lblProductName"));
    QFont large = lblProductName->font();
    large.setPointSizeF(large.pointSizeF() * 2.6);
    large.setBold(true);
    lblProductName->setFont(large);
    auto* const lblVersion = Named(new QLabel(QStringLiteral("Version %1").arg(product::Version()), texts),
                                   QStringLiteral("lblVersion"));
    auto* const lblOwner = Named(new QLabel(owner, texts), QStringLiteral("lblOwner"));
    lblOwner->setTextFormat(Qt::PlainText);
    lblOwner->setWordWrap(true);
    auto* const lblWarning
        = Named(new QLabel(QStringLiteral("Pour en savoir plus, consultez la boîte «\u00A0A propos de "
                                          "%1\u00A0» dans le menu «\u00A0?\u00A0».")
                               .arg(product::Title()),
                           texts),
                QStringLiteral("lblWarning"));
    lblWarning->setWordWrap(true);
    QPalette quiet = lblWarning->palette();
    quiet.setColor(QPalette::WindowText, colours::kSecondInk);
    lblWarning->setPalette(quiet);
    rows->addWidget(lblProductName);
    rows->addWidget(lblVersion);
    rows->addSpacing(8);
    rows->addWidget(lblOwner);
    rows->addStretch();
    rows->addWidget(lblWarning);

    tmrSplash->setInterval(1500);
    connect(tmrSplash, &QTimer::timeout, this, [this] {
        tmrSplash->stop();
        done(Accepted);
    });
    tmrSplash->start();
}

int frmSplash::exec()
{
    QEventLoop loop;
    connect(this, &QDialog::finished, &loop, &QEventLoop::quit);
    show();
    if (isVisible())
        loop.exec(QEventLoop::DialogExec);
    return result();
}

} // namespace stoikal
