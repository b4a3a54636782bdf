#pragma once

#include "platform/doors.h"

namespace stoikal {

class Settings;

/// The request of the dialog of that name for an equation file: the equation
/// files' folder and filters, the filter last used first.
Dialogs::Request EquationFileRequest(const Settings& settings, const QString& folder, const QString& name,
                                     const QString& title);

/// Keeps the filter that was left active for the next time.
void RememberFilter(Settings& settings, int filter);

} // namespace stoikal
