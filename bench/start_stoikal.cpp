#include "first_paint.h"

#include "forms/messages.h"
#include "forms/style.h"
#include "platform/qt_platform.h"
#include "shell/shell.h"

#include <QLibraryInfo>
#include <QTranslator>

/// The program's own start, up to the first paint of the main window.
int main(int argc, char** argv)
{
    using namespace stoikal;
    QApplication application(argc, argv);
    QTranslator french;
    if (french.load(QStringLiteral("qtbase_fr"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&french);
    ApplyStyle();
    FirstPaint firstPaint("frmStoikal");
    application.installEventFilter(&firstPaint);
    QtDesktop desktop;
    DesktopMessages messages;
    Shell shell(desktop.Doors(), messages);
    shell.Start();
    return QApplication::exec();
}
