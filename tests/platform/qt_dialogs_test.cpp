#include "platform/qt_platform.h"

#include "support/qt_printers.h"
#include "support/window_driver.h"

#include <QFile>
#include <QFileDialog>
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
        request = {u"Ouvrir un fichier d'équations"_s,
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

} // namespace stoikal
