#pragma once

#include "forms/form.h"

namespace stoikal {

class Messages;

/// What the program is: title, version, the maker's site, and what is known of
/// the system, for who asks for help.
class frmAbout final : public ModalForm
{
    Q_OBJECT

public:
    frmAbout(const QString& programFolder, Messages& messages, QWidget* parent);

Q_SIGNALS:
    void WebAsked();

protected:
    void EscapePressed() override { done(Rejected); }

private:
    void cmdSysInfo_Click();

    Messages& m_messages;
};

} // namespace stoikal
