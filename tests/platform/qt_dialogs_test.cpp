#include "platform/qt_platform.h"

#include "support/qt_printers.h"
#include "support/window_driver.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class QtFileDialog : public testing::Test
{
protected:
    QtFileDialog()
    {
        QFile file(folder.filePath(u"Serie.Equ"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        request = {u"cdgOpen"_s,
                   u"Ouvrir un fichier d'équations"_s,
                   folder.path(),
                   {u"Stoikal Equilibrage (*.Equ)"_s, u"Stoikal Avancement (*.Avt)"_s},
                   1,
                   {}};
    }

    /// What is done with the dialog once it is there.
    void OnDialog(const std::function<void(QFileDialog&)>& step)
    {
        script.On("cdgOpen", [step](QWidget& window) {
            auto* const dialog = qobject_cast<QFileDialog*>(&window);
            ASSERT_NE(dialog, nullptr);
            step(*dialog);
        });
    }

    /// The list of files with one of them selected, once the disk has been read.
    static QListView& ListWith(QFileDialog& dialog, const QString& name)
    {
        auto& list = Control<QListView>(dialog, "listView");
        const auto index = [&list, &name] {
            const QModelIndex root = list.rootIndex();
            for (int row = 0; row < list.model()->rowCount(root); ++row) {
                const QModelIndex entry = list.model()->index(row, 0, root);
                if (entry.data().toString() == name)
                    return entry;
            }
            return QModelIndex();
        };
        EXPECT_TRUE(QTest::qWaitFor([&index] { return index().isValid(); }));
        list.setCurrentIndex(index());
        dialog.activateWindow();
        list.setFocus();
        EXPECT_TRUE(QTest::qWaitFor([&list] { return list.hasFocus(); }));
        return list;
    }

    /// What stands in the folder.
    QStringList Entries() const
    {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    /// Opens each dialog in turn and lets a person try something in it, who says
    /// yes to whatever comes.
    void InEachDialog(const std::function<void(QFileDialog&)>& attempt)
    {
        QTimer person;
        QObject::connect(&person, &QTimer::timeout, [] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box != nullptr && box->button(QMessageBox::Yes) != nullptr)
                box->button(QMessageBox::Yes)->click();
        });
        person.start(1);
        request.filter = 0;
        const auto step = [&attempt](QFileDialog& dialog) {
            attempt(dialog);
            Settle();
            dialog.reject();
        };
        OnDialog(step);
        EXPECT_FALSE(dialogs.OpenFile(nullptr, request).has_value());
        OnDialog(step);
        EXPECT_FALSE(dialogs.AppendToFile(nullptr, request).has_value());
        EXPECT_EQ(script.Left(), 0U);
    }

    /// Presses the button that accepts; a dialog that does not take it is left.
    static void Accept(QFileDialog& dialog)
    {
        QMetaObject::invokeMethod(&dialog, "accept");
        if (dialog.isVisible())
            dialog.reject();
    }

    QTemporaryDir folder;
    Dialogs::Request request;
    ModalScript script;
    QtDialogs dialogs;
};

} // namespace

TEST_F(QtFileDialog, ShowsTheNamesWhole)
{
    // A table of sizes, kinds and dates would leave each a few letters.
    OnDialog([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.viewMode(), QFileDialog::List);
        dialog.reject();
    });

    EXPECT_FALSE(dialogs.OpenFile(nullptr, request).has_value());
    EXPECT_EQ(script.Left(), 0U);
}

TEST_F(QtFileDialog, GivesTheFileAndTheFilterLeftActive)
{
    OnDialog([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.selectedNameFilter(), u"Stoikal Avancement (*.Avt)"_s);
        dialog.selectNameFilter(u"Stoikal Equilibrage (*.Equ)"_s);
        dialog.selectFile(folder.filePath(u"Serie.Equ"_s));
        QMetaObject::invokeMethod(&dialog, "accept");
    });

    const auto choice = dialogs.OpenFile(nullptr, request);

    ASSERT_TRUE(choice.has_value());
    EXPECT_EQ(choice->path, folder.filePath(u"Serie.Equ"_s));
    EXPECT_EQ(choice->filter, 0);
}

TEST_F(QtFileDialog, StandsUnderTheNameOfItsRequest)
{
    QStringList names;
    for (const char* const name : {"cdgModif", "cdgSave"}) {
        request.name = QLatin1String(name);
        script.On(name, [&names](QWidget& window) {
            names << window.objectName();
            dynamic_cast<QFileDialog&>(window).reject();
        });
        // A dialog under another name would stay open for ever.
        QTimer giveUp;
        giveUp.setSingleShot(true);
        QObject::connect(&giveUp, &QTimer::timeout, [] { QApplication::activeModalWidget()->close(); });
        giveUp.start(2000);
        EXPECT_FALSE(dialogs.AppendToFile(nullptr, request).has_value());
    }

    EXPECT_EQ(names, QStringList({u"cdgModif"_s, u"cdgSave"_s}));
}

TEST_F(QtFileDialog, BeginsWithTheNameGiven)
{
    request.fileName = u"Serie.Equ"_s;
    request.filter = 0;
    OnDialog([](QFileDialog& dialog) { Accept(dialog); });

    const auto choice = dialogs.OpenFile(nullptr, request);

    ASSERT_TRUE(choice.has_value());
    EXPECT_EQ(choice->path, folder.filePath(u"Serie.Equ"_s));
}

TEST_F(QtFileDialog, NamesWhatAcceptingDoes)
{
    request.accept = u"&Enregistrer"_s;
    OnDialog([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.labelText(QFileDialog::Accept), u"&Enregistrer"_s);
        dialog.reject();
    });

    EXPECT_FALSE(dialogs.OpenFile(nullptr, request).has_value());
    EXPECT_EQ(script.Left(), 0U);
}

TEST_F(QtFileDialog, DeletesNothingByTheKey)
{
    InEachDialog([](QFileDialog& dialog) { Press(ListWith(dialog, u"Serie.Equ"_s), Qt::Key_Delete); });

    EXPECT_EQ(Entries(), QStringList{u"Serie.Equ"_s});
}

TEST_F(QtFileDialog, RenamesNothingByTheKey)
{
    InEachDialog([](QFileDialog& dialog) {
        QListView& list = ListWith(dialog, u"Serie.Equ"_s);
        Press(list, Qt::Key_F2);
        EXPECT_EQ(list.findChild<QLineEdit*>(), nullptr) << "a name is being typed";
    });

    EXPECT_EQ(Entries(), QStringList{u"Serie.Equ"_s});
}

TEST_F(QtFileDialog, MakesNoFolder)
{
    InEachDialog([](QFileDialog& dialog) {
        EXPECT_FALSE(Control<QAbstractButton>(dialog, "newFolderButton").isEnabled());
        // Another folder brings the button back to life no more than a fold of the view.
        dialog.setDirectory(QDir::tempPath());
        dialog.setViewMode(QFileDialog::Detail);
        EXPECT_FALSE(Control<QAbstractButton>(dialog, "newFolderButton").isEnabled());
    });

    EXPECT_EQ(Entries(), QStringList{u"Serie.Equ"_s});
}

TEST_F(QtFileDialog, OffersNothingThatChangesInItsMenu)
{
    QStringList enabled;
    InEachDialog([&enabled](QFileDialog& dialog) {
        QListView& list = ListWith(dialog, u"Serie.Equ"_s);
        QTimer reader;
        QObject::connect(&reader, &QTimer::timeout, [&enabled] {
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (menu == nullptr)
                return;
            const auto actions = menu->actions();
            for (const QAction* const action : actions) {
                if (action->isEnabled() && !action->isSeparator() && !action->isCheckable())
                    enabled << action->text();
            }
            menu->close();
        });
        reader.start(1);
        const QPoint place = list.visualRect(list.currentIndex()).center();
        Q_EMIT list.customContextMenuRequested(place);
    });

    EXPECT_EQ(enabled, QStringList());
    EXPECT_EQ(Entries(), QStringList{u"Serie.Equ"_s});
}

TEST_F(QtFileDialog, LetsNothingBeDraggedAway)
{
    InEachDialog([](QFileDialog& dialog) {
        const auto views = dialog.findChildren<QAbstractItemView*>();
        EXPECT_GE(views.size(), 3);
        for (const QAbstractItemView* const view : views)
            EXPECT_EQ(view->dragDropMode(), QAbstractItemView::NoDragDrop)
                << view->objectName().toStdString();
        for (const char* const name : {"listView", "treeView"})
            EXPECT_FALSE(Control<QAbstractItemView>(dialog, name).dragEnabled()) << name;
    });
}

TEST_F(QtFileDialog, TakesANewNameToAddTo)
{
    OnDialog([this](QFileDialog& dialog) {
        dialog.selectFile(folder.filePath(u"Nouveau.Avt"_s));
        Accept(dialog);
    });

    const auto choice = dialogs.AppendToFile(nullptr, request);

    ASSERT_TRUE(choice.has_value());
    EXPECT_EQ(choice->path, folder.filePath(u"Nouveau.Avt"_s));
    EXPECT_EQ(choice->filter, 1);
    EXPECT_FALSE(QFile::exists(choice->path));
}

TEST_F(QtFileDialog, DoesNotAskWhetherToReplaceWhatIsAddedTo)
{
    QStringList questions;
    QTimer person;
    QObject::connect(&person, &QTimer::timeout, [&questions] {
        auto* const modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (modal != nullptr && modal->objectName() != u"cdgOpen"_s) {
            questions << modal->windowTitle();
            modal->accept();
        }
    });
    person.start(1);
    OnDialog([this](QFileDialog& dialog) {
        dialog.selectFile(folder.filePath(u"Serie.Equ"_s));
        Accept(dialog);
    });

    const auto choice = dialogs.AppendToFile(nullptr, request);

    EXPECT_EQ(questions, QStringList());
    ASSERT_TRUE(choice.has_value());
    EXPECT_EQ(choice->path, folder.filePath(u"Serie.Equ"_s));
}

TEST_F(QtFileDialog, GivesNothingToAddToWhenItIsCancelled)
{
    OnDialog([](QFileDialog& dialog) { dialog.reject(); });

    EXPECT_FALSE(dialogs.AppendToFile(nullptr, request).has_value());
}

} // namespace stoikal
