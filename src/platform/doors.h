#pragma once

#include <QColor>
#include <QDateTime>
#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <optional>

class QImage;
class QWidget;

/// What the desktop does for the program, one small door a job. A window takes
/// the doors that it uses; only the shell holds them all; tests pass fakes.
namespace stoikal {

/// The high-resolution counter and the calendar.
class Clock
{
public:
    virtual ~Clock() = default;
    virtual std::int64_t Counter() const = 0;
    virtual std::int64_t CountsPerSecond() const = 0;
    virtual QDateTime Now() const = 0;
};

/// Where things live. Every path is without a separator at its end; empty when
/// the desktop cannot tell.
class Folders
{
public:
    virtual ~Folders() = default;
    virtual QString CommonAppData() const = 0;
    virtual QString CommonDocuments() const = 0;
    /// The program's own files: pictures, help.
    virtual QString Program() const = 0;
    /// The shipped exercises and tips that seed a new equation folder.
    virtual QStringList SeedFiles() const = 0;
    /// The network root that holds the program, empty for a local one.
    virtual QString NetworkRoot() const = 0;
    /// For what the program would keep beside itself if it could write there.
    virtual QString Cache() const = 0;
};

/// Who sits at the machine.
class UserAccount
{
public:
    virtual ~UserAccount() = default;
    virtual QString LoginName() const = 0; ///< empty when unknown
    virtual QString RealName() const = 0; ///< empty when unknown
};

/// The conventions of the country.
class Regional
{
public:
    virtual ~Regional() = default;
    virtual QChar DecimalSeparator() const = 0;
};

/// The screen that the program stands on, in logical pixels.
class Screen
{
public:
    virtual ~Screen() = default;
    virtual QRect WorkArea() const = 0;
    virtual int Width() const = 0;
};

class Sound
{
public:
    virtual ~Sound() = default;
    virtual void Beep() = 0;
};

/// The chooser of files.
class Dialogs
{
public:
    struct Request {
        QString name; ///< of the dialog, by which tests and accessibility tools find it: "cdgOpen"
        QString title;
        QString folder;
        QStringList filters; ///< "Stoikal Equilibrage (*.Equ)"
        int filter = 0; ///< index of the one shown first
        QString fileName;
        QString accept = QString(); ///< caption of the button that accepts; empty: the desktop's
    };
    struct Choice {
        QString path;
        int filter = 0; ///< index of the one left active
    };

    virtual ~Dialogs() = default;
    /// An existing file; nothing when the user cancels.
    virtual std::optional<Choice> OpenFile(QWidget* parent, const Request& request) = 0;
    /// A file to add to, existing or new; it is never asked whether to overwrite,
    /// since nothing is. Nothing when the user cancels.
    virtual std::optional<Choice> AppendToFile(QWidget* parent, const Request& request) = 0;
    /// A colour, beginning with the one given and with colours of one's own to
    /// start from (16 at most). Nothing when the user cancels.
    virtual std::optional<QColor> ChooseColour(QWidget* parent, const QColor& initial,
                                               const QList<QColor>& ownColours)
        = 0;
};

/// The desktop's trash.
class Trash
{
public:
    virtual ~Trash() = default;
    /// Moves a file to where the desktop can restore it from. False when that
    /// cannot be done, as on a volume without a trash: the file then stays.
    virtual bool Move(const QString& path) = 0;
};

/// Outside programs.
class Programs
{
public:
    virtual ~Programs() = default;
    virtual bool StartCalculator() = 0;
    virtual bool CalculatorRuns() const = 0;
    virtual void CloseCalculator() = 0;
    /// Hands a text file to the desktop's editor and does not wait for it. False
    /// when no editor could be started.
    virtual bool EditText(const QString& path) = 0;
};

class Browser
{
public:
    virtual ~Browser() = default;
    virtual bool IsOnline() const = 0; ///< unknown counts as true
    virtual bool Open(const QString& address) = 0;
};

/// Fetches a small text without making anybody wait.
class WebFetch
{
public:
    virtual ~WebFetch() = default;
    /// The address of the maker's site; empty when none is configured.
    virtual QString Site() const = 0;
    /// Calls back with the bytes; does not call back on any failure.
    virtual void Get(const QString& address, std::function<void(const QByteArray&)> onSuccess) = 0;
};

class Clipboard
{
public:
    virtual ~Clipboard() = default;
    virtual void SetText(const QString& text) = 0;
    /// Takes the place of what was there.
    virtual void SetImage(const QImage& image) = 0;
};

/// Uniform random numbers.
class Randomness
{
public:
    virtual ~Randomness() = default;
    virtual double Uniform() = 0; ///< in [0, 1)
};

/// All the doors. Only the shell holds it whole.
struct Platform {
    Clock& clock;
    Folders& folders;
    UserAccount& user;
    Regional& regional;
    Screen& screen;
    Sound& sound;
    Dialogs& dialogs;
    Programs& programs;
    Browser& browser;
    WebFetch& web;
    Clipboard& clipboard;
    Randomness& randomness;
    Trash& trash;
};

} // namespace stoikal
