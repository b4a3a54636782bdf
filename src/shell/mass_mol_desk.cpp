#include "shell/mass_mol_desk.h"

#include "chemistry/windows/frm_mass_mol.h"
#include "shell/session.h"
#include "shell/windows/frm_stoikal.h"

namespace stoikal {
namespace {

constexpr Twips kFirstLeft = FromPixels(12);

} // namespace

MassMolDesk::MassMolDesk(Session& session, frmStoikal& mainWindow, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_mainWindow(mainWindow)
{
}

MassMolDesk::~MassMolDesk() = default;

bool MassMolDesk::IsShown() const
{
    return m_window != nullptr;
}

void MassMolDesk::Show(bool shown)
{
    if (shown == IsShown())
        return;
    if (shown)
        Open();
    else
        Unload();
}

void MassMolDesk::Open()
{
    const Platform& desktop = m_session.desktop;
    const frmMassMol::Doors doors{m_session.messages, m_session.settings, desktop.screen,
                                  desktop.regional.DecimalSeparator()};
    // In the lower left corner: beside the exercise, below the first atoms.
    const QPoint firstPlace(kFirstLeft, m_session.state.HauteurUtile);
    m_window = new frmMassMol(doors, firstPlace, &m_mainWindow);
    connect(m_window, &frmMassMol::GasDataChanged, this, &MassMolDesk::GasDataChanged);
    connect(m_window, &Form::CloseAsked, this, [this] { Show(false); });
    m_session.menu.SetChecked("Mnu_MassMol", true);
    Q_EMIT Shown(true);
    m_window->Open(Symbols());
    if (m_window != nullptr)
        m_window->activateWindow();
}

void MassMolDesk::Unload()
{
    m_window->KeepData();
    m_window->hide();
    m_window->deleteLater();
    m_window = nullptr;
    m_session.menu.SetChecked("Mnu_MassMol", false);
    Q_EMIT Shown(false);
}

void MassMolDesk::Refresh()
{
    if (m_window != nullptr)
        m_window->ListAtomMasses(Symbols());
}

QStringList MassMolDesk::Symbols() const
{
    QStringList symbols;
    for (const AtomList* const side : {&m_session.run.Reactants(), &m_session.run.Products()}) {
        for (const QString& symbol : side->Symbol) {
            if (!symbol.isEmpty() && !symbols.contains(symbol))
                symbols << symbol;
        }
    }
    return symbols;
}

} // namespace stoikal
