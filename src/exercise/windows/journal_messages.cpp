#include "exercise/windows/journal_messages.h"

#include "base/shown_path.h"
#include "exercise/results_journal.h"
#include "forms/messages.h"

namespace stoikal {

void WriteToJournal(ResultsJournal& journal, Messages& messages, QWidget* parent, const QStringList& lines)
{
    const bool wasTold = journal.HasUnsavedLines();
    if (journal.WriteLines(lines) || wasTold)
        return;
    messages.Critical(
        parent, QStringLiteral("Stoikal"),
        QStringLiteral("Le fichier des résultats ne peut pas être complété :\n%1\n"
                       "Le disque est peut-être plein.\n\n"
                       "Rien n'est perdu\u00A0: vous pouvez continuer, les lignes en attente seront\n"
                       "écrites dès que possible. Prévenez votre professeur.")
            .arg(ShownPath(journal.Path())));
}

} // namespace stoikal
