#include "shell/shell_fixture.h"

#include "editor/work_file.h"
#include "shell/editor_controller.h"
#include "shell/help_topics.h"

#include <QScrollArea>
#include <QScrollBar>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// Actions 1 and 2, from the right password on.
class EditorControllerTest : public StartedShellTest
{
protected:
    EditorController& Controller() { return shell->Editor(); }

    /// Looks at the editor once it is open, and leaves it by its button.
    void InTheEditor(const ModalScript::Step& look)
    {
        script.On("frmNewFile", [look](QWidget& editor) {
            look(editor);
            Click(Control<QAbstractButton>(editor, "cmdCancel"));
        });
    }

    static QString Formula(QWidget& editor, int slot)
    {
        return Control<QLineEdit>(editor, qPrintable(ArrayName("txtMolecule", slot))).text();
    }

    QString WorkPath() const { return desktop.folders.cache + u"/FileTemp.txt"_s; }

    /// The work file as an editor leaves it that is killed over two equations.
    void LeaveWorkBehind(const QString& name = u"Soir"_s)
    {
        QDir().mkpath(desktop.folders.cache);
        WorkFile work(shell->Store(), WorkPath());
        WorkEquation first;
        first.Molecule = {u"H2"_s, u"O2"_s, {}, u"H2O"_s, {}, {}};
        WorkEquation second;
        second.Molecule[0] = u"C"_s;
        ASSERT_TRUE(work.BeginWith({name, FileType::Equ, u"Tête"_s, 2, 2, {}, true}, {first, second}));
    }

    void Answer(bool yes) { messages.answers.push_back(yes ? QMessageBox::Yes : QMessageBox::No); }
};

} // namespace

TEST_F(EditorControllerTest, ActionOneOpensABlankEditorModally)
{
    InTheEditor([this](QWidget& editor) {
        EXPECT_TRUE(editor.isModal());
        EXPECT_TRUE(QFile::exists(WorkPath()));
        EXPECT_EQ(Control<QAbstractButton>(editor, "cmdValid").text(), u"Création"_s);
        EXPECT_EQ(Formula(editor, 0), QString());
    });

    Controller().OpenNew();
}

TEST_F(EditorControllerTest, EditorHasItsTitleBarOnTheScreen)
{
    const QRect area = desktop.screen.area;
    const QWidget& mainWindow = shell->MainWindow();
    const QSize frame = mainWindow.frameGeometry().size() - mainWindow.size();
    ASSERT_GT(frame.height(), 0);
    InTheEditor([area, frame](QWidget& editor) {
        // A desktop that takes the place as that of what is inside puts the frame above it.
        EXPECT_GE(editor.pos().y(), area.top() + frame.height());
        EXPECT_LE(editor.geometry().bottom() + frame.height(), area.bottom());
    });

    Controller().OpenNew();
}

TEST_F(EditorControllerTest, ShowsAllAtOnceWhereTheScreenHasRoom)
{
    InTheEditor([](QWidget& editor) {
        const auto& sheet = Control<QScrollArea>(editor, "sheet");
        EXPECT_FALSE(sheet.horizontalScrollBar()->isVisible());
        EXPECT_FALSE(sheet.verticalScrollBar()->isVisible());
    });

    Controller().OpenNew();
}

TEST_F(EditorControllerTest, SmallScreenShowsTheControlThatHasTheKeyboard)
{
    // 1024 x 768 at 150 %, without a task bar.
    desktop.screen.area = QRect(0, 0, 683, 470);
    InTheEditor([](QWidget& editor) {
        EXPECT_LE(editor.width(), 683);
        EXPECT_LE(editor.height(), 470);
        Control<QWidget>(editor, "cmdCancel").setFocus();
        for (const char* const next : {"cmdHelp", "txtNameFile"}) {
            Press(*editor.focusWidget(), Qt::Key_Tab);
            const auto& control = Control<QWidget>(editor, next);
            EXPECT_EQ(editor.focusWidget()->objectName(), QLatin1String(next));
            EXPECT_TRUE(control.visibleRegion().contains(QPoint(5, control.height() / 2))) << next;
        }
    });

    Controller().OpenNew();
}

TEST_F(EditorControllerTest, ActionTwoAsksForAFileAndOpensIt)
{
    AnswerDialog(WriteEquations({u"' Tête"_s, u"H2+O2=H2O/2,1,2"_s}));
    InTheEditor([](QWidget& editor) {
        EXPECT_EQ(Control<QAbstractButton>(editor, "cmdValid").text(), u"Enregistrement"_s);
        EXPECT_EQ(Control<QLineEdit>(editor, "txtNameFile").text(), u"Serie1"_s);
        EXPECT_TRUE(Control<QAbstractButton>(editor, "optType(0)").isChecked());
        EXPECT_EQ(Formula(editor, 3), u"H2O"_s);
    });

    Controller().OpenExisting();

    const Dialogs::Request& request = desktop.dialogs.asked.at(0);
    EXPECT_EQ(request.name, u"cdgModif"_s);
    EXPECT_EQ(request.folder, EquationFolder());
    EXPECT_EQ(request.filters,
              QStringList({u"Stoikal Equilibrage (*.Equ)"_s, u"Stoikal Avancement (*.Avt)"_s}));
    EXPECT_EQ(request.fileName, QString());
    EXPECT_EQ(Setting("Options", "Files by default"), u"EQU"_s);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(EditorControllerTest, SecondFilterOpensAProgressFileAndIsRemembered)
{
    AnswerDialog(WriteEquations({u"H2+O2=H2O/2,1,2#Q1,Q2,Q0"_s}, u"Main.Avt"_s), 1);
    InTheEditor([](QWidget& editor) {
        EXPECT_TRUE(Control<QAbstractButton>(editor, "optType(1)").isChecked());
        EXPECT_EQ(Control<QLineEdit>(editor, "txtData(1)").text(), u"2"_s);
    });

    Controller().OpenExisting();

    EXPECT_EQ(Setting("Options", "Files by default"), u"AVT"_s);
    AnswerDialog(WriteEquations({u"A=A/1,1"_s}), 0);
    InTheEditor([](QWidget&) {});
    Controller().OpenExisting();
    EXPECT_EQ(desktop.dialogs.asked.at(1).filter, 1) << "the filter used last is shown first";
}

TEST_F(EditorControllerTest, ExtensionInAnyCaseIsTaken)
{
    AnswerDialog(WriteEquations({u"H2+O2=H2O/2,1,2"_s}, u"petit.equ"_s));
    InTheEditor([](QWidget& editor) { EXPECT_EQ(Formula(editor, 0), u"H2"_s); });

    Controller().OpenExisting();
}

TEST_F(EditorControllerTest, CancelledDialogEndsQuietly)
{
    desktop.dialogs.answers.push_back(std::nullopt);

    Controller().OpenExisting();

    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(EditorControllerTest, FileOutsideTheFolderEndsQuietly)
{
    const QString path = folder.filePath(u"Ailleurs.Equ"_s);
    WriteTextFile(path, {u"H2+O2=H2O/2,1,2"_s});
    AnswerDialog(path);

    Controller().OpenExisting();

    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(EditorControllerTest, NameCutAtAPointEndsQuietly)
{
    WriteEquations({u"H2+O2=H2O/2,1,2"_s}, u"a.Equ"_s);
    AnswerDialog(WriteEquations({u"C+O2=CO2/1,1,1"_s}, u"a.b.Equ"_s));

    Controller().OpenExisting();

    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(EditorControllerTest, FileOfTheOtherKindEndsQuietly)
{
    WriteEquations({u"H2+O2=H2O/2,1,2"_s}, u"a.Equ"_s);
    AnswerDialog(WriteEquations({u"C+O2=CO2/1,1,1"_s}, u"a.Avt"_s), 0);

    Controller().OpenExisting();

    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(EditorControllerTest, LineThatCannotBeTakenInIsToldWithItsPlace)
{
    const QString path = WriteEquations({u"' Tête"_s, u"H2+O2"_s});
    AnswerDialog(path);

    Controller().OpenExisting();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(messages.shown[0].text.startsWith(u"Erreur d'exécution"_s));
    EXPECT_TRUE(messages.shown[0].text.contains(u"Ligne 2"_s));
    EXPECT_TRUE(messages.shown[0].text.contains(u"H2+O2"_s));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(EditorControllerTest, LeftWorkIsOfferedAndTakenUpAsItWas)
{
    LeaveWorkBehind();
    Answer(true);
    InTheEditor([](QWidget& editor) {
        EXPECT_EQ(Control<QLineEdit>(editor, "txtNameFile").text(), u"Soir"_s);
        EXPECT_EQ(Control<QLineEdit>(editor, "txtNumEqu").text(), u"2"_s);
        EXPECT_EQ(Control<QScrollBar>(editor, "hscNumEqu").maximum(), 2);
        EXPECT_EQ(Formula(editor, 0), u"C"_s);
        Type(Control<QLineEdit>(editor, "txtMolecule(3)"), u"C"_s);
        Control<QScrollBar>(editor, "hscNumEqu").setValue(1);
        EXPECT_EQ(Formula(editor, 3), u"H2O"_s);
    });

    Controller().OpenNew();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Stoikal"_s);
    EXPECT_TRUE(messages.shown[0].text.contains(u"«\u00A0Soir\u00A0» (2 équations)"_s));
}

TEST_F(EditorControllerTest, RefusedWorkIsDeletedAndTheEditorOpensBlank)
{
    LeaveWorkBehind({});
    Answer(false);
    InTheEditor([](QWidget& editor) {
        EXPECT_EQ(Formula(editor, 0), QString());
        EXPECT_EQ(Control<QScrollBar>(editor, "hscNumEqu").maximum(), 1);
    });

    Controller().OpenNew();

    EXPECT_TRUE(messages.shown.at(0).text.contains(u"un fichier sans nom (2 équations)"_s));
}

TEST_F(EditorControllerTest, LeftWorkIsOfferedBeforeAFileIsAskedFor)
{
    LeaveWorkBehind();
    Answer(true);
    InTheEditor([](QWidget&) {});

    Controller().OpenExisting();

    EXPECT_TRUE(desktop.dialogs.asked.empty());
}

TEST_F(EditorControllerTest, CancelledWorkIsNotOfferedAgain)
{
    InTheEditor([](QWidget& editor) { Type(Control<QLineEdit>(editor, "txtMolecule(0)"), u"H2"_s); });
    Controller().OpenNew();
    InTheEditor([](QWidget& editor) { EXPECT_EQ(Formula(editor, 0), QString()); });

    Controller().OpenNew();

    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(EditorControllerTest, WorkGivenUpByEscapeIsNotOfferedAgain)
{
    script.On("frmNewFile", [](QWidget& editor) {
        Type(Control<QLineEdit>(editor, "txtMolecule(0)"), u"H2"_s);
        Press(editor, Qt::Key_Escape);
    });
    Answer(true);
    Controller().OpenNew();
    InTheEditor([](QWidget& editor) { EXPECT_EQ(Formula(editor, 0), QString()); });

    Controller().OpenNew();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, u"Abandonner les équations non enregistrées ?"_s);
}

TEST_F(EditorControllerTest, RefusedWorkLetsTheCommandGoOnWithItsFile)
{
    LeaveWorkBehind();
    Answer(false);
    AnswerDialog(WriteEquations({u"C+O2=CO2/1,1,1"_s}));
    InTheEditor([this](QWidget& editor) {
        EXPECT_EQ(Formula(editor, 3), u"CO2"_s);
        EXPECT_EQ(Control<QLineEdit>(editor, "txtNameFile").text(), u"Serie1"_s);
        EXPECT_FALSE(WorkFile(shell->Store(), WorkPath()).LeftBehind().has_value());
    });

    Controller().OpenExisting();

    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(EditorControllerTest, WorkTakenUpIsOfferedAgainIfTheProgramEndsAgain)
{
    LeaveWorkBehind();
    Answer(true);
    InTheEditor([this](QWidget&) {
        EXPECT_TRUE(WorkFile(shell->Store(), WorkPath()).LeftBehind().has_value())
            << "while the editor is open";
    });

    Controller().OpenNew();

    EXPECT_FALSE(WorkFile(shell->Store(), WorkPath()).LeftBehind().has_value()) << "closed by its button";
}

TEST_F(EditorControllerTest, CacheFolderThatCannotBeMadeIsTold)
{
    QFile file(desktop.folders.cache);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));

    Controller().OpenNew();

    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].icon, QMessageBox::Critical);
}

TEST_F(EditorControllerTest, HelpIsTheEditorsPage)
{
    std::vector<int> topics;
    QObject::connect(&Controller(), &EditorController::HelpRequested,
                     [&](int topic) { topics.push_back(topic); });
    InTheEditor([](QWidget& editor) { Click(Control<QAbstractButton>(editor, "cmdHelp")); });

    Controller().OpenNew();

    EXPECT_EQ(topics, std::vector<int>({1700}));
}

TEST_F(EditorControllerTest, CannotBeReachedWhileAFileIsOpen)
{
    OpenFile({u"H2+O2=H2O/2,1,2"_s});

    EXPECT_FALSE(Menu().IsEnabled("Mnu_Create"));
    EXPECT_FALSE(Menu().IsEnabled("Mnu_Modify"));
}

} // namespace stoikal
