#pragma once

#include "shell/hosted_window.h"

#include <QStringList>

namespace stoikal {

class ExerciseRun;
class frmMassMol;
class Messages;
class Regional;

/// The one window of the molar masses: it opens and closes it, and hands it the
/// atoms of the equation that is there.
class MolarMassesController final : public QObject
{
    Q_OBJECT

public:
    struct Services {
        const ExerciseRun& run;
        Messages& messages;
        const Regional& regional;
    };

    MolarMassesController(const Services& services, const WindowHost& host);
    ~MolarMassesController() override;

    /// Opens the window or takes it away; nothing happens when it is so already.
    void Show(bool shown);
    bool IsShown() const;
    void Mnu_MassMol_Click() { m_window.Toggle(); }

    /// Lists the atoms of the equation that is there now.
    void Refresh();

Q_SIGNALS:
    void Shown(bool shown);
    void GasDataChanged();

private:
    frmMassMol* Make(QWidget* parent);
    QStringList Symbols() const;

    Services m_services;
    WindowHost m_host;
    Hosted<frmMassMol> m_window;
};

} // namespace stoikal
