#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>

namespace stoikal {

class frmMassMol;
class frmStoikal;
struct Session;

/// The one window of the molar masses and its mark in the menu.
class MassMolDesk final : public QObject
{
    Q_OBJECT

public:
    MassMolDesk(Session& session, frmStoikal& mainWindow, QObject* parent);
    ~MassMolDesk() override;

    /// Opens the window or takes it away; nothing happens when it is so already.
    void Show(bool shown);
    bool IsShown() const;

    /// Lists the atoms of the equation that is there now.
    void Refresh();

Q_SIGNALS:
    void Shown(bool shown);
    void GasDataChanged();

private:
    void Open();
    void Unload();
    QStringList Symbols() const;

    Session& m_session;
    frmStoikal& m_mainWindow;
    QPointer<frmMassMol> m_window;
};

} // namespace stoikal
