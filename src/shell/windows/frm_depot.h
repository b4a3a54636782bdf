#pragma once

#include "forms/form.h"

class QLineEdit;

namespace stoikal {

class Messages;
class Settings;

/// Which folder of the share do the pupils' results go to? Asked once a user, and
/// stored before the window goes; where that fails the user may go on without.
class frmDepot final : public ModalForm
{
    Q_OBJECT

public:
    frmDepot(Settings& settings, Messages& messages, QWidget* parent);

    QString FolderName() const;

protected:
    void TitleBarClosed() override;

private:
    void cmdOK_Click();
    void StoreName();

    Settings& m_settings;
    Messages& m_messages;
    QLineEdit* txtDepot;
};

} // namespace stoikal
