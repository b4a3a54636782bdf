#include "balancing/equation_search.h"
#include "editor/equation_file_io.h"
#include "editor/number_list.h"
#include "editor/progress_data.h"
#include "editor/windows/comment_page.h"
#include "editor/windows/frm_new_file.h"
#include "forms/messages.h"

#include <QLineEdit>
#include <QListWidget>
#include <algorithm>

namespace stoikal {
namespace {

/// What no system and no share takes in a file name.
bool HoldsForbiddenSign(const QString& name)
{
    return std::any_of(name.begin(), name.end(), [](QChar sign) {
        return !sign.isPrint() || QStringLiteral("/\\:*?\"<>|").contains(sign);
    });
}

QString TitleAbout(WritingTarget target)
{
    return target == WritingTarget::DeletedSinceLoaded ? QStringLiteral("Stoikal")
                                                       : QStringLiteral("Fichier existant");
}

/// The question before the writing, with "%1" for the file.
QString QuestionAbout(WritingTarget target)
{
    switch (target) {
    case WritingTarget::ChangedSinceLoaded:
        return QStringLiteral("Le fichier %1 existe déjà.\n"
                              "Il a été modifié ailleurs depuis que vous l'avez ouvert\u00A0: si vous "
                              "l'écrasez, ces modifications seront perdues.\n"
                              "Voulez-vous écraser celui existant ?");
    case WritingTarget::DeletedSinceLoaded:
        return QStringLiteral("Le fichier %1 a été supprimé ou renommé depuis que vous l'avez ouvert.\n"
                              "Voulez-vous le créer de nouveau\u00A0?");
    case WritingTarget::Free:
    case WritingTarget::Existing:
        break;
    }
    return QStringLiteral("Le fichier %1 existe déjà.\n"
                          "Voulez-vous écraser celui existant ?");
}

QString TextAboutLackingData(const std::vector<int>& lacking, std::size_t count)
{
    QString which;
    if (lacking.size() == count)
        which = QStringLiteral("Aucune équation n'a de donnée (masse, volume ou quantité de matière) "
                               "différente de 0.");
    else if (lacking.size() == 1)
        which
            = QStringLiteral("L'équation n°\u00A0%1 n'a aucune donnée (masse, volume ou quantité de matière) "
                             "différente de 0.")
                  .arg(lacking.front());
    else
        which = QStringLiteral("Les équations n°\u00A0%1 n'ont aucune donnée (masse, volume ou quantité de "
                               "matière) différente de 0.")
                    .arg(NumberList(lacking));
    return which
        + QStringLiteral("\nStoikal se fermerait chez l'élève en arrivant à une telle équation.\n"
                         "Voulez-vous néanmoins enregistrer le fichier\u00A0?");
}

} // namespace

void frmNewFile::cmdValid_Click()
{
    if (!MayStore())
        return;
    const QString name = txtNameFile->text().trimmed();
    if (!NameIsFit(name))
        return;
    const QString fileName = EquationFileName(name, Type());
    if (!MayWrite(fileName) || !StoreEquation(m_desk.number))
        return;
    RefreshPreview(m_desk.count);
    if (!m_failed.empty()) {
        m_doors.messages.Critical(this, QStringLiteral("Erreur saisie"),
                                  QStringLiteral("Il y a une erreur dans la saisie de votre équation.\n"
                                                 "Cliquez sur le bouton 'Prévisualisation' pour connaître\n"
                                                 "la nature de l'erreur."));
        return;
    }
    WriteFile(fileName);
}

bool frmNewFile::NameIsFit(const QString& name)
{
    QString text;
    if (name.isEmpty())
        text = QStringLiteral("Veuillez saisir le nom du fichier.");
    else if (HoldsForbiddenSign(name))
        text = QStringLiteral("Le nom du fichier ne peut pas contenir les caractères / \\ : * ? \" < > |");
    if (text.isEmpty())
        return true;
    m_doors.messages.Critical(this, QStringLiteral("Erreur saisie"), text);
    txtNameFile->setFocus();
    return false;
}

/// Whether no file of the name is there, or it may be overwritten; nor is the file that
/// was loaded gone, or it may be made anew.
bool frmNewFile::MayWrite(const QString& fileName)
{
    flbAllFilesEQU->clear();
    const auto files = EquationFilesOf(m_doors.equationFolder);
    // A folder that is not there yet is made by the writing, or its trouble told there.
    if (files)
        flbAllFilesEQU->addItems(*files);
    const WritingTarget target = FindWritingTarget(m_doors.equationFolder, fileName, m_desk.loaded);
    return target == WritingTarget::Free
        || m_doors.messages.Ask(this, TitleAbout(target), QuestionAbout(target).arg(fileName));
}

/// Whether each equation of a progress file has a datum, or may be without one.
bool frmNewFile::MayLackData(const std::vector<WorkEquation>& equations)
{
    const auto lacking = Type() == FileType::Avt ? EquationsWithoutDatum(equations) : std::vector<int>();
    return lacking.empty()
        || m_doors.messages.Ask(this, QStringLiteral("Stoikal"),
                                TextAboutLackingData(lacking, equations.size()));
}

void frmNewFile::WriteFile(const QString& fileName)
{
    const std::vector<WorkEquation> equations = m_work.Equations(m_desk.count);
    if (!MayLackData(equations))
        return;
    const auto written = WriteEquationFile(m_doors.equationFolder, fileName,
                                           EquationFileBytes(m_comments->Head(), equations, Type()));
    if (!written) {
        m_doors.messages.Critical(this, QStringLiteral("Stoikal"), written.Reason());
        return;
    }
    // Before the box, which may stay open for long: the work is in its file.
    m_work.Finish();
    m_doors.messages.Information(
        this, QStringLiteral("Création fichier"),
        QStringLiteral("Le fichier %1 vient d'être créé."
                       " Pour l'ouvrir aller dans le menu Fichier > Ouvrir un fichier ...")
            .arg(fileName));
    Unload(Accepted);
}

} // namespace stoikal
