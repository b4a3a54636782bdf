#pragma once

#include "base/settings_store.h"
#include "help/windows/frm_help.h"
#include "help/windows/help_page.h"
#include "help/windows/page_printer.h"
#include "support/fake_messages.h"
#include "support/fake_platform.h"
#include "support/window_driver.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTextDocument>
#include <QToolButton>
#include <QTreeWidget>

namespace stoikal {

struct FakePagePrinter final : PagePrinter {
    QStringList titles;
    QString text;
    void Print(QWidget*, const QString& title, const QTextDocument& page) override
    {
        titles << title;
        text = page.toPlainText();
    }
};

inline QString ShippedHelp(const char* name)
{
    return QStringLiteral(STOIKAL_HELP_DIR) + QLatin1Char('/') + QLatin1String(name);
}

/// The help over a main window, with settings of its own.
class HelpWindowTest : public testing::Test
{
protected:
    HelpWindowTest()
    {
        home.setObjectName(QStringLiteral("home"));
        home.resize(400, 300);
        home.show();
    }

    void Open(const char* name = "Stoikal.chm")
    {
        window.DisplayContents(ShippedHelp(name), &home);
        Settle();
    }

    void OpenTopic(int topic)
    {
        window.DisplayTopic(ShippedHelp("Stoikal.chm"), topic, &home);
        Settle();
    }

    HelpPage& Page() { return Control<HelpPage>(window, "txtPage"); }
    QToolButton& Tool(const char* name) { return Control<QToolButton>(window, name); }
    QString Notice()
    {
        const auto& label = Control<QLabel>(window, "lblNotice");
        return label.isVisible() ? label.text() : QString();
    }

    void ShowTab(int index)
    {
        auto& tabs = Control<QTabWidget>(window, "tabHelp");
        QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, Qt::NoModifier,
                          tabs.tabBar()->tabRect(index).center());
    }

    /// The lines of a list that can be seen.
    QStringList Shown(const char* list)
    {
        const auto& items = Control<QListWidget>(window, list);
        QStringList texts;
        for (int row = 0; row < items.count(); ++row) {
            if (!items.item(row)->isHidden())
                texts << items.item(row)->text();
        }
        return texts;
    }

    void ClickLine(const char* list, const QString& text)
    {
        auto& items = Control<QListWidget>(window, list);
        ExpectReachable(items);
        const auto found = items.findItems(text, Qt::MatchExactly);
        if (found.isEmpty())
            throw std::runtime_error("no line " + text.toStdString());
        items.scrollToItem(found.first());
        QTest::mouseClick(items.viewport(), Qt::LeftButton, Qt::NoModifier,
                          items.visualItemRect(found.first()).center());
    }

    void ClickNode(const QString& text)
    {
        auto& tree = Control<QTreeWidget>(window, "tvwContents");
        ExpectReachable(tree);
        const auto found = tree.findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        if (found.isEmpty())
            throw std::runtime_error("no node " + text.toStdString());
        tree.scrollToItem(found.first());
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier,
                          tree.visualItemRect(found.first()).center());
    }

    QTemporaryDir folder;
    QString settingsFile = folder.filePath(QStringLiteral("ConfEQU_dupont.ini"));
    SettingsStore store;
    Settings settings{store, settingsFile};
    FakeScreen screen;
    FakeMessages messages;
    FakePagePrinter printer;
    QWidget home;
    frmHelp window{{messages, printer, screen, settings}, &home};
};

} // namespace stoikal
