#include "monkey_desk.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace stoikal {

using namespace Qt::StringLiterals;

MonkeyDesk::MonkeyDesk(Dice& dice)
    : m_dice(dice)
{
    for (const QString& folder : {CommonAppData(), CommonDocuments(), Cache()})
        QDir().mkpath(folder);
}

Platform MonkeyDesk::Doors()
{
    return {m_clock, *this, *this, *this, *this, *this, *this, *this, *this, *this, *this, *this, *this};
}

QString MonkeyDesk::EquationFolder() const
{
    return CommonDocuments() + u"/Tovik_MARLEN/Stoikal"_s;
}

QStringList MonkeyDesk::SeedFiles() const
{
    QStringList paths;
    for (const char* const folder : {"/exercises", "/tips"}) {
        const QDir shipped(QStringLiteral(STOIKAL_DATA_DIR) + QLatin1String(folder));
        const QStringList names = shipped.entryList(QDir::Files, QDir::Name);
        for (const QString& name : names)
            paths << shipped.filePath(name);
    }
    return paths;
}

/// A file of the kind that is shown first, one time in four none.
std::optional<Dialogs::Choice> MonkeyDesk::OpenFile(QWidget*, const Request& request)
{
    static const QRegularExpression kMask(u"\\*[^ ;)]*"_s);
    QStringList masks;
    auto found = kMask.globalMatch(request.filters.value(request.filter));
    while (found.hasNext())
        masks << found.next().captured();
    const QDir folder(EquationFolder());
    const QStringList names = folder.entryList(masks, QDir::Files, QDir::Name | QDir::IgnoreCase);
    if (names.isEmpty() || m_dice.Percent(25))
        return std::nullopt;
    return Choice{folder.filePath(names.at(m_dice.Below(names.size()))), request.filter};
}

std::optional<Dialogs::Choice> MonkeyDesk::AppendToFile(QWidget* parent, const Request& request)
{
    if (m_dice.Percent(50))
        return OpenFile(parent, request);
    if (m_dice.Percent(30))
        return std::nullopt;
    return Choice{EquationFolder() + u"/Singe%1"_s.arg(m_dice.Below(5)), request.filter};
}

std::optional<QColor> MonkeyDesk::ChooseColour(QWidget*, const QColor&, const QList<QColor>&)
{
    if (m_dice.Percent(25))
        return std::nullopt;
    return QColor(m_dice.Below(256), m_dice.Below(256), m_dice.Below(256));
}

bool MonkeyDesk::Move(const QString& path)
{
    return m_dice.Percent(80) && QFile::remove(path);
}

} // namespace stoikal
