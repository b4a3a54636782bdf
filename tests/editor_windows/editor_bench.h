#pragma once

#include "editor/windows/frm_new_file.h"
#include "forms/window_events.h"

#include "base/settings_store.h"
#include "support/fake_messages.h"
#include "support/fake_platform.h"
#include "support/file_bytes.h"
#include "support/window_driver.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace stoikal {

/// The editor on the screen, over folders and settings of its own.
class EditorTest : public testing::Test
{
protected:
    EditorTest()
    {
        QObject::connect(&events, &WindowEvents::HelpRequested, [this] { ++helps; });
    }

    ~EditorTest() override
    {
        editor.reset();
        Settle();
    }

    frmNewFile& MakeEditor()
    {
        editor = std::make_unique<frmNewFile>(
            frmNewFile::Doors{clock, messages, screen, settings, store, WorkPath(), equationFolder.path()},
            nullptr);
        QObject::connect(editor.get(), &QDialog::finished, [this](int) { ++unloads; });
        QObject::connect(editor.get(), &frmNewFile::HelpRequested, [this] { ++helps; });
        return *editor;
    }

    void Show()
    {
        editor->show();
        editor->activateWindow();
        Settle();
    }

    /// The editor as it opens for a new file.
    void OpenNew()
    {
        MakeEditor();
        ASSERT_TRUE(editor->StartNew());
        Show();
    }

    /// The editor as it opens an existing file of these lines.
    void OpenFile(const QByteArray& bytes, const QString& name = QStringLiteral("Serie.Equ"))
    {
        Put(name, bytes);
        MakeEditor();
        ASSERT_TRUE(editor->LoadFileIntoEditor(
            name, name.endsWith(QStringLiteral("vt")) ? FileType::Avt : FileType::Equ));
        Show();
    }

    void Put(const QString& name, const QByteArray& bytes) const
    {
        WriteBytes(equationFolder.filePath(name), bytes);
    }

    QByteArray FileOf(const QString& name) const { return BytesOfFile(equationFolder.filePath(name)); }

    QString WorkPath() const { return workFolder.filePath(QStringLiteral("FileTemp.txt")); }

    /// What the work file holds.
    QString Kept(int number, const char* key) const
    {
        return store.ReadSetting(WorkPath(), QString::number(number), QLatin1String(key));
    }

    QLineEdit& Box(int slot)
    {
        return Control<QLineEdit>(*editor, qPrintable(ArrayName("txtMolecule", slot)));
    }
    QLineEdit& Data(int slot) { return Control<QLineEdit>(*editor, qPrintable(ArrayName("txtData", slot))); }
    QLineEdit& Line(const char* name) { return Control<QLineEdit>(*editor, name); }
    QAbstractButton& Button(const char* name) { return Control<QAbstractButton>(*editor, name); }
    QAbstractButton& Button(const char* array, int index)
    {
        return Control<QAbstractButton>(*editor, qPrintable(ArrayName(array, index)));
    }
    QScrollBar& Bar() { return Control<QScrollBar>(*editor, "hscNumEqu"); }
    QPlainTextEdit& Head() { return Control<QPlainTextEdit>(*editor, "txtComment(0)"); }
    QTabWidget& Tabs() { return Control<QTabWidget>(*editor, "sstEdit"); }
    bool MarkIsShown() { return Control<QLabel>(*editor, "imgECHEC").isVisible(); }
    QString Number() { return Line("txtNumEqu").text(); }

    /// Opens a tab: 0 formulas, 1 states, 2 comments, 3 data.
    void Tab(int index)
    {
        QTest::mouseClick(Tabs().tabBar(), Qt::LeftButton, Qt::NoModifier,
                          Tabs().tabBar()->tabRect(index).center());
    }

    QStringList Formulas()
    {
        QStringList texts;
        for (int slot = 0; slot < 6; ++slot)
            texts << Box(slot).text();
        return texts;
    }

    /// Empties the six boxes and types these formulas.
    void Write(const QStringList& formulas)
    {
        Tab(0);
        for (int slot = 0; slot < 6; ++slot) {
            Box(slot).clear();
            if (slot < formulas.size() && !formulas.at(slot).isEmpty())
                Type(Box(slot), formulas.at(slot));
        }
    }

    void WriteWater() { Write({QStringLiteral("H2"), QStringLiteral("O2"), {}, QStringLiteral("H2O")}); }
    void WriteCoal() { Write({QStringLiteral("C"), QStringLiteral("O2"), {}, QStringLiteral("CO2")}); }

    /// The bar is moved by its keys.
    void MoveTo(int number)
    {
        while (Bar().value() != number) {
            const int before = Bar().value();
            Press(*editor, before < number ? Qt::Key_PageDown : Qt::Key_PageUp);
            if (Bar().value() == before)
                return;
        }
    }

    void Name(const QString& name)
    {
        Line("txtNameFile").clear();
        Type(Line("txtNameFile"), name);
    }

    void Answer(bool yes) { messages.answers.push_back(yes ? QMessageBox::Yes : QMessageBox::No); }

    void ExpectBox(QMessageBox::Icon icon, const QString& title, const QString& text)
    {
        ASSERT_FALSE(messages.shown.empty());
        EXPECT_EQ(messages.shown.back().icon, icon);
        EXPECT_EQ(messages.shown.back().title, title);
        EXPECT_EQ(messages.shown.back().text, text);
    }

    QWidget* Preview() { return FindWindow("frmPreview"); }
    QString PreviewText() { return Control<QPlainTextEdit>(*Preview(), "txtResult").toPlainText(); }

    QTemporaryDir equationFolder;
    QTemporaryDir workFolder;
    QTemporaryDir settingsFolder;
    FakeClock clock;
    FakeScreen screen;
    FakeMessages messages;
    SettingsStore store;
    QString settingsPath = settingsFolder.filePath(QStringLiteral("ConfEQU_dupont.ini"));
    Settings settings{store, settingsPath};
    WindowEvents events;
    int unloads = 0;
    int helps = 0;
    std::unique_ptr<frmNewFile> editor;
};

} // namespace stoikal
