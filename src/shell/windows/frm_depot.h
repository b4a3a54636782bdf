#pragma once

#include "forms/form.h"

class QLineEdit;

namespace stoikal {

class Messages;

/// Which folder of the share do the pupils' results go to? Asked once a user.
class frmDepot final : public ModalForm
{
    Q_OBJECT

public:
    frmDepot(Messages& messages, QWidget* parent);

    QString FolderName() const;

private:
    void cmdOK_Click();

    Messages& m_messages;
    QLineEdit* txtDepot;
};

} // namespace stoikal
