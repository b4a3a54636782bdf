#pragma once

#include "chemistry/gas_data.h"
#include "forms/form.h"

#include <QList>
#include <QPoint>
#include <QStringList>
#include <optional>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace stoikal {

class Messages;
class Screen;
class Settings;
struct SettingValue;

/// The molar masses of the atoms of an equation, and the gas law that fixes the
/// molar volume: of pressure, temperature and volume the two ticked are given.
/// The settings keep the values and the place.
class frmMassMol final : public Form
{
    Q_OBJECT

public:
    struct Doors {
        Messages& messages;
        Settings& settings;
        const Screen& screen;
        QChar separator;
    };

    /// \param otherwise where the window opens the first time, in twips from the
    /// corner of the work area.
    frmMassMol(const Doors& doors, QPoint otherwise, QWidget* parent);

    /// Takes the values kept, computes the volume and shows the window.
    void Open(const QStringList& symbols);

    /// Lists the molar masses of these symbols; the window takes the height that
    /// they need and stays within the screen and the main window.
    void ListAtomMasses(const QStringList& symbols);

    /// Keeps the values in force and the place.
    void Release() override;

Q_SIGNALS:
    /// The molar volume of the settings was computed again.
    void GasDataChanged();

private:
    void BuildGas(QGridLayout& grid);
    void BuildRow(QGridLayout& grid, int value);
    void chkData_Click(int value);
    void cmdCalcul_Click();
    bool ComputeAndShow();
    void ShowWhatCanBeDone();
    QList<SettingValue> GasSettings() const;
    void Place();

    Doors m_doors;
    QPoint m_otherwise;
    std::optional<GasNumbers> m_inForce;

    std::array<QCheckBox*, 3> chkData{};
    std::array<QLineEdit*, 3> txtData{};
    QPushButton* cmdCalcul;
    QLabel* lblMassMol;
};

} // namespace stoikal
