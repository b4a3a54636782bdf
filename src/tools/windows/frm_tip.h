#pragma once

#include "forms/form.h"
#include "tools/tip_list.h"

class QCheckBox;
class QLabel;

namespace stoikal {

class Randomness;
class Settings;

/// The tip of the day: one chosen by chance from a text file, and the switch
/// that shows it at each start.
class frmTip final : public ModalForm
{
    Q_OBJECT

public:
    /// `tipsFile` is the full name of the file with one tip a line.
    frmTip(Settings& settings, Randomness& randomness, const QString& tipsFile, QWidget* parent);

protected:
    void EscapePressed() override { done(Rejected); }

private:
    void Build();
    void DisplayCurrentTip();
    void cmdNextTip_Click();
    void chkLoadTipsAtStartup_Click(bool isChecked);

    Settings& m_settings;
    Randomness& m_randomness;
    TipList m_tips;

    QLabel* lblTipText;
    QCheckBox* chkLoadTipsAtStartup;
};

} // namespace stoikal
