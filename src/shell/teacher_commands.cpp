#include "shell/teacher_commands.h"

#include "balancing/equation_search.h"
#include "base/file_access.h"
#include "base/places.h"
#include "base/shown_path.h"
#include "exercise/results_journal.h"
#include "exercise/windows/frm_equation.h"
#include "forms/messages.h"
#include "forms/place.h"
#include "platform/doors.h"
#include "shell/data_folders.h"
#include "shell/editor_controller.h"
#include "shell/file_session.h"
#include "shell/run_controller.h"
#include "shell/tool_windows.h"
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

/// The entry of a tool that the password protects.
Command ToolOf(TeacherAction action)
{
    switch (action) {
    case TeacherAction::OpenSearch:
        return Command::Search;
    case TeacherAction::OpenCalMol:
        return Command::CalMol;
    default:
        return Command::Expert;
    }
}

} // namespace

TeacherCommands::TeacherCommands(const Services& services, const Others& others)
    : m_services(services)
    , m_others(others)
    , m_store(services.places, services.settings)
{
    connect(&others.files, &FileSession::RunBegins, this, &TeacherCommands::CloseTextsForRun);
}

TeacherCommands::~TeacherCommands() = default;

void TeacherCommands::WarnOfLostPassword()
{
    if (m_hasWarned || !m_store.HasBeenLost())
        return;
    m_hasWarned = true;
    m_services.messages.Warning(
        &m_others.mainWindow, Title(),
        QStringLiteral(
            "Le mot de passe de la classe a disparu\u00A0: son fichier a été effacé ou vidé.\n%1\n\n"
            "Le mot de passe est vide pour le moment. Définissez-en un nouveau depuis le compte du "
            "professeur (menu «\u00A0?\u00A0», Changer le mot de passe), puis vérifiez les droits "
            "du dossier de dépôt.")
            .arg(ShownPath(CommonPasswordFile(m_services.places))));
}

void TeacherCommands::Ask(TeacherAction action)
{
    WarnOfLostPassword();
    int& waiting = m_services.ActionMotPasse;
    waiting = static_cast<int>(action);
    frmMotPasse window(m_store, m_services.messages, &m_others.mainWindow);
    const bool isRight = window.exec() == QDialog::Accepted;
    m_others.mainWindow.activateWindow();
    const int asked = std::exchange(waiting, 0);
    if (isRight)
        CarryOut(static_cast<TeacherAction>(asked));
}

void TeacherCommands::CarryOut(TeacherAction action)
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
    case TeacherAction::OpenSearch:
    case TeacherAction::OpenCalMol:
        m_others.tools.Toggle(ToolOf(action));
        break;
    }
}

void TeacherCommands::ToggleTool(TeacherAction action)
{
    const Command tool = ToolOf(action);
    if (m_others.tools.IsOpen(tool))
        m_others.tools.Toggle(tool);
    else
        Ask(action);
}

void TeacherCommands::Mnu_Password_Click()
{
    WarnOfLostPassword();
    frmPassWord window(m_store, m_services.messages, &m_others.mainWindow);
    window.exec();
    m_others.mainWindow.activateWindow();
}

QString TeacherCommands::EquationFolder() const
{
    return m_services.places.DossierDocuments + OwnFolder();
}

void TeacherCommands::KillFile()
{
    const auto names = EquationFilesOf(EquationFolder());
    if (!names) {
        m_services.messages.Critical(&m_others.mainWindow, Title(), names.Reason());
        return;
    }
    frmCorbeille window(EquationFolder(), *names, m_services.trash, m_services.messages,
                        &m_others.mainWindow);
    window.exec();
    m_others.mainWindow.activateWindow();
}

std::optional<QString> TeacherCommands::ChooseResults(const QString& title)
{
    const Places& places = m_services.places;
    if (!places.ModeReseau)
        return EquationFolder() + QStringLiteral("/Resultat.txt");
    const qsizetype end = places.FichierResultat.lastIndexOf(QLatin1Char('/'));
    const auto choice = m_services.dialogs.OpenFile(&m_others.mainWindow,
                                                    {QStringLiteral("cdgOpenFileResultat"),
                                                     title,
                                                     places.FichierResultat.first(std::max(end, {})),
                                                     {QStringLiteral("Fichier texte (*.txt)")},
                                                     0,
                                                     {}});
    if (!choice)
        return std::nullopt;
    return choice->path;
}

Outcome<QString> TeacherCommands::ReopenJournal()
{
    return m_services.journal.Reopen();
}

void TeacherCommands::ReportJournal(const Outcome<QString>& opened)
{
    if (opened)
        return;
    m_services.messages.Critical(
        &m_others.mainWindow, Title(),
        QStringLiteral("Le fichier des résultats ne peut pas être rouvert :\n%1 : %2\n\n"
                       "Rien n'est perdu\u00A0: les lignes en attente seront écrites dès que possible.")
            .arg(ShownPath(m_services.places.FichierResultat), opened.Reason()));
}

void TeacherCommands::ShowAnswers()
{
    const auto path = ChooseResults(QStringLiteral("Visualiser les réponses des élèves"));
    if (!path)
        return;
    // What still waits in memory is to be seen, too.
    m_services.journal.Close();
    const bool isThere = QFileInfo::exists(*path);
    ReportJournal(ReopenJournal());
    if (!isThere) {
        ReportMissingText();
        return;
    }
    ShowText(*path, QStringLiteral("Réponses des élèves - %1").arg(QFileInfo(*path).fileName()),
             TextWindow::Use::Read);
}

void TeacherCommands::ReportMissingText()
{
    m_services.messages.Critical(&m_others.mainWindow, Title(),
                                 QStringLiteral("Erreur sur le nom du fichier."));
}

void TeacherCommands::AddTip()
{
    const QString path = EquationFolder() + QStringLiteral("/TipOfDayEqChm.txt");
    if (QFileInfo::exists(path))
        ShowText(path, QStringLiteral("Astuces du jour, une par ligne"), TextWindow::Use::Edit);
    else
        ReportMissingText();
}

void TeacherCommands::CleanAnswers()
{
    Messages& messages = m_services.messages;
    if (!messages.Ask(&m_others.mainWindow, Title(),
                      QStringLiteral("Voulez-vous vraiment vider le fichier ?")))
        return;
    const auto path = ChooseResults(QStringLiteral("Vider un fichier de réponses"));
    if (!path)
        return;
    messages.Information(&m_others.mainWindow, Title(),
                         QStringLiteral("Fichier %1 vidé.").arg(QFileInfo(*path).fileName()));
    m_services.journal.Close();
    // What fails now ends quietly, and loses nothing: lines that find no file wait
    // for the next one, which reports what is wrong.
    const bool isEmpty = EmptyFile(*path);
    (void)ReopenJournal();
    if (TextWindow* const window = isEmpty ? OpenText(*path) : nullptr)
        window->Load();
}

void TeacherCommands::ShowSolution()
{
    if (frmEquation* const exercise = m_others.run.Exercise())
        exercise->ShowSolution();
}

void TeacherCommands::ShowText(const QString& path, const QString& caption, TextWindow::Use use)
{
    if (TextWindow* const open = OpenText(path)) {
        open->show();
        open->raise();
        open->activateWindow();
        return;
    }
    auto* const window = new TextWindow(path, caption, use, {m_services.messages, m_services.programs},
                                        &m_others.mainWindow);
    if (!window->Load()) {
        window->deleteLater();
        return;
    }
    connect(window, &Form::CloseAsked, this, [this, window] { CloseText(window); });
    m_texts.push_back(window);
    CentreOver(*window, m_services.screen, m_others.mainWindow);
    window->show();
    window->activateWindow();
    window->setFocus();
}

TextWindow* TeacherCommands::OpenText(const QString& path) const
{
    for (const QPointer<TextWindow>& window : m_texts) {
        if (window != nullptr && window->Path() == path)
            return window;
    }
    return nullptr;
}

bool TeacherCommands::ShowsText() const
{
    return std::any_of(m_texts.begin(), m_texts.end(), [](const QPointer<TextWindow>& window) {
        return window != nullptr && window->isVisible();
    });
}

void TeacherCommands::CloseText(TextWindow* window)
{
    if (!window->MayClose())
        return;
    std::erase(m_texts, window);
    window->hide();
    window->deleteLater();
}

void TeacherCommands::CloseTextsForRun()
{
    // What the teacher was reading is not for the pupil who begins.
    const auto windows = m_texts;
    for (const QPointer<TextWindow>& window : windows) {
        if (window != nullptr && !window->IsModified())
            CloseText(window);
    }
}

void TeacherCommands::SaveTexts()
{
    for (const QPointer<TextWindow>& window : m_texts) {
        if (window != nullptr)
            window->OfferToSave();
    }
}

} // namespace stoikal
