#pragma once

#include "forms/form.h"
#include "tools/tip_list.h"

class QCheckBox;
class QLabel;

namespace stoikal {

class Messages;
class Randomness;
class Settings;

/// The tip of the day: one chosen by chance from a text file, and the switch
/// that shows it at each start.
class frmTip final : public ModalForm
{
    Q_OBJECT

public:
    struct Services {
        Settings& settings;
        Randomness& randomness;
        Messages& messages;
    };

    /// `tipsFile` is the full name of the file with one tip a line.
    frmTip(const Services& services, const QString& tipsFile, QWidget* parent);

protected:
    void EscapePressed() override { done(Rejected); }

private:
    void Build();
    void DisplayCurrentTip();
    void cmdNextTip_Click();
    void chkLoadTipsAtStartup_Click(bool isChecked);
    void ShowSwitch();

    Services m_services;
    TipList m_tips;

    QLabel* lblTipText;
    QCheckBox* chkLoadTipsAtStartup;
};

} // namespace stoikal
