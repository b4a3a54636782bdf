// Every window with the desktop's letters twice as large: nothing that it says is
// cut off.

#include "shell_fixture.h"

#include <QAbstractScrollArea>
#include <QFontMetrics>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTextDocument>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// So much may be missing by rounding, in pixels.
constexpr int kRounding = 2;

bool IsInScrollArea(const QWidget& widget, const QWidget& window)
{
    for (const QWidget* up = widget.parentWidget(); up != nullptr && up != &window; up = up->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea*>(up) != nullptr)
            return true;
    }
    return false;
}

/// The width that a text takes in lines of its own.
int WidthOf(const QString& text, const QWidget& widget)
{
    const QString bare = QString(text).remove(u'&');
    int width = 0;
    const QStringList lines = bare.split(u'\n');
    for (const QString& line : lines)
        width = std::max(width, QFontMetrics(widget.font()).horizontalAdvance(line));
    return width;
}

QString NameOf(const QWidget& widget)
{
    return widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className())
                                         : widget.objectName();
}

/// What of a widget is not to be seen whole; empty when all is.
QString Loss(const QWidget& widget, const QWidget& window)
{
    const QRect inside = widget.parentWidget()->rect().adjusted(-kRounding, -kRounding, kRounding, kRounding);
    if (!IsInScrollArea(widget, window) && !inside.contains(widget.geometry()))
        return u"is cut by its parent's edge"_s;
    if (const auto* const label = qobject_cast<const QLabel*>(&widget); label != nullptr) {
        if (label->text().isEmpty() || Qt::mightBeRichText(label->text()))
            return {};
        if (label->wordWrap()) {
            return label->heightForWidth(label->width()) > label->height() + kRounding
                ? u"has too little height"_s
                : QString();
        }
        return WidthOf(label->text(), widget) > label->width() + kRounding
            ? u"is too narrow for "_s + label->text()
            : QString();
    }
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget); button != nullptr) {
        if (!button->text().isEmpty() && WidthOf(button->text(), widget) > button->width() + kRounding)
            return u"is too narrow for "_s + button->text();
        return {};
    }
    const bool isBox = qobject_cast<const QLineEdit*>(&widget) != nullptr;
    if (isBox && QFontMetrics(widget.font()).height() > widget.height() + kRounding)
        return u"is too low for a line"_s;
    return {};
}

class LargeText : public ShellTest
{
protected:
    LargeText()
    {
        QFont large = m_before;
        large.setPointSizeF(m_before.pointSizeF() * 2);
        QApplication::setFont(large);
        WriteSettings({u"[Options]"_s, u"Show Tips at Startup=0"_s});
    }
    ~LargeText() override { QApplication::setFont(m_before); }

    void SetUp() override { Start(); }

    static void ExpectNoLoss(QWidget& window)
    {
        Settle();
        int looked = 0;
        const auto widgets = window.findChildren<QWidget*>();
        for (const QWidget* const widget : widgets) {
            if (!widget->isVisible() || widget->window() != window.window()
                || widget->objectName().startsWith(u"qt_"_s))
                continue;
            ++looked;
            const QString loss = Loss(*widget, window);
            EXPECT_TRUE(loss.isEmpty()) << window.objectName().toStdString() << ": "
                                        << NameOf(*widget).toStdString() << ' ' << loss.toStdString();
        }
        EXPECT_GT(looked, 0) << window.objectName().toStdString();
    }

    static void ExpectNoLossIn(const char* name)
    {
        Settle();
        QWidget* const window = FindWindow(name);
        ASSERT_NE(window, nullptr) << name;
        ExpectNoLoss(*window);
    }

    /// In the modal window of that name, which is left by a button.
    void ExpectNoLossWhenItComes(const char* name, const char* button)
    {
        script.On(name, [button](QWidget& window) {
            ExpectNoLoss(window);
            Click(Control<QAbstractButton>(window, button));
        });
    }

private:
    QFont m_before = QApplication::font();
};

} // namespace

TEST_F(LargeText, CutsNothingOffInTheTools)
{
    for (const auto& [entry, window] : {std::pair("Mnu_Tableau", "frmTableauPeriodique"),
                                        {"Mnu_Balance", "frmExpert"},
                                        {"Mnu_Search", "frmSearch"},
                                        {"Mnu_CalMol", "frmCalMol"}}) {
        Choose(entry);
        ExpectNoLossIn(window);
        Choose(entry);
        Settle();
    }
}

TEST_F(LargeText, CutsNothingOffInThePreferences)
{
    Choose("Mnu_Pref");
    ExpectNoLossIn("frmPref");
}

TEST_F(LargeText, CutsNothingOffInTheStopwatch)
{
    Choose("Mnu_Chrono");
    ExpectNoLossIn("frmChrono");
}

TEST_F(LargeText, CutsNothingOffInTheTextAboutTheProgram)
{
    ExpectNoLossWhenItComes("frmAbout", "cmdOK");
    Choose("Mnu_About");
}

TEST_F(LargeText, CutsNothingOffInTheTipOfTheDay)
{
    leavesTheTip = false;
    WriteTextFile(EquationFolder() + u"/TipOfDayEqChm.txt"_s, {u"Une case vide compte pour 1."_s});
    ExpectNoLossWhenItComes("frmTip", "cmdOK");
    Choose("Mnu_Tip");
}

TEST_F(LargeText, CutsNothingOffWhereThePasswordIsAsked)
{
    passesAsTeacher = false;
    ExpectNoLossWhenItComes("frmMotPasse", "cmdCancel");
    Choose("Mnu_CalMol");
}

TEST_F(LargeText, CutsNothingOffInTheEditor)
{
    script.On("frmNewFile", [](QWidget& window) {
        ExpectNoLoss(window);
        window.close();
    });
    Choose("Mnu_Create");
}

TEST_F(LargeText, CutsNothingOffInARun)
{
    script.On("frmName", [](QWidget& window) {
        ExpectNoLoss(window);
        Type(Control<QLineEdit>(window, "txtIdent(1)"), u"DUPONT"_s);
        Type(Control<QLineEdit>(window, "txtIdent(2)"), u"Paul"_s);
        Type(Control<QLineEdit>(window, "txtIdent(3)"), u"3B"_s);
        Click(Control<QAbstractButton>(window, "cmdOK"));
    });
    AnswerDialog(WriteEquations({u"CH4+O2=CO2+H2O/1,2,1,2"_s, u"N2+H2=NH3/1,3,2"_s}));
    Choose("Mnu_Open(0)");
    ExpectNoLossIn("frmEquation");
    Answer({{}, u"2"_s, {}, {}, u"2"_s});
    ExpectNoLossIn("frmEquation");
    Choose("Mnu_MassMol");
    ExpectNoLossIn("frmMassMol");
}

} // namespace stoikal
