#include "teacher_fixture.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// One of the ten entries behind the password.
struct ProtectedEntry {
    const char* entry;
    int action;
    const char* window; ///< what it opens; empty where no window comes
    bool isForARun; ///< can be chosen in a run only
};

std::string NameOf(const testing::TestParamInfo<ProtectedEntry>& info)
{
    return std::string(info.param.entry).substr(4);
}

class EachProtectedEntry : public TeacherTest, public testing::WithParamInterface<ProtectedEntry>
{
protected:
    void SetUp() override
    {
        TeacherTest::SetUp();
        if (GetParam().isForARun)
            OpenFile({u"H2+O2=H2O/2,1,2"_s});
        else
            WriteEquations({u"H2+O2=H2O/2,1,2"_s});
        WriteTextFile(TipsPath(), {u"astuce"_s});
        m_journal = JournalText();
        m_files = FilesOfFolder();
        m_dialogs = desktop.dialogs.asked.size();
    }

    /// Nothing at all has come of the entry.
    void ExpectNothingDone()
    {
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(desktop.dialogs.asked.size(), m_dialogs);
        EXPECT_TRUE(desktop.trash.moved.isEmpty());
        EXPECT_EQ(JournalText(), m_journal);
        EXPECT_EQ(FilesOfFolder(), m_files);
        EXPECT_TRUE(shell->Journal().IsOpen());
        if (GetParam().isForARun) {
            EXPECT_EQ(Coefficients(), QString());
        }
        EXPECT_EQ(State().ActionMotPasse, 0);
    }

    /// The entry has done its work: a question, a dialog or a window came.
    void ExpectDone()
    {
        if (*GetParam().window != '\0') {
            EXPECT_TRUE(m_hasComeUp || IsOpen());
        }
        if (GetParam().isForARun) {
            EXPECT_EQ(Coefficients(), u"212"_s); // 2, 1 and 2.
        }
    }

    /// Serves what the action opens modally.
    void ServeTheAction()
    {
        const QString entry = QLatin1String(GetParam().entry);
        if (entry == u"Mnu_Create"_s)
            script.On("frmNewFile", [this](QWidget& window) {
                m_hasComeUp = true;
                Click(Control<QPushButton>(window, "cmdCancel"));
            });
        if (entry == u"Mnu_Kill"_s)
            script.On("frmCorbeille", [this](QWidget& window) {
                m_hasComeUp = true;
                Click(Control<QPushButton>(window, "cmdCancel"));
            });
        if (entry == u"Mnu_Modify"_s)
            desktop.dialogs.answers = {std::nullopt};
        if (entry == u"Mnu_Clean"_s)
            messages.answers = {QMessageBox::No};
    }

    bool IsOpen() const { return *GetParam().window != '\0' && FindWindow(GetParam().window) != nullptr; }

    QString Coefficients()
    {
        QString all;
        for (const int slot : {0, 1, 3})
            all += Box(slot).text();
        return all;
    }

    QStringList FilesOfFolder() const { return QDir(EquationFolder()).entryList(QDir::Files); }

    bool m_hasComeUp = false;

private:
    QString m_journal;
    QStringList m_files;
    size_t m_dialogs = 0; ///< how many files were chosen before the entry was
};

INSTANTIATE_TEST_SUITE_P(Menu, EachProtectedEntry,
                         testing::Values(ProtectedEntry{"Mnu_Create", 1, "frmNewFile", false},
                                         ProtectedEntry{"Mnu_Modify", 2, "", false},
                                         ProtectedEntry{"Mnu_Kill", 3, "frmCorbeille", false},
                                         ProtectedEntry{"Mnu_Answer", 4, "frmTexte", false},
                                         ProtectedEntry{"Mnu_MoreTip", 5, "frmTexte", false},
                                         ProtectedEntry{"Mnu_Clean", 6, "", false},
                                         ProtectedEntry{"Mnu_Solution", 7, "", true},
                                         ProtectedEntry{"Mnu_Balance", 8, "frmExpert", false},
                                         ProtectedEntry{"Mnu_Search", 9, "frmSearch", false},
                                         ProtectedEntry{"Mnu_CalMol", 10, "frmCalMol", false}),
                         NameOf);

/// A tool behind the password.
class EachProtectedTool : public TeacherTest, public testing::WithParamInterface<ProtectedEntry>
{
};

INSTANTIATE_TEST_SUITE_P(Menu, EachProtectedTool,
                         testing::Values(ProtectedEntry{"Mnu_Balance", 8, "frmExpert", false},
                                         ProtectedEntry{"Mnu_Search", 9, "frmSearch", false},
                                         ProtectedEntry{"Mnu_CalMol", 10, "frmCalMol", false}),
                         NameOf);

/// Those of them that a run hides; the third floats on.
class EachToolOfTheMainArea : public EachProtectedTool
{
};

INSTANTIATE_TEST_SUITE_P(Menu, EachToolOfTheMainArea,
                         testing::Values(ProtectedEntry{"Mnu_Balance", 8, "frmExpert", false},
                                         ProtectedEntry{"Mnu_Search", 9, "frmSearch", false}),
                         NameOf);

} // namespace

TEST_P(EachProtectedEntry, WaitsForThePasswordUnderItsNumber)
{
    int waiting = -1;
    bool isEmpty = false;
    WhenAsked([&](QWidget& window) {
        waiting = State().ActionMotPasse;
        isEmpty = Control<QLineEdit>(window, "txtPassWord").text().isEmpty();
        // The menus behind it are out of reach.
        EXPECT_TRUE(window.isModal());
        EXPECT_FALSE(IsOpen());
        Click(Control<QPushButton>(window, "cmdCancel"));
    });

    Choose(GetParam().entry);
    Settle();

    EXPECT_EQ(waiting, GetParam().action);
    EXPECT_TRUE(isEmpty);
}

TEST_P(EachProtectedEntry, DoesNothingWithoutThePassword)
{
    CancelThePassword();

    Choose(GetParam().entry);
    Settle();

    ExpectNothingDone();
    EXPECT_TRUE(messages.shown.empty());
}

TEST_P(EachProtectedEntry, DoesNothingWithAWrongPassword)
{
    WhenAsked([](QWidget& window) { Answer(window, u"sesame"_s); });
    CancelThePassword();

    Choose(GetParam().entry);
    Settle();

    ExpectNothingDone();
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Erreur sur mot de passe"_s);
}

TEST_P(EachProtectedEntry, DoesNothingWhenTheTitleBarClosesTheQuestion)
{
    WhenAsked([](QWidget& window) {
        Type(Control<QLineEdit>(window, "txtPassWord"), u"Sesame"_s);
        window.close();
    });

    Choose(GetParam().entry);
    Settle();

    ExpectNothingDone();
}

TEST_P(EachProtectedEntry, DoesItsWorkWithTheRightPassword)
{
    ServeTheAction();
    // The question comes first; what the action opens comes behind it.
    ModalScript first;
    first.On("frmMotPasse", [](QWidget& window) { Answer(window, u"Sesame"_s); });

    Choose(GetParam().entry);
    Settle();

    ExpectDone();
    EXPECT_EQ(first.Left(), 0U);
    EXPECT_EQ(State().ActionMotPasse, 0);
}

TEST_P(EachProtectedEntry, AsksAgainTheNextTime)
{
    CancelThePassword();
    Choose(GetParam().entry);
    Settle();

    int asked = 0;
    WhenAsked([&asked](QWidget& window) {
        ++asked;
        Click(Control<QPushButton>(window, "cmdCancel"));
    });
    Choose(GetParam().entry);
    Settle();

    EXPECT_EQ(asked, 1);
    ExpectNothingDone();
}

TEST_P(EachProtectedEntry, IsReachedByNoOtherEntryOrKey)
{
    // No entry of the menus has a shortcut, and no other entry has its words.
    const QString caption = Entry(GetParam().entry).text();
    int sameWords = 0;
    const auto actions = shell->MainWindow().findChildren<QAction*>();
    for (const QAction* const action : actions) {
        if (action->objectName().startsWith(u"Mnu_"_s)) {
            EXPECT_TRUE(action->shortcut().isEmpty()) << action->objectName().toStdString();
        }
        sameWords += action->text() == caption ? 1 : 0;
    }

    EXPECT_EQ(sameWords, 1);
}

TEST_P(EachProtectedEntry, IsTakenAwayUnderAnOpenMenu)
{
    // The menu was left open before the moment in which its entry is closed.
    QAction& action = Entry(GetParam().entry);
    auto* const menu = qobject_cast<QMenu*>(action.associatedObjects().constFirst());
    ASSERT_NE(menu, nullptr);
    menu->popup(QPoint(10, 10));
    Settle();
    action.setEnabled(false);

    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(&action).center());
    Settle();

    EXPECT_EQ(FindWindow("frmMotPasse"), nullptr);
    ExpectNothingDone();
    menu->close();
}

TEST_P(EachProtectedEntry, NeverOpensWhenTheCommonPasswordIsOutOfReach)
{
    State().places.ModeReseau = true;
    State().places.DossierDepot = u"absent"_s;
    WhenAsked([](QWidget& window) { Click(Control<QPushButton>(window, "cmdOK")); });
    CancelThePassword();

    Choose(GetParam().entry);
    Settle();

    ExpectNothingDone();
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(messages.shown[0].text.startsWith(u"Le fichier du mot de passe ne peut pas être lu"_s));
}

TEST_P(EachProtectedTool, GoesWithoutAQuestionAndAsksAgainToCome)
{
    ChooseAsTeacher(GetParam().entry);
    ASSERT_NE(FindWindow(GetParam().window), nullptr);

    Choose(GetParam().entry); // No step waits for a question.
    Settle();
    EXPECT_EQ(FindWindow(GetParam().window), nullptr);
    EXPECT_FALSE(Entry(GetParam().entry).isChecked());

    CancelThePassword();
    Choose(GetParam().entry);
    Settle();
    EXPECT_EQ(FindWindow(GetParam().window), nullptr);
    EXPECT_FALSE(Entry(GetParam().entry).isChecked());
}

TEST_P(EachProtectedTool, HasTheKeyboardWhenItComes)
{
    ChooseAsTeacher(GetParam().entry);

    QWidget* const tool = FindWindow(GetParam().window);
    ASSERT_NE(tool, nullptr);
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_TRUE(tool->isAncestorOf(QApplication::focusWidget()));
    EXPECT_TRUE(QApplication::focusWidget()->objectName().startsWith(u"txtMolecule"_s))
        << QApplication::focusWidget()->objectName().toStdString();
}

TEST_P(EachToolOfTheMainArea, HiddenByARunIsNotBroughtBackByTheKeysOfTheMainArea)
{
    ChooseAsTeacher(GetParam().entry);
    OpenFile({u"H2+O2=H2O/2,1,2"_s});
    ASSERT_EQ(FindWindow(GetParam().window), nullptr);
    QMdiArea& area = shell->MainWindow().Area();

    for (int i = 0; i < 4; ++i) {
        area.activateNextSubWindow();
        Settle();
        area.activatePreviousSubWindow();
        area.activatePreviousSubWindow();
        Settle();
    }
    QTest::keyClick(&area, Qt::Key_Tab, Qt::ControlModifier);
    Settle();
    EXPECT_EQ(FindWindow(GetParam().window), nullptr);

    // The mark stands: the entry takes the hidden window away, and then asks.
    Choose(GetParam().entry);
    Settle();
    EXPECT_EQ(FindWindow(GetParam().window), nullptr);
    CancelThePassword();
    Choose(GetParam().entry);
    Settle();
    EXPECT_EQ(FindWindow(GetParam().window), nullptr);
}

} // namespace stoikal
