#pragma once

#include "platform/doors.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QProcess>
#include <QRandomGenerator>

class QNetworkAccessManager;

namespace stoikal {

/// The desktop behind the doors, by Qt. This is the only code that reads the
/// environment, the locale, the folders, the clocks and the seed.
class QtClock final : public Clock
{
public:
    QtClock() { m_timer.start(); }
    std::int64_t Counter() const override { return m_timer.nsecsElapsed(); }
    std::int64_t CountsPerSecond() const override { return 1000000000; }
    QDateTime Now() const override { return QDateTime::currentDateTime(); }

private:
    QElapsedTimer m_timer;
};

/// Whether a file system of this type ("nfs4", "ext4") lies on another machine.
bool IsNetworkFileSystem(const QByteArray& type);

class QtFolders final : public Folders
{
public:
    QString CommonAppData() const override;
    QString CommonDocuments() const override;
    QString Program() const override;
    QStringList SeedFiles() const override;
    QString NetworkRoot() const override;
    QString Cache() const override;
};

class QtUserAccount final : public UserAccount
{
public:
    QString LoginName() const override;
    QString RealName() const override;
};

class QtRegional final : public Regional
{
public:
    QChar DecimalSeparator() const override;
};

class QtScreen final : public Screen
{
public:
    QRect WorkArea() const override;
    int Width() const override;
};

class QtSound final : public Sound
{
public:
    void Beep() override;
};

class QtDialogs final : public Dialogs
{
public:
    std::optional<Choice> OpenFile(QWidget* parent, const Request& request) override;
    std::optional<Choice> AppendToFile(QWidget* parent, const Request& request) override;
    std::optional<QColor> ChooseColour(QWidget* parent, const QColor& initial,
                                       const QList<QColor>& ownColours) override;
};

class QtTrash final : public Trash
{
public:
    bool Move(const QString& path) override;
};

class QtPrograms final : public Programs
{
public:
    bool StartCalculator() override;
    bool CalculatorRuns() const override;
    void CloseCalculator() override;
    bool EditText(const QString& path) override;

private:
    /// Not owned by this program's life: the calculator may outlive it.
    qint64 m_calculator = 0;
    qint64 m_calculatorStart = 0; ///< when it started: its number may be given to another later
};

class QtBrowser final : public Browser
{
public:
    bool IsOnline() const override;
    bool Open(const QString& address) override;
};

class QtWebFetch final : public WebFetch
{
public:
    QtWebFetch();
    ~QtWebFetch() override;
    QString Site() const override;
    void Get(const QString& address, std::function<void(const QByteArray&)> onSuccess) override;

private:
    std::unique_ptr<QNetworkAccessManager> m_manager;
};

class QtClipboard final : public Clipboard
{
public:
    void SetText(const QString& text) override;
    void SetImage(const QImage& image) override;
};

class QtRandomness final : public Randomness
{
public:
    double Uniform() override { return m_generator.generateDouble(); }

private:
    QRandomGenerator m_generator = QRandomGenerator::securelySeeded();
};

/// The doors of the desktop, all together.
struct QtDesktop {
    QtClock clock;
    QtFolders folders;
    QtUserAccount user;
    QtRegional regional;
    QtScreen screen;
    QtSound sound;
    QtDialogs dialogs;
    QtPrograms programs;
    QtBrowser browser;
    QtWebFetch web;
    QtClipboard clipboard;
    QtRandomness randomness;
    QtTrash trash;

    Platform Doors()
    {
        return {clock,    folders, user, regional,  screen,     sound, dialogs,
                programs, browser, web,  clipboard, randomness, trash};
    }
};

} // namespace stoikal
