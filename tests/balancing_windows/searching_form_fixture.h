#pragma once

#include "base/settings_store.h"
#include "support/fake_messages.h"
#include "support/fake_platform.h"
#include "support/file_bytes.h"
#include "support/window_driver.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace stoikal {

/// A window that searches, over a folder and settings of its own. Every look at
/// the clock gives the event loop its turn.
template <typename Window>
class SearchingFormTest : public testing::Test
{
protected:
    SearchingFormTest()
    {
        QObject::connect(&window, &Form::Released, [this] { ++unloads; });
    }

    void Open()
    {
        window.show();
        window.activateWindow();
        Settle();
    }

    QPushButton& Button(const char* name) { return Control<QPushButton>(window, name); }
    QPlainTextEdit& List() { return Control<QPlainTextEdit>(window, "txtResult"); }
    QString ListText() { return List().toPlainText(); }
    QLineEdit& Box(int position)
    {
        return Control<QLineEdit>(window, qPrintable(ArrayName("txtMolecule", position)));
    }

    /// Empties the boxes and types one text each.
    void Fill(const QStringList& molecules)
    {
        for (int position = 0; position < 6; ++position) {
            Box(position).clear();
            if (position < molecules.size() && !molecules.at(position).isEmpty())
                Type(Box(position), molecules.at(position));
        }
    }

    /// The only box shown tells of a fault, with this in its text.
    void ExpectFault(const QString& part)
    {
        ASSERT_EQ(messages.shown.size(), 1U);
        EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
        EXPECT_TRUE(messages.shown[0].text.startsWith(QStringLiteral("Erreur d'exécution")));
        EXPECT_TRUE(messages.shown[0].text.contains(part)) << messages.shown[0].text.toStdString();
    }

    QTemporaryDir folder;
    QString equations = folder.filePath(QStringLiteral("equations"));
    QString passwordFile = folder.filePath(QStringLiteral("MotDePasse.txt"));
    QString settingsFile = folder.filePath(QStringLiteral("ConfEQU.ini"));
    SettingsStore store;
    Settings settings{store, settingsFile};
    RunningClock clock;
    FakeDialogs dialogs;
    FakeMessages messages;
    Window window{{clock, dialogs, messages, settings, equations, passwordFile}, nullptr};
    int unloads = 0;
};

} // namespace stoikal
