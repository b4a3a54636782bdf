#include "platform/qt_platform.h"

#include "base/whole_file.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>
#include <QNetworkAccessManager>
#include <QNetworkInformation>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QScreen>
#include <QStandardPaths>
#include <QTimer>
#include <csignal>
#include <pwd.h>
#include <unistd.h>

namespace stoikal {

QString QtUserAccount::LoginName() const
{
    if (QString said = qEnvironmentVariable("STOIKAL_USER"); !said.isEmpty())
        return said;
    const passwd* const entry = ::getpwuid(::getuid());
    return entry == nullptr ? QString() : QString::fromLocal8Bit(entry->pw_name);
}

QString QtUserAccount::RealName() const
{
    const passwd* const entry = ::getpwuid(::getuid());
    if (entry == nullptr || entry->pw_gecos == nullptr)
        return {};
    return QString::fromLocal8Bit(entry->pw_gecos).section(QLatin1Char(','), 0, 0);
}

QChar QtRegional::DecimalSeparator() const
{
    const QString point = QLocale::system().decimalPoint();
    return point.isEmpty() ? QLatin1Char('.') : point.front();
}

QRect QtScreen::WorkArea() const
{
    return QGuiApplication::primaryScreen()->availableGeometry();
}

int QtScreen::Width() const
{
    return QGuiApplication::primaryScreen()->geometry().width();
}

void QtSound::Beep()
{
    QApplication::beep();
}

namespace {

/// The dialog chooses and does nothing else: files and folders can be neither
/// deleted nor renamed, made or dragged away in it, with or without a password.
void MakeReadOnly(QFileDialog& dialog)
{
    // The desktop's own dialogs know no such promise.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::ReadOnly);
    const auto views = dialog.findChildren<QAbstractItemView*>();
    for (QAbstractItemView* const view : views)
        view->setDragDropMode(QAbstractItemView::NoDragDrop);
}

std::optional<Dialogs::Choice> RunFileDialog(QFileDialog& dialog, const Dialogs::Request& request)
{
    dialog.setObjectName(request.name);
    MakeReadOnly(dialog);
    // Names are what a file is chosen by; sizes and kinds only squeeze them.
    dialog.setViewMode(QFileDialog::List);
    dialog.setNameFilters(request.filters);
    if (request.filter >= 0 && request.filter < request.filters.size())
        dialog.selectNameFilter(request.filters.at(request.filter));
    if (!request.fileName.isEmpty())
        dialog.selectFile(request.fileName);
    if (!request.accept.isEmpty())
        dialog.setLabelText(QFileDialog::Accept, request.accept);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const qsizetype filter = request.filters.indexOf(dialog.selectedNameFilter());
    return Dialogs::Choice{dialog.selectedFiles().constFirst(),
                           filter < 0 ? request.filter : static_cast<int>(filter)};
}

} // namespace

std::optional<Dialogs::Choice> QtDialogs::OpenFile(QWidget* parent, const Request& request)
{
    QFileDialog dialog(parent, request.title, request.folder);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    return RunFileDialog(dialog, request);
}

std::optional<Dialogs::Choice> QtDialogs::AppendToFile(QWidget* parent, const Request& request)
{
    QFileDialog dialog(parent, request.title, request.folder);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    return RunFileDialog(dialog, request);
}

std::optional<QColor> QtDialogs::ChooseColour(QWidget* parent, const QColor& initial,
                                              const QList<QColor>& ownColours)
{
    for (int i = 0; i < ownColours.size() && i < QColorDialog::customCount(); ++i)
        QColorDialog::setCustomColor(i, ownColours.at(i));
    QColorDialog dialog(initial, parent);
    dialog.setObjectName(QStringLiteral("cdgColor"));
    dialog.setWindowTitle(QStringLiteral("Palette de couleurs"));
    // A dialog of the desktop's own would not offer the colours given.
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.selectedColor();
}

namespace {

/// When a process started, in the system's ticks; 0 for one that is over. One
/// that ended keeps its number until somebody asks how it ended: it is over too.
qint64 StartOfProcess(qint64 number)
{
    constexpr FileLimit kLimit{4096, 4096};
    const auto read = ReadWholeFile(QStringLiteral("/proc/%1/stat").arg(number), kLimit, Links::Refused);
    if (number <= 0 || !read)
        return 0;
    const QByteArray& text = *read;
    // "14213 (calc (old)) S 1 ...": the name ends at the last bracket.
    const QList<QByteArray> fields = text.sliced(text.lastIndexOf(')') + 1).simplified().split(' ');
    constexpr qsizetype kState = 0;
    constexpr qsizetype kStart = 19;
    if (fields.size() <= kStart || fields[kState] == "Z" || fields[kState] == "X")
        return 0;
    return fields[kStart].toLongLong();
}

} // namespace

bool QtPrograms::StartCalculator()
{
    QStringList commands;
    if (const QString said = qEnvironmentVariable("STOIKAL_CALCULATOR"); !said.isEmpty()) {
        commands << said;
    } else {
        commands = {QStringLiteral("gnome-calculator"), QStringLiteral("kcalc"),
                    QStringLiteral("galculator"),       QStringLiteral("mate-calc"),
                    QStringLiteral("qalculate-gtk"),    QStringLiteral("xcalc")};
    }
    for (const QString& command : commands) {
        QStringList words = QProcess::splitCommand(command);
        if (words.isEmpty() || QStandardPaths::findExecutable(words.first()).isEmpty())
            continue;
        const QString program = words.takeFirst();
        if (QProcess::startDetached(program, words, QString(), &m_calculator)) {
            m_calculatorStart = StartOfProcess(m_calculator);
            return true;
        }
    }
    return false;
}

bool QtPrograms::EditText(const QString& path)
{
    // What the desktop opens texts with; without its opener, an editor that is there.
    QStringList commands{QStringLiteral("xdg-open"),  QStringLiteral("gnome-text-editor"),
                         QStringLiteral("gedit"),     QStringLiteral("kate"),
                         QStringLiteral("kwrite"),    QStringLiteral("mousepad"),
                         QStringLiteral("pluma"),     QStringLiteral("xed"),
                         QStringLiteral("featherpad")};
    if (const QString said = qEnvironmentVariable("STOIKAL_EDITOR"); !said.isEmpty())
        commands = QStringList{said};
    for (const QString& command : std::as_const(commands)) {
        QStringList words = QProcess::splitCommand(command);
        if (words.isEmpty() || QStandardPaths::findExecutable(words.first()).isEmpty())
            continue;
        const QString program = words.takeFirst();
        // A path never begins with a hyphen that a program would take for an option.
        words << QFileInfo(path).absoluteFilePath();
        if (QProcess::startDetached(program, words))
            return true;
    }
    return false;
}

bool QtPrograms::CalculatorRuns() const
{
    return m_calculatorStart != 0 && StartOfProcess(m_calculator) == m_calculatorStart;
}

void QtPrograms::CloseCalculator()
{
    if (CalculatorRuns())
        ::kill(static_cast<pid_t>(m_calculator), SIGTERM);
    m_calculator = 0;
    m_calculatorStart = 0;
}

bool QtBrowser::IsOnline() const
{
    if (!QNetworkInformation::loadDefaultBackend())
        return true;
    const auto reachability = QNetworkInformation::instance()->reachability();
    return reachability != QNetworkInformation::Reachability::Disconnected;
}

bool QtBrowser::Open(const QString& address)
{
    return QDesktopServices::openUrl(QUrl(address));
}

QtWebFetch::QtWebFetch() = default;
QtWebFetch::~QtWebFetch() = default;

QString QtWebFetch::Site() const
{
    return qEnvironmentVariable("STOIKAL_SITE");
}

void QtWebFetch::Get(const QString& address, std::function<void(const QByteArray&)> onSuccess)
{
    constexpr int kLongestWaitMs = 3000;
    constexpr qint64 kLargestText = 65536;
    const QUrl url(address);
    // Only what lies on a server: a file of this machine could make the start wait.
    if (!url.isValid() || (url.scheme() != QLatin1String("http") && url.scheme() != QLatin1String("https")))
        return;
    if (m_manager == nullptr)
        m_manager = std::make_unique<QNetworkAccessManager>();
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    QNetworkReply* const reply = m_manager->get(request);
    reply->setReadBufferSize(kLargestText + 1);
    QTimer::singleShot(kLongestWaitMs, reply, &QNetworkReply::abort);
    QObject::connect(reply, &QIODevice::readyRead, reply, [reply] {
        if (reply->bytesAvailable() > kLargestText)
            reply->abort();
    });
    QObject::connect(reply, &QNetworkReply::finished, reply, [reply, onSuccess = std::move(onSuccess)] {
        reply->deleteLater();
        if (reply->error() == QNetworkReply::NoError)
            onSuccess(reply->readAll());
    });
}

void QtClipboard::SetText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

void QtClipboard::SetImage(const QImage& image)
{
    QGuiApplication::clipboard()->setImage(image);
}

} // namespace stoikal
