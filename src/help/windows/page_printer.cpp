#include "help/windows/page_printer.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QTextDocument>

namespace stoikal {

void DesktopPagePrinter::Print(QWidget* parent, const QString& title, const QTextDocument& page)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    QPrintDialog dialog(&printer, parent);
    dialog.setWindowTitle(QStringLiteral("Imprimer la page"));
    if (dialog.exec() == QDialog::Accepted)
        page.print(&printer);
}

} // namespace stoikal
