#include "balancing/windows/searching_form.h"

#include <QPlainTextEdit>

namespace stoikal {

SearchingForm::SearchingForm(const QString& name, const QString& caption, const Doors& doors, QWidget* parent)
    : Form(name, caption, Kind::Child, parent)
    , m_doors(doors)
{
    setMouseTracking(true);
}

void SearchingForm::SetUpList(QPlainTextEdit& list)
{
    list.setReadOnly(true);
    list.setTabChangesFocus(true);
    list.setUndoRedoEnabled(false);
    QFont large = list.font();
    large.setPointSizeF(large.pointSizeF() + 1);
    list.setFont(large);
}

void SearchingForm::ShowAtEnd(QPlainTextEdit& list, const QString& text)
{
    list.moveCursor(QTextCursor::End);
    list.insertPlainText(text);
    list.moveCursor(QTextCursor::End);
}

void SearchingForm::BeginSearch()
{
    m_isSearching = true;
    m_isStopped = false;
}

bool SearchingForm::EndSearch()
{
    m_isSearching = false;
    if (!m_isToClose)
        return true;
    Q_EMIT Released();
    return false;
}

void SearchingForm::Release()
{
    if (!m_isSearching) {
        Q_EMIT Released();
        return;
    }
    m_isStopped = true;
    m_isToClose = true;
}

} // namespace stoikal
