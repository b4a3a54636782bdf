#pragma once

#include "base/places.h"
#include "base/text_lines.h"
#include "exercise/open_run.h"
#include "exercise/results_journal.h"
#include "exercise/windows/frm_equation.h"
#include "forms/filter_edit.h"
#include "support/fake_messages.h"
#include "support/fake_platform.h"
#include "support/window_driver.h"

#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace stoikal {

/// The exercise on the screen over an equation file of its own, set up as the
/// main window does it.
class EquationBench : public testing::Test
{
protected:
    EquationBench()
    {
        places.LargeurUtile = 15310; // 1024 * 15 - 50
        places.HauteurUtile = 10770; // 768 * 15 - 750
        run.ChooseFile(folder.filePath(QStringLiteral("chimie.Equ")));
        EXPECT_TRUE(journal.Open(folder.filePath(QStringLiteral("Resultat.txt"))));
    }

    void OpenFile(const QByteArray& text) { OpenRun(run, run.State().CheminFichier, text); }

    void Open(const QByteArray& text, RunKind kind = RunKind::Balancing)
    {
        run.SetKind(kind);
        OpenFile(text);
        window = std::make_unique<frmEquation>(
            run, frmEquation::Doors{places, journal, messages, screen, sound}, nullptr);
        QObject::connect(window.get(), &frmEquation::Recomposed, window.get(), [this] { ++recomposed; });
        QObject::connect(window.get(), &frmEquation::EndOfFileReached, window.get(), [this] { ++ends; });
        window->ReadNextEquation();
        window->Open();
        Settle();
    }

    FilterEdit& Box(int slot) { return Control<FilterEdit>(*window, qPrintable(ArrayName("txtCoef", slot))); }
    QLabel& Species(int slot) { return Control<QLabel>(*window, qPrintable(ArrayName("rtbCorp", slot))); }
    QWidget& Plus(int i) { return Control<QWidget>(*window, qPrintable(ArrayName("picPlus", i))); }
    QWidget& PlusLabel(int i) { return Control<QWidget>(*window, qPrintable(ArrayName("lblPlus", i))); }
    QPushButton& Other() { return Control<QPushButton>(*window, "cmdOther"); }
    QPushButton& Next() { return Control<QPushButton>(*window, "cmdNext"); }
    QLabel& Score() { return Control<QLabel>(*window, "lblScore"); }
    QTimer& Flash() { return Control<QTimer>(*window, "Timer1"); }

    /// Types coefficients into the boxes, slot by slot; an empty text types nothing.
    void Fill(const QStringList& coefficients)
    {
        for (int slot = 0; slot < coefficients.size(); ++slot) {
            if (!coefficients[slot].isEmpty())
                Type(Box(slot), coefficients[slot]);
        }
    }

    /// Types coefficients and validates them; a flash that is on ends first.
    void Answer(const QStringList& coefficients)
    {
        Tick(Flash());
        Fill(coefficients);
        Click(Other());
    }

    /// The texts of the six boxes, separated by "|".
    QString Boxes()
    {
        QStringList texts;
        for (int slot = 0; slot < 6; ++slot)
            texts << Box(slot).text();
        return texts.join(QLatin1Char('|'));
    }

    /// The lines of the results journal.
    QStringList Journal()
    {
        QFile file(journal.Path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        EXPECT_EQ(bytes.count('\n'), bytes.count("\r\n"));
        return DecodeLines(bytes);
    }

    /// The kinds in use of a list as "H4 O2", coefficients included.
    static QString Totals(const AtomList& list)
    {
        QStringList kinds;
        for (size_t i = 0; i < static_cast<size_t>(list.Kinds); ++i)
            kinds << list.Symbol.at(i) + QString::number(list.TotalCount.at(i));
        return kinds.join(QLatin1Char(' '));
    }

    /// The window, the six species, the four "+" and their boxes.
    void ExpectBand(const QColor& colour)
    {
        const auto expect = [&colour](const QWidget& widget) {
            EXPECT_EQ(widget.palette().color(QPalette::Window).name(), colour.name())
                << widget.objectName().toStdString();
        };
        expect(*window);
        for (int slot = 0; slot < 6; ++slot)
            expect(Species(slot));
        for (int i = 0; i < 4; ++i) {
            expect(Plus(i));
            expect(PlusLabel(i));
        }
    }

    QTemporaryDir folder;
    Places places;
    RunState state;
    ResultsJournal journal;
    FakeMessages messages;
    FakeScreen screen;
    FakeSound sound;
    ExerciseRun run{state};
    std::unique_ptr<frmEquation> window;
    int recomposed = 0;
    int ends = 0;
};

} // namespace stoikal
