#include "base/fatal_fault.h"
#include "forms/style.h"
#include "platform/qt_platform.h"
#include "shell/application.h"
#include "shell/product.h"
#include "shell/shell.h"

#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTimer>
#include <QTranslator>

namespace {

/// A program that places its windows needs a desktop that lets it: where both
/// are there, X11 is preferred.
void PreferX11()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
        && qEnvironmentVariableIsSet("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
}

} // namespace

int main(int argc, char** argv)
{
    using namespace stoikal;
    PreferX11();
    Application application(argc, argv);
    QApplication::setApplicationName(product::Title());
    QApplication::setApplicationVersion(product::Version());
    QApplication::setDesktopFileName(QStringLiteral("stoikal"));
    QApplication::setQuitOnLastWindowClosed(false);
    // The texts of the toolkit are French like ours, whatever the desktop speaks.
    QTranslator french;
    if (french.load(QStringLiteral("qtbase_fr"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&french);
    ApplyStyle();

    QtDesktop desktop;
    const QString program = desktop.folders.Program();
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral("%1/icon_%2.png").arg(program, QString::number(side)), QSize(side, side));
    QApplication::setWindowIcon(icon);

    DesktopMessages messages;
    int code = 0;
    // Outside the guard: what a fault closes must still be there when it is told.
    Shell shell(desktop.Doors(), messages);
    application.RunGuarded([&] {
        application.SetFaultCleaner([&shell] { shell.Journal().Close(); });
        application.SetFaultPlace([&shell](const FatalFault& fault) { return shell.WithPlace(fault); });
        bool hasEnded = false;
        QObject::connect(&shell, &Shell::EndAsked, &application, [&hasEnded] {
            hasEnded = true;
            QApplication::exit(0);
        });
        shell.Start();
        if (!hasEnded)
            code = QApplication::exec();
        application.SetFaultCleaner({});
        application.SetFaultPlace({});
    });
    return code;
}
