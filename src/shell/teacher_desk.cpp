#include "shell/teacher_desk.h"

#include "balancing/equation_search.h"
#include "base/file_access.h"
#include "base/shown_path.h"
#include "exercise/windows/frm_equation.h"
#include "forms/messages.h"
#include "forms/place.h"
#include "shell/data_folders.h"
#include "shell/editor_desk.h"
#include "shell/exercise_desk.h"
#include "shell/file_session.h"
#include "shell/session.h"
#include "shell/tool_desk.h"
#include "shell/windows/frm_corbeille.h"
#include "shell/windows/frm_mot_passe.h"
#include "shell/windows/frm_pass_word.h"
#include "shell/windows/frm_stoikal.h"

#include <QFileInfo>
#include <algorithm>
#include <utility>

namespace stoikal {
namespace {

QString Title()
{
    return QStringLiteral("Stoikal");
}

} // namespace

TeacherDesk::TeacherDesk(Session& session, const Others& others)
    : m_session(session)
    , m_others(others)
    , m_store(session.state, session.settings)
{
    connect(&others.files, &FileSession::RunBegins, this, &TeacherDesk::CloseTextsForRun);
}

TeacherDesk::~TeacherDesk() = default;

void TeacherDesk::WarnOfLostPassword()
{
    if (m_hasWarned || !m_store.HasBeenLost())
        return;
    m_hasWarned = true;
    m_session.messages.Warning(
        &m_others.mainWindow, Title(),
        QStringLiteral(
            "Le mot de passe de la classe a disparu\u00A0: son fichier a été effacé ou vidé.\n%1\n\n"
            "Le mot de passe est vide pour le moment. Définissez-en un nouveau depuis le compte du "
            "professeur (menu «\u00A0?\u00A0», Changer le mot de passe), puis vérifiez les droits "
            "du dossier de dépôt.")
            .arg(ShownPath(CommonPasswordFile(m_session.state))));
}

void TeacherDesk::Ask(TeacherAction action)
{
    WarnOfLostPassword();
    int& waiting = m_session.state.ActionMotPasse;
    waiting = static_cast<int>(action);
    frmMotPasse window(m_store, m_session.messages, &m_others.mainWindow);
    const bool isRight = window.exec() == QDialog::Accepted;
    m_others.mainWindow.activateWindow();
    const int asked = std::exchange(waiting, 0);
    if (isRight)
        CarryOut(static_cast<TeacherAction>(asked));
}

void TeacherDesk::CarryOut(TeacherAction action)
{
    switch (action) {
    case TeacherAction::CreateFile:
        m_others.editor.OpenNew();
        break;
    case TeacherAction::ModifyFile:
        m_others.editor.OpenExisting();
        break;
    case TeacherAction::KillFile:
        KillFile();
        break;
    case TeacherAction::ShowAnswers:
        ShowAnswers();
        break;
    case TeacherAction::AddTip:
        AddTip();
        break;
    case TeacherAction::CleanAnswers:
        CleanAnswers();
        break;
    case TeacherAction::ShowSolution:
        ShowSolution();
        break;
    case TeacherAction::OpenBalance:
        m_others.tools.Mnu_Balance_Click();
        break;
    case TeacherAction::OpenSearch:
        m_others.tools.Mnu_Search_Click();
        break;
    case TeacherAction::OpenCalMol:
        m_others.tools.Mnu_CalMol_Click();
        break;
    }
}

void TeacherDesk::Mnu_Balance_Click()
{
    if (m_session.menu.IsChecked("Mnu_Balance"))
        m_others.tools.Mnu_Balance_Click();
    else
        Ask(TeacherAction::OpenBalance);
}

void TeacherDesk::Mnu_Search_Click()
{
    if (m_session.menu.IsChecked("Mnu_Search"))
        m_others.tools.Mnu_Search_Click();
    else
        Ask(TeacherAction::OpenSearch);
}

void TeacherDesk::Mnu_CalMol_Click()
{
    if (m_session.menu.IsChecked("Mnu_CalMol"))
        m_others.tools.Mnu_CalMol_Click();
    else
        Ask(TeacherAction::OpenCalMol);
}

void TeacherDesk::Mnu_Password_Click()
{
    WarnOfLostPassword();
    frmPassWord window(m_store, m_session.messages, &m_others.mainWindow);
    window.exec();
    m_others.mainWindow.activateWindow();
}

QString TeacherDesk::EquationFolder() const
{
    return m_session.state.DossierDocuments + OwnFolder();
}

void TeacherDesk::KillFile()
{
    const auto names = EquationFilesOf(EquationFolder());
    if (!names) {
        m_session.messages.Critical(&m_others.mainWindow, Title(), names.Reason());
        return;
    }
    frmCorbeille window(EquationFolder(), *names, m_session.desktop.trash, m_session.messages,
                        &m_others.mainWindow);
    window.exec();
    m_others.mainWindow.activateWindow();
}

std::optional<QString> TeacherDesk::ChooseResults(const QString& title)
{
    const SessionState& state = m_session.state;
    if (!state.ModeReseau)
        return EquationFolder() + QStringLiteral("/Resultat.txt");
    const qsizetype end = state.FichierResultat.lastIndexOf(QLatin1Char('/'));
    const auto choice = m_session.desktop.dialogs.OpenFile(&m_others.mainWindow,
                                                           {QStringLiteral("cdgOpenFileResultat"),
                                                            title,
                                                            state.FichierResultat.first(std::max(end, {})),
                                                            {QStringLiteral("Fichier texte (*.txt)")},
                                                            0,
                                                            {}});
    if (!choice)
        return std::nullopt;
    return choice->path;
}

Outcome<QString> TeacherDesk::ReopenJournal()
{
    return m_session.journal.Reopen();
}

void TeacherDesk::ReportJournal(const Outcome<QString>& opened)
{
    if (opened)
        return;
    m_session.messages.Critical(
        &m_others.mainWindow, Title(),
        QStringLiteral("Le fichier des résultats ne peut pas être rouvert :\n%1 : %2\n\n"
                       "Rien n'est perdu\u00A0: les lignes en attente seront écrites dès que possible.")
            .arg(ShownPath(m_session.state.FichierResultat), opened.Reason()));
}

void TeacherDesk::ShowAnswers()
{
    const auto path = ChooseResults(QStringLiteral("Visualiser les réponses des élèves"));
    if (!path)
        return;
    // What still waits in memory is to be seen, too.
    m_session.journal.Close();
    const bool isThere = QFileInfo::exists(*path);
    ReportJournal(ReopenJournal());
    if (!isThere) {
        ReportMissingText();
        return;
    }
    ShowText(*path, QStringLiteral("Réponses des élèves - %1").arg(QFileInfo(*path).fileName()),
             TextWindow::Use::Read);
}

void TeacherDesk::ReportMissingText()
{
    m_session.messages.Critical(&m_others.mainWindow, Title(),
                                QStringLiteral("Erreur sur le nom du fichier."));
}

void TeacherDesk::AddTip()
{
    const QString path = EquationFolder() + QStringLiteral("/TipOfDayEqChm.txt");
    if (QFileInfo::exists(path))
        ShowText(path, QStringLiteral("Astuces du jour, une par ligne"), TextWindow::Use::Edit);
    else
        ReportMissingText();
}

void TeacherDesk::CleanAnswers()
{
    Messages& messages = m_session.messages;
    if (!messages.Ask(&m_others.mainWindow, Title(),
                      QStringLiteral("Voulez-vous vraiment vider le fichier ?")))
        return;
    const auto path = ChooseResults(QStringLiteral("Vider un fichier de réponses"));
    if (!path)
        return;
    messages.Information(&m_others.mainWindow, Title(),
                         QStringLiteral("Fichier %1 vidé.").arg(QFileInfo(*path).fileName()));
    m_session.journal.Close();
    // What fails now ends quietly, and loses nothing: lines that find no file wait
    // for the next one, which reports what is wrong.
    const bool isEmpty = EmptyFile(*path);
    (void)ReopenJournal();
    if (TextWindow* const window = isEmpty ? OpenText(*path) : nullptr)
        window->Load();
}

void TeacherDesk::ShowSolution()
{
    if (frmEquation* const exercise = m_others.desk.Exercise())
        exercise->ShowSolution();
}

void TeacherDesk::ShowText(const QString& path, const QString& caption, TextWindow::Use use)
{
    if (TextWindow* const open = OpenText(path)) {
        open->show();
        open->raise();
        open->activateWindow();
        return;
    }
    auto* const window = new TextWindow(path, caption, use, {m_session.messages, m_session.desktop.programs},
                                        &m_others.mainWindow);
    if (!window->Load()) {
        window->deleteLater();
        return;
    }
    connect(window, &Form::CloseAsked, this, [this, window] { CloseText(window); });
    m_texts.push_back(window);
    CentreOver(*window, m_session.desktop.screen, m_others.mainWindow);
    window->show();
    window->activateWindow();
    window->setFocus();
}

TextWindow* TeacherDesk::OpenText(const QString& path) const
{
    for (const QPointer<TextWindow>& window : m_texts) {
        if (window != nullptr && window->Path() == path)
            return window;
    }
    return nullptr;
}

bool TeacherDesk::ShowsText() const
{
    return std::any_of(m_texts.begin(), m_texts.end(), [](const QPointer<TextWindow>& window) {
        return window != nullptr && window->isVisible();
    });
}

void TeacherDesk::CloseText(TextWindow* window)
{
    if (!window->MayClose())
        return;
    std::erase(m_texts, window);
    window->hide();
    window->deleteLater();
}

void TeacherDesk::CloseTextsForRun()
{
    // What the teacher was reading is not for the pupil who begins.
    const auto windows = m_texts;
    for (const QPointer<TextWindow>& window : windows) {
        if (window != nullptr && !window->IsModified())
            CloseText(window);
    }
}

void TeacherDesk::SaveTexts()
{
    for (const QPointer<TextWindow>& window : m_texts) {
        if (window != nullptr)
            window->OfferToSave();
    }
}

} // namespace stoikal
