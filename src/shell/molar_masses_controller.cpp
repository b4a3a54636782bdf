#include "shell/molar_masses_controller.h"

#include "base/places.h"
#include "chemistry/windows/frm_mass_mol.h"
#include "exercise/exercise_run.h"
#include "platform/doors.h"
#include "shell/window_rows.h"

namespace stoikal {
namespace {

constexpr Twips kFirstLeft = FromPixels(12);

} // namespace

MolarMassesController::MolarMassesController(const Services& services, const WindowHost& host)
    : m_services(services)
    , m_host(host)
    , m_window(
          window_rows::kMassMol, host, [this](QWidget* parent) { return Make(parent); },
          [this](frmMassMol& window) {
              window.Open(Symbols());
              if (m_window.IsOpen())
                  window.activateWindow();
          })
{
    connect(&m_window, &HostedWindow::Opened, this, [this] { Q_EMIT Shown(true); });
    connect(&m_window, &HostedWindow::Closed, this, [this] { Q_EMIT Shown(false); });
}

MolarMassesController::~MolarMassesController() = default;

bool MolarMassesController::IsShown() const
{
    return m_window.IsOpen();
}

void MolarMassesController::Show(bool shown)
{
    if (shown)
        m_window.Open();
    else
        m_window.Close();
}

frmMassMol* MolarMassesController::Make(QWidget* parent)
{
    const frmMassMol::Doors services{m_services.messages, m_host.settings, m_host.screen,
                                     m_services.regional.DecimalSeparator()};
    // In the lower left corner: beside the exercise, below the first atoms.
    auto* const window = new frmMassMol(services, QPoint(kFirstLeft, m_host.places.HauteurUtile), parent);
    connect(window, &frmMassMol::GasDataChanged, this, &MolarMassesController::GasDataChanged);
    return window;
}

void MolarMassesController::Refresh()
{
    if (m_window.IsOpen())
        m_window.Get()->ListAtomMasses(Symbols());
}

QStringList MolarMassesController::Symbols() const
{
    QStringList symbols;
    for (const AtomList* const side : {&m_services.run.Reactants(), &m_services.run.Products()}) {
        for (const QString& symbol : side->Symbol) {
            if (!symbol.isEmpty() && !symbols.contains(symbol))
                symbols << symbol;
        }
    }
    return symbols;
}

} // namespace stoikal
