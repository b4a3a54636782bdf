#pragma once

#include "exercise/side_colours.h"
#include "forms/form.h"

class QCheckBox;
class QFrame;
class QGroupBox;
class QRadioButton;

namespace stoikal {

class Dialogs;
class Messages;
class Settings;

/// The preferences: the colours of the two sides, how the atom windows stand, two
/// switches of the start. Each change is written at once and told by a signal;
/// there is nothing to confirm. One that could not be written is reported and is
/// none: the controls go back to what is stored.
class frmPref final : public Form
{
    Q_OBJECT

public:
    struct Services {
        Settings& settings;
        Dialogs& dialogs;
        Messages& messages;
    };

    frmPref(const Services& services, QWidget* parent);

    /// Shows the settings as they stand, without writing any.
    void ShowSettings();

Q_SIGNALS:
    void ColoursChanged();
    void ArrangementChanged();

private:
    QGroupBox* BuildColours();
    QGroupBox* BuildArrangement();
    QGroupBox* BuildStart();
    void Connect();
    void ShowColours();
    void ShowNewColours();
    void SetTabOrders();
    void cmdPalette_Click();
    void cmdColor_Defaut_Click();
    void optAffichage_Click(int index);
    void WriteSwitch(const QString& key, bool isOn);
    bool IsStored(const std::function<Outcome<QString>()>& store);

    Services m_services;
    bool m_isLoading = false; ///< the controls take what the settings say, and nothing else happens

    QRadioButton* optColor[2];
    QFrame* shpColor[2];
    QPushButton* cmdPalette;
    QPushButton* cmdColor_Defaut;
    QRadioButton* optAffichage[2];
    QCheckBox* chkLoadTipsAtStartup;
    QCheckBox* chkInfoBulles;
};

} // namespace stoikal
