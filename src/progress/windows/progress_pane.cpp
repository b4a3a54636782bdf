#include "progress/windows/progress_pane.h"

#include "base/settings_store.h"
#include "chemistry/formula.h"
#include "forms/messages.h"
#include "progress/windows/progress_box.h"

#include <QCheckBox>
#include <QPushButton>
#include <QScopedValueRollback>

namespace stoikal {
namespace {

void SetEnabled(const ProgressControls::Boxes& boxes, bool enabled)
{
    for (ProgressBox* const box : boxes)
        box->setEnabled(enabled);
}

void ShowVerdicts(const ProgressControls::Boxes& boxes, const RowVerdicts& verdicts)
{
    for (std::size_t slot = 0; slot < 6; ++slot) {
        if (verdicts[slot] != BoxVerdict::NotJudged)
            boxes[slot]->ShowVerdict(verdicts[slot]);
    }
}

} // namespace

ProgressPane::ProgressPane(const Doors& doors, ProgressExercise& exercise)
    : LowerPane(nullptr)
    , m_doors(doors)
    , m_exercise(exercise)
    , m_run(doors.separator)
    , m_controls(doors.messages, *this)
{
    setObjectName(QStringLiteral("picTableau"));
    setAccessibleName(QStringLiteral("Tableau d'avancement"));
    setMouseTracking(true);
    for (int slot = 0; slot < 6; ++slot) {
        const auto place = static_cast<std::size_t>(slot);
        connect(m_controls.txtMasMol[place], &ProgressBox::Edited, this, &ProgressPane::txtMasMol_Change);
        connect(m_controls.txtQmat0[place], &ProgressBox::Edited, this,
                [this, slot] { txtQmat0_Change(slot); });
        for (const auto* const row : {&m_controls.txtMasse, &m_controls.txtVolGaz, &m_controls.txtQmatf})
            connect((*row)[place], &ProgressBox::Edited, this, &ProgressPane::CheckTableComplete);
    }
    connect(m_controls.cmdValidMassMol, &QPushButton::clicked, this, &ProgressPane::cmdValidMassMol_Click);
    connect(m_controls.cmdValidMVQ, &QPushButton::clicked, this, &ProgressPane::cmdValidMVQ_Click);
    connect(m_controls.chkDataMol, &QCheckBox::toggled, this, &ProgressPane::chkDataMol_Click);
    connect(m_controls.chkHistoMol, &QCheckBox::toggled, this, &ProgressPane::DrawingsToggled);
}

bool ProgressPane::IsSeries() const
{
    return m_run.CurrentStep() != ProgressRun::Step::FreeSimulation;
}

double ProgressPane::MolarVolume() const
{
    return MolarVolumeOf(m_doors.settings.Read(QStringLiteral("Données"), QStringLiteral("Volume molaire")));
}

void ProgressPane::ReportUnknownAtom(const QString& symbol)
{
    // The exercise must not cover the box.
    const bool wasShown = window()->isVisible();
    window()->hide();
    m_doors.messages.Warning(window()->parentWidget(), QStringLiteral("Symbole d'atome inconnu"),
                             UnknownAtomMessage(symbol));
    window()->setVisible(wasShown);
}

MolarMasses ProgressPane::ComputeMolarMasses(const EquationRecord& record)
{
    MolarMasses masses{};
    const auto report = [this](const QString& symbol) { ReportUnknownAtom(symbol); };
    for (std::size_t slot = 0; slot < 6; ++slot)
        masses[slot] = MolarMass(record.Slots[slot].Molecule, report).gramsPerMole;
    return masses;
}

void ProgressPane::TakeEquation(const EquationRecord& record, bool isSeries)
{
    m_run.TakeEquation(record, ComputeMolarMasses(record), isSeries, MolarVolume());
    ShowEquation();
    Q_EMIT TableChanged();
}

void ProgressPane::ShowEquation()
{
    const QScopedValueRollback<bool> writing(m_isWriting, true);
    const bool isSeries = IsSeries();
    for (const auto* const row : m_controls.Rows()) {
        for (ProgressBox* const box : *row)
            box->ShowVerdict(BoxVerdict::NotJudged);
        SetEnabled(*row, false);
    }
    WriteTexts(m_run.StartTexts());
    for (int slot = 0; slot < 6; ++slot) {
        const auto place = static_cast<std::size_t>(slot);
        const SpeciesSlot& species = m_run.Record().Slots[place];
        m_controls.NameColumn(slot, species.Molecule);
        const bool isUsed = !species.Molecule.isEmpty();
        m_controls.txtMasMol[place]->setText(isSeries || !isUsed ? QString() : m_run.MolarMassText(slot));
        m_controls.txtMasMol[place]->setEnabled(isSeries);
        m_controls.txtVolGaz[place]->SetAsked(IsGas(species));
        m_controls.txtQmat0[place]->setEnabled(!isSeries && slot < 3);
    }
    m_controls.cmdValidMassMol->setEnabled(false);
    SetOutOfDate(false);
    m_controls.cmdValidMVQ->setEnabled(false);
    m_controls.chkHistoMol->setChecked(false);
    m_controls.chkHistoMol->setVisible(!isSeries);
    m_controls.chkHistoMol->setEnabled(m_run.HasProgress());
}

void ProgressPane::WriteTexts(const ProgressTexts& texts)
{
    const QScopedValueRollback<bool> writing(m_isWriting, true);
    m_controls.SetTexts(texts);
}

void ProgressPane::txtMasMol_Change()
{
    if (m_isWriting)
        return;
    bool areAllTyped = IsSeries();
    for (int slot = 0; slot < 6; ++slot) {
        const QString text = m_controls.txtMasMol[static_cast<std::size_t>(slot)]->text();
        areAllTyped = areAllTyped && (!Table().IsUsed(slot) || TypedNumber(text) != 0);
    }
    m_controls.cmdValidMassMol->setEnabled(areAllTyped);
}

void ProgressPane::txtQmat0_Change(int slot)
{
    if (m_isWriting)
        return;
    const auto place = static_cast<std::size_t>(slot);
    if (slot < 3) {
        m_controls.txtQmati[place]->setText(
            IntermediateText(slot, Table().Coeff[place], m_controls.txtQmat0[place]->text()));
    }
    if (IsSeries()) {
        CheckTableComplete();
        return;
    }
    SetOutOfDate(true);
    m_controls.cmdValidMVQ->setEnabled(true);
}

std::array<bool, 6> ProgressPane::VolumeAsked() const
{
    std::array<bool, 6> asked{};
    for (std::size_t slot = 0; slot < 6; ++slot)
        asked[slot] = m_controls.txtVolGaz[slot]->isEnabled();
    return asked;
}

void ProgressPane::CheckTableComplete()
{
    // Once complete, the table may be validated with a box emptied again.
    if (!m_isWriting && IsSeries() && IsTableComplete(Table(), m_controls.Texts(), VolumeAsked()))
        m_controls.cmdValidMVQ->setEnabled(true);
}

void ProgressPane::cmdValidMassMol_Click()
{
    std::array<QString, 6> typed;
    for (std::size_t slot = 0; slot < 6; ++slot)
        typed[slot] = m_controls.txtMasMol[slot]->text();
    const RowVerdicts verdicts = m_run.CheckMolarMasses(typed);
    ShowVerdicts(m_controls.txtMasMol, verdicts);
    if (AreAllRight(verdicts)) {
        m_exercise.PassStep();
        EndMolarMasses();
        return;
    }
    if (!m_exercise.FailStep())
        return;
    {
        const QScopedValueRollback<bool> writing(m_isWriting, true);
        for (int slot = 0; slot < 6; ++slot) {
            const auto place = static_cast<std::size_t>(slot);
            if (verdicts[place] == BoxVerdict::Wrong)
                m_controls.txtMasMol[place]->setText(m_run.MolarMassText(slot));
        }
    }
    EndMolarMasses();
}

void ProgressPane::EndMolarMasses()
{
    m_run.EndMolarMasses();
    // The boxes first: the keyboard that leaves the button must not pass over
    // them, since a red value turns black when somebody comes to it.
    SetEnabled(m_controls.txtMasMol, false);
    m_controls.cmdValidMassMol->setEnabled(false);
    if (m_run.CurrentStep() == ProgressRun::Step::Table) {
        EnableTableInput();
        return;
    }
    m_exercise.SetInstruction(QStringLiteral("Pas de données\u00A0: passez à l'équation suivante"));
    EndEquation();
}

void ProgressPane::EnableTableInput()
{
    for (const auto* const row :
         {&m_controls.txtMasse, &m_controls.txtVolGaz, &m_controls.txtQmat0, &m_controls.txtQmatf}) {
        for (ProgressBox* const box : *row)
            box->setEnabled(box->text().isEmpty() && box->IsAsked());
    }
    m_exercise.SetInstruction(QStringLiteral("Complétez le tableau d'avancement"));
    FocusFirstBox();
}

void ProgressPane::cmdValidMVQ_Click()
{
    if (IsSeries())
        ValidateTable();
    else
        Simulate();
}

void ProgressPane::ValidateTable()
{
    const TableVerdicts verdicts = m_run.CheckTable(m_controls.Texts(), VolumeAsked());
    ShowVerdicts(m_controls.txtMasse, verdicts.txtMasse);
    ShowVerdicts(m_controls.txtVolGaz, verdicts.txtVolGaz);
    ShowVerdicts(m_controls.txtQmat0, verdicts.txtQmat0);
    ShowVerdicts(m_controls.txtQmatf, verdicts.txtQmatf);
    if (verdicts.AreAllRight())
        m_exercise.PassStep();
    else if (m_exercise.FailStep())
        WriteTexts(m_run.Solution(m_controls.Texts()));
    else
        return;
    m_run.EndTable();
    EndEquation();
}

void ProgressPane::EndEquation()
{
    for (const auto* const row :
         {&m_controls.txtMasse, &m_controls.txtVolGaz, &m_controls.txtQmat0, &m_controls.txtQmatf})
        SetEnabled(*row, false);
    m_controls.cmdValidMVQ->setEnabled(false);
    m_controls.chkHistoMol->show();
    m_exercise.EndEquation();
}

void ProgressPane::Simulate()
{
    const QString refusal = m_run.RefusalOf(m_controls.Texts());
    if (!refusal.isEmpty()) {
        m_doors.messages.InputError(window(), refusal);
        return;
    }
    ShowSimulation(m_run.Simulate(m_controls.Texts(), MolarVolume()));
}

void ProgressPane::ShowSimulation(const ProgressTexts& texts)
{
    WriteTexts(texts);
    SetOutOfDate(false);
    m_controls.chkHistoMol->setEnabled(m_run.HasProgress());
    Q_EMIT TableChanged();
}

void ProgressPane::FollowMolarVolume()
{
    if (MolarVolume() == Table().MolarVolume)
        return;
    if (!IsSeries() && m_run.RefusalOf(m_controls.Texts()).isEmpty()) {
        ShowSimulation(m_run.Simulate(m_controls.Texts(), MolarVolume()));
        return;
    }
    m_run.ChangeMolarVolume(MolarVolume());
    Q_EMIT TableChanged();
}

void ProgressPane::SetOutOfDate(bool isOutOfDate)
{
    QPushButton& button = *m_controls.cmdValidMVQ;
    // The style mixes a palette's colour with its own light; the sheet draws it as it is.
    button.setStyleSheet(isOutOfDate ? QStringLiteral("QPushButton { background-color: #ff0000; color: white;"
                                                      " border: 1px solid #9c1512; border-radius: 3px; }"
                                                      "QPushButton:focus { border: 2px solid #1c2430; }"
                                                      "QPushButton:pressed { background-color: #c5221f; }")
                                     : QString());
}

void ProgressPane::SetShowsData(bool shown)
{
    m_controls.chkDataMol->setChecked(shown);
}

void ProgressPane::chkDataMol_Click(bool checked)
{
    Q_EMIT DataToggled(checked);
    if (!checked && isVisible() && m_controls.txtMasMol[0]->isEnabled())
        m_controls.txtMasMol[0]->setFocus();
}

void ProgressPane::SetShowsDrawings(bool shown)
{
    m_controls.chkHistoMol->setChecked(shown);
}

LowerPane::Needs ProgressPane::FitTo(int titleRoom, const QWidget& next)
{
    m_controls.FitTitles(titleRoom);
    return m_controls.LeastSizes(next);
}

void ProgressPane::PlaceUnder(const Columns& columns, QWidget& next)
{
    m_controls.Place(columns, y(), width(), next);
}

void ProgressPane::FocusFirstBox()
{
    for (const auto* const row : m_controls.Rows()) {
        for (ProgressBox* const box : *row) {
            if (box->isEnabled() && box->isVisible()) {
                box->setFocus();
                return;
            }
        }
    }
}

} // namespace stoikal
