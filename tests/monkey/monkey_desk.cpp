#include "monkey_desk.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <fcntl.h>
#include <stdexcept>
#include <sys/file.h>
#include <unistd.h>

namespace stoikal {

using namespace Qt::StringLiterals;

RunFolder::RunFolder()
{
    const QString place = QStringLiteral(STOIKAL_MONKEY_DIR);
    QDir().mkpath(place);
    for (int number = 1; m_lock < 0; ++number) {
        m_path = place + u"/run%1"_s.arg(number);
        // The lock goes with the process, however it ends; what it left lies there still.
        const int lock = ::open(QFile::encodeName(m_path + u".lock"_s).constData(),
                                O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
        if (lock < 0)
            throw std::runtime_error("no folder for the run in " + place.toStdString());
        if (::flock(lock, LOCK_EX | LOCK_NB) == 0)
            m_lock = lock;
        else
            ::close(lock);
    }
}

RunFolder::~RunFolder()
{
    QDir(m_path).removeRecursively();
    ::close(m_lock);
}

MonkeyDesk::MonkeyDesk(Dice& dice, const QString& folder)
    : m_dice(dice)
    , m_folder(folder)
{
    QDir(folder).removeRecursively();
    for (const QString& made : {CommonAppData(), CommonDocuments(), Cache()})
        QDir().mkpath(made);
}

Platform MonkeyDesk::Doors()
{
    return {*this, *this, *this, *this, *this, *this, *this, *this, *this, *this, *this, *this, *this};
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
