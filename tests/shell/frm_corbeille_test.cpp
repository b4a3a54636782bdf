#include "shell/windows/frm_corbeille.h"

#include "support/fake_messages.h"
#include "support/fake_platform.h"
#include "support/window_driver.h"

#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// Three equation files that can be thrown away.
class FrmCorbeille : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const QString& name : names) {
            QFile file(Path(name));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
        window = std::make_unique<frmCorbeille>(folder.path(), names, trash, messages, nullptr);
        window->show();
        window->activateWindow();
        Settle();
    }

    QString Path(const QString& name) const { return folder.filePath(name); }
    QListWidget& List() { return Control<QListWidget>(*window, "flbEQU"); }

    void ClickFile(int row)
    {
        const QPoint place = List().visualItemRect(List().item(row)).center();
        QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }
    void Kill() { Click(Control<QPushButton>(*window, "cmdKill")); }

    QTemporaryDir folder;
    QStringList names{u"A.Equ"_s, u"B.Avt"_s, u"Hydrogène.equ"_s};
    FakeTrash trash;
    FakeMessages messages;
    std::unique_ptr<frmCorbeille> window;
};

} // namespace

TEST_F(FrmCorbeille, HasItsFixedWords)
{
    EXPECT_EQ(window->windowTitle(), u"Supprimer un fichier"_s);
    EXPECT_EQ(Control<QLabel>(*window, "Label3").text(),
              u"Cliquez dans la liste ci-contre sur tous les fichiers Stoikal  que vous voulez supprimer."_s);
    EXPECT_EQ(List().toolTip(), u"Cliquez sur les noms de fichiers pour les sélectionner"_s);
    EXPECT_EQ(Control<QPushButton>(*window, "cmdKill").text(), u"Supprimer"_s);
    EXPECT_EQ(Control<QPushButton>(*window, "cmdCancel").text(), u"Annuler"_s);
    EXPECT_TRUE(window->isModal());
}

TEST_F(FrmCorbeille, StaysOpenWhenNothingIsSelected)
{
    Control<QPushButton>(*window, "cmdKill").setFocus();

    Kill();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, u"Aucun fichier n'est sélectionné"_s);
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(List().hasFocus());
    EXPECT_TRUE(trash.moved.isEmpty());
}

TEST_F(FrmCorbeille, MovesTheSelectedFilesToTheTrashInTheOrderOfTheList)
{
    ClickFile(2);
    ClickFile(0);

    Kill();

    EXPECT_EQ(trash.moved, QStringList({Path(u"A.Equ"_s), Path(u"Hydrogène.equ"_s)}));
    EXPECT_TRUE(QFile::exists(Path(u"B.Avt"_s)));
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_FALSE(window->isVisible());
}

TEST_F(FrmCorbeille, SecondClickTakesASelectionBack)
{
    ClickFile(0);
    ClickFile(1);
    ClickFile(0);

    Kill();

    EXPECT_EQ(trash.moved, QStringList{Path(u"B.Avt"_s)});
}

TEST_F(FrmCorbeille, AsksBeforeItDeletesWhereThereIsNoTrash)
{
    trash.withoutTrash = {Path(u"A.Equ"_s), Path(u"B.Avt"_s)};
    messages.answers = {QMessageBox::Yes};
    for (int row = 0; row < 3; ++row)
        ClickFile(row);

    Kill();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(
        messages.shown[0].text,
        u"La corbeille ne peut pas recevoir :\nA.Equ\nB.Avt\n\nVoulez-vous supprimer définitivement\u00A0?"_s);
    EXPECT_EQ(messages.shown[0].preset, QMessageBox::No);
    EXPECT_FALSE(QFile::exists(Path(u"A.Equ"_s)));
    EXPECT_FALSE(QFile::exists(Path(u"B.Avt"_s)));
    EXPECT_EQ(trash.moved, QStringList{Path(u"Hydrogène.equ"_s)});
    EXPECT_FALSE(window->isVisible());
}

TEST_F(FrmCorbeille, KeepsWhatHasNoTrashOnNo)
{
    trash.withoutTrash = {Path(u"A.Equ"_s)};
    messages.answers = {QMessageBox::No};
    ClickFile(0);

    Kill();

    EXPECT_TRUE(QFile::exists(Path(u"A.Equ"_s)));
    EXPECT_FALSE(window->isVisible());
}

TEST_F(FrmCorbeille, TellsWhatCouldNotBeDeletedAtAll)
{
    // A folder with something in it has taken the file's name.
    ASSERT_TRUE(QFile::remove(Path(u"A.Equ"_s)));
    ASSERT_TRUE(QDir().mkpath(Path(u"A.Equ/b"_s)));
    trash.withoutTrash = {Path(u"A.Equ"_s)};
    messages.answers = {QMessageBox::Yes};
    ClickFile(0);

    Kill();

    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_EQ(messages.shown[1].icon, QMessageBox::Critical);
    EXPECT_TRUE(messages.shown[1].text.startsWith(u"Suppression impossible :\nA.Equ\n"_s));
}

TEST_F(FrmCorbeille, SaysNothingOfAFileThatWentMeanwhile)
{
    ASSERT_TRUE(QFile::remove(Path(u"A.Equ"_s)));
    trash.withoutTrash = {Path(u"A.Equ"_s)};
    ClickFile(0);

    Kill();

    EXPECT_TRUE(messages.shown.empty());
    EXPECT_FALSE(window->isVisible());
}

TEST_F(FrmCorbeille, DeletesNothingWhenItIsCancelled)
{
    ClickFile(0);

    Click(Control<QPushButton>(*window, "cmdCancel"));

    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(trash.moved.isEmpty());
    EXPECT_TRUE(QFile::exists(Path(u"A.Equ"_s)));
}

} // namespace stoikal
