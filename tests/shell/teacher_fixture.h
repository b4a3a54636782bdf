#pragma once

#include "shell_fixture.h"

#include "tools/windows/text_window.h"

#include <QPlainTextEdit>
#include <QPushButton>

namespace stoikal {

/// A started program with a password: "Sesame". Nobody answers the question for
/// it unless the test does.
class TeacherTest : public StartedShellTest
{
protected:
    TeacherTest() { passesAsTeacher = false; }

    void SetUp() override
    {
        StartedShellTest::SetUp();
        SetPassword(QStringLiteral("Sesame"));
        shell->MainWindow().activateWindow();
        Settle();
    }

    void SetPassword(const QString& password)
    {
        EXPECT_TRUE(
            shell->UserSettings().Write(QStringLiteral("Options"), QStringLiteral("PassWord"), password));
    }

    /// What is done when the password is asked for.
    void WhenAsked(const ModalScript::Step& step) { script.On("frmMotPasse", step); }

    static void Answer(QWidget& window, const QString& password)
    {
        Type(Control<QLineEdit>(window, "txtPassWord"), password);
        Click(Control<QPushButton>(window, "cmdOK"));
    }

    void EnterThePassword()
    {
        WhenAsked([](QWidget& window) { Answer(window, QStringLiteral("Sesame")); });
    }

    void CancelThePassword()
    {
        WhenAsked([](QWidget& window) { Click(Control<QPushButton>(window, "cmdCancel")); });
    }

    /// An entry of the teacher, with the right password.
    void ChooseAsTeacher(const char* entry)
    {
        EnterThePassword();
        Choose(entry);
        Settle();
    }

    QString TipsPath() const { return EquationFolder() + QStringLiteral("/TipOfDayEqChm.txt"); }

    TextWindow& Text()
    {
        auto* const window = qobject_cast<TextWindow*>(FindWindow("frmTexte"));
        if (window == nullptr)
            throw std::runtime_error("no text window is open");
        return *window;
    }

    QString ShownText() { return Control<QPlainTextEdit>(Text(), "txtTexte").toPlainText(); }
};

} // namespace stoikal
