// A library for LD_PRELOAD that visits the real program from within: a pupil plays a
// file to its end, changes a preference and the password, writes a file of equations,
// adds an equation and a tip, and leaves. Each window that opens is answered, each
// message box is written to STOIKAL_VISIT_LOG, and so is what was told to be done.
// STOIKAL_VISIT_FILE is the file that is played, STOIKAL_VISIT_APPEND the one that an
// equation is added to. With STOIKAL_VISIT_SHORT=1 it only starts and leaves.

#include "support/window_driver.h"

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <cstdlib>
#include <functional>
#include <vector>

using namespace stoikal;
using namespace Qt::StringLiterals;

namespace {

class Visitor final : public QObject
{
public:
    Visitor()
        : m_log(qEnvironmentVariable("STOIKAL_VISIT_LOG"))
    {
        if (!m_log.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
            std::_Exit(98);
        if (qEnvironmentVariableIsSet("STOIKAL_VISIT_SHORT"))
            m_steps = {{"Mnu_End", {}}};
        QTimer::singleShot(0, this, &Visitor::Turn);
    }

private:
    struct Step {
        const char* entry;
        std::function<void()> then; ///< what is done once the entry's windows are there
    };

    void Write(const QString& line) { m_log.write(QString(line).replace(u'\n', u'~').toUtf8() + '\n'); }

    /// One look at the program. What a look does may open a window that waits inside
    /// it: the next look is on its way before.
    void Turn()
    {
        constexpr int kPauseMs = 3;
        constexpr int kMostTurns = 6000;
        QTimer::singleShot(kPauseMs, this, &Visitor::Turn);
        QWidget* const modal = QApplication::activeModalWidget();
        if (++m_turns > kMostTurns) {
            Write(u"stuck in "_s + (modal == nullptr ? u"-"_s : modal->objectName()));
            std::_Exit(99);
        }
        try {
            if (modal == nullptr)
                GoOn();
            else if (modal->isVisible())
                Serve(*modal);
        } catch (const std::runtime_error& trouble) {
            Write(u"not reached "_s + QString::fromUtf8(trouble.what()));
        }
    }

    /// How often the window has been served, whatever boxes came over it.
    int Count(QWidget& window)
    {
        m_served = m_last == &window ? m_served + 1 : 1;
        m_last = &window;
        return m_served;
    }

    void Serve(QWidget& modal)
    {
        constexpr int kMostServices = 5;
        // A window that has work to do for longer than a look.
        if (modal.property("visited").toInt() > 0 && m_turns < modal.property("visited").toInt() + 20)
            return;
        modal.setProperty("visited", m_turns);
        if (auto* const box = qobject_cast<QMessageBox*>(&modal))
            return AnswerBox(*box);
        const int count = Count(modal);
        const QString name = modal.objectName();
        if (auto* const dialog = qobject_cast<QFileDialog*>(&modal))
            return count > 2 ? dialog->reject() : Choose(*dialog);
        if (count > kMostServices) {
            Write(u"gave up "_s + name);
            modal.close();
        } else if (name == u"frmSplash"_s) {
            Tick(Control<QTimer>(modal, "tmrSplash"));
        } else if (name == u"frmTip"_s) {
            Press(modal, "cmdOK");
        } else if (name == u"frmName"_s) {
            Identify(modal);
        } else if (name == u"frmMotPasse"_s) {
            Replace(modal, "txtPassWord", TriedPassword());
            Press(modal, m_passwordTries < 4 ? "cmdOK" : "cmdCancel");
        } else if (name == u"frmNote"_s) {
            Write(u"done note"_s);
            Press(modal, "cmdStay");
        } else if (name == u"frmPassWord"_s) {
            ChangePassword(modal, count);
        } else if (name == u"frmNewFile"_s) {
            WriteFile(modal, count);
        } else if (name == u"frmEtude"_s) {
            Press(modal, "cmdValid");
        } else {
            Write(u"unknown window "_s + name);
            modal.close();
        }
    }

    /// The one that was told to be valid; then the other, as a disk that has not
    /// promised to keep a change may keep it.
    QString TriedPassword() { return ++m_passwordTries % 2 == 1 ? m_password : u"clef"_s; }

    static void Press(QWidget& window, const char* button)
    {
        Click(Control<QAbstractButton>(window, button));
    }

    static void Replace(QWidget& window, const char* box, const QString& text)
    {
        auto& edit = Control<QLineEdit>(window, box);
        edit.clear();
        Type(edit, text);
    }

    void AnswerBox(QMessageBox& box)
    {
        const QString text = box.text();
        Write(u"box %1|%2"_s.arg(box.windowTitle(), text));
        // Who is asked the same again and again gives up at last.
        const bool isPatient = ++m_asked[text] < 3;
        for (const auto& [button, isMeant] : {std::pair(QMessageBox::Ok, true),
                                              {QMessageBox::Retry, isPatient},
                                              {QMessageBox::Yes, isPatient}}) {
            if (isMeant && box.button(button) != nullptr)
                return Click(*box.button(button));
        }
        Click(*box.button(box.button(QMessageBox::No) != nullptr ? QMessageBox::No : QMessageBox::Cancel));
    }

    void Choose(QFileDialog& dialog)
    {
        const char* const wanted
            = dialog.objectName() == u"cdgSave"_s ? "STOIKAL_VISIT_APPEND" : "STOIKAL_VISIT_FILE";
        Control<QLineEdit>(dialog, "fileNameEdit").setText(qEnvironmentVariable(wanted));
        for (const auto kind : {QDialogButtonBox::Open, QDialogButtonBox::Save}) {
            if (auto* const button = dialog.findChild<QDialogButtonBox*>()->button(kind))
                return Click(*button);
        }
    }

    static void Identify(QWidget& window)
    {
        Replace(window, "txtIdent(1)", u"DUPONT"_s);
        Replace(window, "txtIdent(2)", u"Paul"_s);
        Replace(window, "txtIdent(3)", u"3B"_s);
        Press(window, "cmdOK");
    }

    void ChangePassword(QWidget& window, int count)
    {
        if (count > 2)
            return Press(window, "cmdCancel");
        Replace(window, "txtOldPassWord", QString());
        Replace(window, "txtNewPassWord", u"clef"_s);
        const QPointer<QDialog> dialog = qobject_cast<QDialog*>(&window);
        Press(window, "cmdOK");
        if (dialog != nullptr && !dialog->isVisible() && dialog->result() == QDialog::Accepted) {
            m_password = u"clef"_s;
            Write(u"done password"_s);
        }
    }

    void WriteFile(QWidget& window, int count)
    {
        if (count > 2)
            return Press(window, "cmdCancel");
        Replace(window, "txtNameFile", u"Nouveau"_s);
        Replace(window, "txtMolecule(0)", u"H2"_s);
        Replace(window, "txtMolecule(1)", u"O2"_s);
        Replace(window, "txtMolecule(3)", u"H2O"_s);
        Press(window, "cmdValid");
    }

    void GoOn()
    {
        if (m_then) {
            const auto then = std::exchange(m_then, {});
            then();
        } else if (QWidget* const exercise = FindWindow("frmEquation")) {
            Play(*exercise);
        } else if (m_next < m_steps.size() && FindWindow("frmStoikal") != nullptr) {
            const Step& step = m_steps.at(m_next++);
            m_then = step.then;
            m_passwordTries = 0;
            m_last = nullptr;
            auto& entry = Control<QAction>(*FindWindow("frmStoikal"), step.entry);
            Write(u"step %1%2"_s.arg(QLatin1String(step.entry),
                                     entry.isEnabled() ? QString() : u" disabled"_s));
            if (entry.isEnabled())
                entry.trigger();
        }
    }

    void Play(QWidget& exercise)
    {
        const bool isWater = exercise.windowTitle().startsWith(u"Equation n°1"_s);
        if (++m_asked[exercise.windowTitle()] > 3) {
            Control<QAction>(*FindWindow("frmStoikal"), "Mnu_Close").trigger();
            return;
        }
        Replace(exercise, "txtCoef(0)", isWater ? u"2"_s : u"1"_s);
        Replace(exercise, "txtCoef(1)", u"1"_s);
        Replace(exercise, "txtCoef(3)", isWater ? u"2"_s : u"1"_s);
        const QPointer<QWidget> window = &exercise;
        Press(exercise, "cmdOther");
        if (window != nullptr && window->isVisible())
            Tick(Control<QTimer>(*window, "Timer1"));
    }

    void ChangePreference()
    {
        QWidget* const window = FindWindow("frmPref");
        if (window == nullptr)
            return;
        auto& box = Control<QAbstractButton>(*window, "chkInfoBulles");
        const bool was = box.isChecked();
        Click(box);
        if (box.isChecked() != was)
            Write(u"done preference"_s);
    }

    void Balance()
    {
        QWidget* const window = FindWindow("frmExpert");
        if (window == nullptr)
            return;
        Replace(*window, "txtMolecule(0)", u"C"_s);
        Replace(*window, "txtMolecule(1)", u"O2"_s);
        Replace(*window, "txtMolecule(3)", u"CO2"_s);
        Press(*window, "cmdBalance");
        m_then = [this] { SaveBalanced(); };
    }

    static void SaveBalanced()
    {
        QWidget* const window = FindWindow("frmExpert");
        if (window != nullptr && Control<QAbstractButton>(*window, "cmdSave").isEnabled())
            Press(*window, "cmdSave");
    }

    void AddTip()
    {
        QWidget* const window = FindWindow("frmTexte");
        if (window == nullptr)
            return;
        Type(Control<QPlainTextEdit>(*window, "txtTexte"), u"Une astuce de plus"_s);
        Press(*window, "cmdSave");
        if (!window->isWindowModified())
            Write(u"done tip"_s);
        Press(*window, "cmdClose");
    }

    QFile m_log;
    std::vector<Step> m_steps{{"Mnu_Open(0)", {}}, {"Mnu_Pref", [this] { ChangePreference(); }},
                              {"Mnu_Pref", {}},    {"Mnu_Password", {}},
                              {"Mnu_Create", {}},  {"Mnu_Balance", [this] { Balance(); }},
                              {"Mnu_Balance", {}}, {"Mnu_MoreTip", [this] { AddTip(); }},
                              {"Mnu_End", {}}};
    std::size_t m_next = 0;
    std::function<void()> m_then;
    int m_turns = 0;
    QWidget* m_last = nullptr;
    int m_served = 0;
    QHash<QString, int> m_asked;
    QString m_password;
    int m_passwordTries = 0; ///< since the last command
};

void Visit()
{
    // Lives as long as the process.
    static Visitor* const kVisitor = new Visitor;
    (void)kVisitor;
}

Q_COREAPP_STARTUP_FUNCTION(Visit)

} // namespace
