#include "tools/tip_list.h"

#include "base/shown_path.h"
#include "base/text_lines.h"
#include "base/whole_file.h"

#include <QFileInfo>
#include <algorithm>
#include <cmath>

namespace stoikal {
namespace {

Failure MissingFile(const QString& path)
{
    return {QStringLiteral("Le fichier %1 n'a pas été trouvé? \n"
                           "Créez un fichier texte nommé %1 en utilisant le Bloc-notes avec une astuce par "
                           "ligne. Puis placez le dans le même dossier que l'application.")
                .arg(QFileInfo(path).fileName())};
}

} // namespace

Outcome<qsizetype> TipList::LoadTips(const QString& path)
{
    const auto bytes = ReadWholeFile(path, kTipsLimit, Links::Refused);
    if (!bytes) {
        return bytes.IsMissing() ? MissingFile(path)
                                 : Failure{QStringLiteral("Le fichier %1 ne peut pas être lu.\n%2")
                                               .arg(QFileInfo(path).fileName(), bytes.Reason())};
    }
    const QStringList lines = DecodeLines(NormaliseTextBytes(*bytes));
    m_tips += lines;
    return lines.size();
}

void TipList::Choose(double chance)
{
    if (m_tips.isEmpty())
        return;
    const double place = std::floor(chance * static_cast<double>(m_tips.size()) + 1);
    // A chance of almost 1 may be rounded up to the number behind the last.
    m_current = std::min(static_cast<qsizetype>(place), m_tips.size());
}

} // namespace stoikal
