#include "forms/style.h"

#include "forms/colours.h"
#include "forms/enter_key.h"

#include <QApplication>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QToolTip>

namespace stoikal {
namespace {

/// Fusion, with buttons that carry words alone and a star for each character of
/// a password.
class HouseStyle final : public QProxyStyle
{
public:
    HouseStyle()
        : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    {
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
            return 0;
        if (hint == SH_LineEdit_PasswordCharacter)
            return '*';
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
};

QPalette LightPalette()
{
    using namespace colours;
    QPalette palette(kGround);
    palette.setColor(QPalette::Window, kGround);
    palette.setColor(QPalette::WindowText, kInk);
    palette.setColor(QPalette::Base, kPaper);
    palette.setColor(QPalette::AlternateBase, kGround);
    palette.setColor(QPalette::Text, kInk);
    palette.setColor(QPalette::PlaceholderText, kSecondInk);
    palette.setColor(QPalette::Button, QColor(0xFA, 0xFB, 0xFC));
    palette.setColor(QPalette::ButtonText, kInk);
    palette.setColor(QPalette::Mid, kLine);
    palette.setColor(QPalette::Highlight, kAccent);
    palette.setColor(QPalette::HighlightedText, kPaper);
    palette.setColor(QPalette::Link, kAccent);
    palette.setColor(QPalette::ToolTipBase, kInfoTip);
    palette.setColor(QPalette::ToolTipText, kInk);
    const QColor faded(0x83, 0x8B, 0x99);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faded);
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xEE, 0xF0, 0xF3));
    return palette;
}

QPalette DarkPalette()
{
    QPalette palette(QColor(0x2B, 0x30, 0x38));
    palette.setColor(QPalette::Base, QColor(0x1E, 0x22, 0x29));
    palette.setColor(QPalette::Highlight, QColor(0x5B, 0x93, 0xF0));
    palette.setColor(QPalette::HighlightedText, colours::kInk);
    palette.setColor(QPalette::Link, QColor(0x8A, 0xB4, 0xF8));
    palette.setColor(QPalette::ToolTipBase, colours::kInfoTip);
    palette.setColor(QPalette::ToolTipText, colours::kInk);
    return palette;
}

} // namespace

void ApplyStyle()
{
    const bool desktopIsDark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    QApplication::setStyle(new HouseStyle);
    const QPalette palette = desktopIsDark ? DarkPalette() : LightPalette();
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    qApp->installEventFilter(new EnterKey(qApp));
}

void StayOnPaper(QWidget& window)
{
    window.setPalette(LightPalette());
}

} // namespace stoikal
