#include "shell/guarded_dialogs.h"

#include "base/password_file.h"
#include "forms/messages.h"
#include "shell/password_store.h"

#include <QFileInfo>

namespace stoikal {

std::optional<Dialogs::Choice> GuardedDialogs::OpenFile(QWidget* parent, const Request& request)
{
    return ChooseAnother(&Dialogs::OpenFile, parent, request);
}

std::optional<Dialogs::Choice> GuardedDialogs::AppendToFile(QWidget* parent, const Request& request)
{
    return ChooseAnother(&Dialogs::AppendToFile, parent, request);
}

std::optional<QColor> GuardedDialogs::ChooseColour(QWidget* parent, const QColor& initial,
                                                   const QList<QColor>& ownColours)
{
    return m_dialogs.ChooseColour(parent, initial, ownColours);
}

std::optional<Dialogs::Choice> GuardedDialogs::ChooseAnother(Chooser chooser, QWidget* parent,
                                                             Request request)
{
    for (;;) {
        const auto choice = (m_dialogs.*chooser)(parent, request);
        if (!choice || !IsPasswordFile(choice->path, CommonPasswordFile(m_places)))
            return choice;
        m_messages.Critical(parent, QStringLiteral("Stoikal"), PasswordFileRefusal());
        // The dialog comes back where it was left.
        request.folder = QFileInfo(choice->path).absolutePath();
        request.filter = choice->filter;
    }
}

} // namespace stoikal
