#pragma once

#include "forms/form.h"

class QTimer;

namespace stoikal {

/// The greeting at start: name, version and picture, gone after a second and a half.
class frmSplash final : public ModalForm
{
    Q_OBJECT

public:
    frmSplash(const QString& programFolder, const QString& owner, QWidget* parent);

    /// Shows the splash and comes back once it is gone. Showing it lets events
    /// through: on a slow machine its time may be over before it is waited for,
    /// and then there is nothing to wait for.
    int exec() override;

private:
    QTimer* tmrSplash;
};

} // namespace stoikal
