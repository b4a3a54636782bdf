#include "first_paint.h"

#include <QMainWindow>
#include <QMdiArea>

/// The peer: a bare window with a multi-document area.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    FirstPaint firstPaint("frmStoikal");
    application.installEventFilter(&firstPaint);
    QMainWindow window;
    window.setObjectName(QStringLiteral("frmStoikal"));
    window.setCentralWidget(new QMdiArea(&window));
    window.resize(1020, 718);
    window.show();
    return QApplication::exec();
}
