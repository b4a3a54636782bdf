#pragma once

#include "base/settings_store.h"
#include "exercise/equation_bench.h"
#include "progress/windows/progress_box.h"
#include "progress/windows/progress_pane.h"

#include <QCheckBox>
#include <QFrame>

namespace stoikal {

/// C 3 mol, O2 2 mol: the advancement is 2 mol, 1 mol of C is left.
/// Masses: 3 x 12.0107 = 36.0, 2 x 31.9988 = 64.0, 2 x 44.0095 = 88.0 g.
/// Volumes at 22.4 L/mol: 44.8 L of O2 and of CO2.
inline const QByteArray kCarbon("C<s>+O2<g>=CO2<g>/1,1,1#Q3,Q2,Q0\n");

/// The exercise with its table on the screen, brought together as the main
/// window does it, over a file of its own.
class ProgressBench : public EquationBench, protected ProgressExercise
{
protected:
    void OpenProgress(const QByteArray& text, RunKind kind)
    {
        run.SetKind(kind);
        OpenFile(text);
        window = std::make_unique<frmEquation>(
            run, frmEquation::Doors{places, journal, messages, screen, sound}, nullptr);
        pane = new ProgressPane({settings, messages, QLatin1Char(',')}, *this);
        window->SetLowerPane(pane);
        QObject::connect(window.get(), &frmEquation::EquationRead, pane, [this] {
            if (state.FichierAvancement())
                pane->TakeEquation(run.Record(), state.SerieExercices());
        });
        QObject::connect(window.get(), &frmEquation::EndOfFileReached, window.get(), [this] { ++ends; });
        QObject::connect(pane, &ProgressPane::TableChanged, window.get(), [this] { ++tableChanges; });
        QObject::connect(pane, &ProgressPane::DataToggled, window.get(),
                         [this](bool shown) { dataToggled << (shown ? 1 : 0); });
        QObject::connect(pane, &ProgressPane::DrawingsToggled, window.get(),
                         [this](bool shown) { drawingsToggled << (shown ? 1 : 0); });
        window->ReadNextEquation();
        window->Open();
        Settle();
    }

    void OpenSeries(const QByteArray& text) { OpenProgress(text, RunKind::Series); }
    void OpenSimulation(const QByteArray& text) { OpenProgress(text, RunKind::FreeSimulation); }

    ProgressBox& Cell(const char* array, int slot)
    {
        return Control<ProgressBox>(*window, qPrintable(ArrayName(array, slot)));
    }
    QPushButton& ValidateMasses() { return Control<QPushButton>(*window, "cmdValidMassMol"); }
    QPushButton& ValidateTable() { return Control<QPushButton>(*window, "cmdValidMVQ"); }
    QCheckBox& Data() { return Control<QCheckBox>(*window, "chkDataMol"); }
    QCheckBox& Drawings() { return Control<QCheckBox>(*window, "chkHistoMol"); }
    QString Instruction() { return Control<QLabel>(*window, "lblInstruction").text(); }

    /// The texts of a row, separated by "|".
    QString Row(const char* array)
    {
        QStringList texts;
        for (int slot = 0; slot < 6; ++slot)
            texts << Cell(array, slot).text();
        return texts.join(QLatin1Char('|'));
    }

    /// The slots of a row whose visible box is open, as "0 1 3".
    QString Open(const char* array)
    {
        QStringList slots;
        for (int slot = 0; slot < 6; ++slot) {
            if (Cell(array, slot).isVisible() && Cell(array, slot).isEnabled())
                slots << QString::number(slot);
        }
        return slots.join(QLatin1Char(' '));
    }

    /// The slots of a row whose text is red.
    QString Red(const char* array)
    {
        QStringList slots;
        for (int slot = 0; slot < 6; ++slot) {
            if (Cell(array, slot).palette().color(QPalette::Text) == QColor(255, 0, 0))
                slots << QString::number(slot);
        }
        return slots.join(QLatin1Char(' '));
    }

    /// Types texts into the open boxes of a row, slot by slot; an empty one types nothing.
    void FillRow(const char* array, const QStringList& texts)
    {
        for (int slot = 0; slot < texts.size(); ++slot) {
            if (texts[slot].isEmpty())
                continue;
            Cell(array, slot).setFocus();
            Cell(array, slot).selectAll();
            Type(Cell(array, slot), texts[slot]);
        }
    }

    /// Types molar masses and validates them.
    void AnswerMasses(const QStringList& masses)
    {
        FillRow("txtMasMol", masses);
        Click(ValidateMasses());
    }

    /// The table of `kCarbon`, right.
    void FillCarbon()
    {
        FillRow("txtMasse", {QStringLiteral("36"), QStringLiteral("64"), {}, QStringLiteral("88")});
        FillRow("txtVolGaz", {{}, QStringLiteral("44,8"), {}, QStringLiteral("44.8")});
        FillRow("txtQmatf", {QStringLiteral("1"), QStringLiteral("0"), {}, QStringLiteral("2")});
    }

    void PassMassesOfCarbon()
    {
        AnswerMasses({QStringLiteral("12"), QStringLiteral("32"), {}, QStringLiteral("44")});
    }

    void SetMolarVolume(const QString& text)
    {
        EXPECT_TRUE(settings.Write(QStringLiteral("Données"), QStringLiteral("Volume molaire"), text));
    }

    SettingsStore store;
    QString iniPath = folder.filePath(QStringLiteral("Conf.ini"));
    Settings settings{store, iniPath};
    ProgressPane* pane = nullptr;
    int equationsDone = 0;
    int tableChanges = 0;
    QList<int> dataToggled;
    QList<int> drawingsToggled;

private:
    void PassStep() override { window->PassStep(); }
    bool FailStep() override { return window->FailStep(); }
    void SetInstruction(const QString& words) override { window->SetInstruction(words); }
    void EndEquation() override
    {
        ++equationsDone;
        window->ShowNext();
    }
};

} // namespace stoikal
