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

private:
    QTimer* tmrSplash;
};

} // namespace stoikal
