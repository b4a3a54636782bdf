#include "balancing/windows/save_request.h"

#include "base/settings_store.h"

namespace stoikal {

Dialogs::Request EquationFileRequest(const Settings& settings, const QString& folder, const QString& name,
                                     const QString& title)
{
    const QString byDefault = settings.Read(QStringLiteral("Options"), QStringLiteral("Files by default"));
    return {name,
            title,
            folder,
            {QStringLiteral("Stoikal Equilibrage (*.Equ)"), QStringLiteral("Stoikal Avancement (*.Avt)")},
            byDefault == QLatin1String("AVT") ? 1 : 0,
            {}};
}

void RememberFilter(Settings& settings, int filter)
{
    settings.Remember(QStringLiteral("Options"), QStringLiteral("Files by default"),
                      filter == 0 ? QStringLiteral("EQU") : QStringLiteral("AVT"));
}

} // namespace stoikal
