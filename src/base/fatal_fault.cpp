#include "base/fatal_fault.h"

#include "base/quote.h"
#include "base/shown_path.h"

#include <utility>

namespace stoikal {

FatalFault::FatalFault(QString cause)
    : FatalFault(std::move(cause), {}, 0, {})
{
}

FatalFault::FatalFault(QString cause, QString file, int line, QString lineText)
    : m_cause(std::move(cause))
    , m_file(std::move(file))
    , m_line(line)
    , m_lineText(std::move(lineText))
    , m_utf8(m_cause.toUtf8())
{
}

FatalFault FatalFault::WithoutFile(QString cause)
{
    FatalFault fault(std::move(cause));
    fault.m_takesPlace = false;
    return fault;
}

FatalFault FatalFault::At(const QString& file, int line, const QString& lineText) const
{
    const bool isPlaceMissing = m_takesPlace && m_file.isEmpty();
    return isPlaceMissing ? FatalFault(m_cause, file, line, lineText) : *this;
}

QString FatalFault::OperationText() const
{
    QString text = QStringLiteral("Erreur d'exécution\u00A0: %1").arg(m_cause);
    if (!m_file.isEmpty())
        text += QStringLiteral("\n\nFichier\u00A0: %1").arg(ShownPath(m_file));
    if (m_line > 0)
        text += QStringLiteral("\nLigne %1\u00A0: %2").arg(QString::number(m_line), Quoted(m_lineText));
    return text;
}

QString FatalFault::MessageText() const
{
    return OperationText()
        + QStringLiteral(
               "\n\nL'application va se fermer. Tout ce qui a été enregistré jusqu'ici est conservé.");
}

} // namespace stoikal
