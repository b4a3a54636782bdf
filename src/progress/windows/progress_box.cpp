#include "progress/windows/progress_box.h"

#include "forms/colours.h"
#include "forms/messages.h"

namespace stoikal {
namespace {

const QColor kWrongText(255, 0, 0);
const QColor kNotAsked(0xE0, 0xE0, 0xE0);
const QColor kClosed(0xF3, 0xEC, 0xD6); ///< a given or finished box, a shade below the band

} // namespace

ProgressBox::ProgressBox(Messages& messages, QWidget* parent)
    : FilterEdit(parent)
    , m_messages(messages)
{
    setAlignment(Qt::AlignCenter);
    connect(this, &FilterEdit::KeyPressed, this, &ProgressBox::KeyPress);
    connect(this, &QLineEdit::textChanged, this, &ProgressBox::Change);
    connect(this, &FilterEdit::FocusGained, this, [this] { ShowVerdict(BoxVerdict::NotJudged); });
    ShowColours();
}

void ProgressBox::ShowVerdict(BoxVerdict verdict)
{
    m_isWrong = verdict == BoxVerdict::Wrong;
    ShowColours();
}

void ProgressBox::SetAsked(bool asked)
{
    m_isAsked = asked;
    m_staysWhite = asked;
    ShowColours();
}

void ProgressBox::ShowColours()
{
    QPalette shown = palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor open = group == QPalette::Disabled && !m_staysWhite ? kClosed : colours::kPaper;
        shown.setColor(group, QPalette::Base, m_isAsked ? open : kNotAsked);
        shown.setColor(group, QPalette::Text, m_isWrong ? kWrongText : QColor(Qt::black));
    }
    setPalette(shown);
}

void ProgressBox::KeyPress(QChar key)
{
    m_badKey = false;
    const bool isDigit = key >= QLatin1Char('0') && key <= QLatin1Char('9');
    if (isDigit || key == QLatin1Char(',') || key == QLatin1Char('.'))
        return;
    m_badKey = true;
    if (RefusalIsTold())
        return;
    NoteRefusal();
    m_messages.InputError(window(), QStringLiteral("Veuillez saisir un chiffre."));
}

void ProgressBox::Change()
{
    if (m_badKey && !text().isEmpty()) {
        m_badKey = false;
        setText(text().chopped(1));
        return;
    }
    Q_EMIT Edited();
}

} // namespace stoikal
