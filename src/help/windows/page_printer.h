#pragma once

class QString;
class QTextDocument;
class QWidget;

namespace stoikal {

/// Prints a page of help.
class PagePrinter
{
public:
    virtual ~PagePrinter() = default;
    virtual void Print(QWidget* parent, const QString& title, const QTextDocument& page) = 0;
};

/// Asks for the printer first, and prints nothing when the user cancels.
class DesktopPagePrinter final : public PagePrinter
{
public:
    void Print(QWidget* parent, const QString& title, const QTextDocument& page) override;
};

} // namespace stoikal
