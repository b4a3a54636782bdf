#pragma once

#include "platform/doors.h"

#include <QFile>
#include <QImage>
#include <QStringList>
#include <deque>
#include <functional>
#include <gtest/gtest.h>

namespace stoikal {

/// Ten counts a second; both clocks stand still until the test moves them.
struct FakeClock final : Clock {
    std::int64_t counter = 0;
    QDateTime now{QDate(2016, 3, 5), QTime(14, 7, 12)};
    std::int64_t Counter() const override { return counter; }
    std::int64_t CountsPerSecond() const override { return 10; }
    QDateTime Now() const override { return now; }
};

/// A clock of which every look finds a tenth of a second gone: what gives the event
/// loop its turns by the clock gives it one at each look.
struct RunningClock final : Clock {
    mutable std::int64_t counter = 0;
    QDateTime now{QDate(2016, 3, 5), QTime(14, 7, 12)};
    std::int64_t Counter() const override { return ++counter; }
    std::int64_t CountsPerSecond() const override { return 10; }
    QDateTime Now() const override { return now; }
};

struct FakeFolders final : Folders {
    QString appData;
    QString documents;
    QString program;
    QStringList seeds;
    QString networkRoot;
    QString cache;
    QString CommonAppData() const override { return appData; }
    QString CommonDocuments() const override { return documents; }
    QString Program() const override { return program; }
    QStringList SeedFiles() const override { return seeds; }
    QString NetworkRoot() const override { return networkRoot; }
    QString Cache() const override { return cache; }
};

struct FakeUser final : UserAccount {
    QString login = QStringLiteral("dupont");
    QString realName = QStringLiteral("Paul Dupont");
    QString LoginName() const override { return login; }
    QString RealName() const override { return realName; }
};

struct FakeRegional final : Regional {
    QChar separator = QLatin1Char(',');
    QChar DecimalSeparator() const override { return separator; }
};

struct FakeScreen final : Screen {
    QRect area{0, 0, 1024, 768};
    int width = 1024;
    QRect WorkArea() const override { return area; }
    int Width() const override { return width; }
};

struct FakeSound final : Sound {
    int beeps = 0;
    void Beep() override { ++beeps; }
};

/// Each opening needs a prepared answer: a choice, or nothing for a cancel.
struct FakeDialogs final : Dialogs {
    std::vector<Request> asked;
    std::deque<std::optional<Choice>> answers;
    ~FakeDialogs() override
    {
        EXPECT_TRUE(answers.empty()) << "a file was never asked for";
        EXPECT_TRUE(colourAnswers.empty()) << "a colour was never asked for";
    }
    std::optional<Choice> OpenFile(QWidget*, const Request& request) override { return Next(request); }
    std::optional<Choice> AppendToFile(QWidget*, const Request& request) override { return Next(request); }

    struct ColourRequest {
        QColor initial;
        QList<QColor> ownColours;
    };
    std::vector<ColourRequest> coloursAsked;
    std::deque<std::optional<QColor>> colourAnswers;
    std::optional<QColor> ChooseColour(QWidget*, const QColor& initial,
                                       const QList<QColor>& ownColours) override
    {
        coloursAsked.push_back({initial, ownColours});
        if (colourAnswers.empty()) {
            ADD_FAILURE() << "unexpected colour dialog";
            return std::nullopt;
        }
        const auto answer = colourAnswers.front();
        colourAnswers.pop_front();
        return answer;
    }

private:
    std::optional<Choice> Next(const Request& request)
    {
        asked.push_back(request);
        if (answers.empty()) {
            ADD_FAILURE() << "unexpected file dialog";
            return std::nullopt;
        }
        auto answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

struct FakePrograms final : Programs {
    bool canStart = true;
    bool runs = false;
    int closed = 0;
    bool StartCalculator() override
    {
        runs = canStart;
        return canStart;
    }
    bool CalculatorRuns() const override { return runs; }
    void CloseCalculator() override
    {
        ++closed;
        runs = false;
    }
    bool canEdit = true;
    QStringList edited; ///< the texts handed to the desktop's editor
    bool EditText(const QString& path) override
    {
        edited << path;
        return canEdit;
    }
};

/// Takes the files away, as the desktop does, unless the volume has no trash.
struct FakeTrash final : Trash {
    QStringList moved;
    QStringList withoutTrash; ///< paths that it does not take
    bool Move(const QString& path) override
    {
        if (withoutTrash.contains(path))
            return false;
        moved << path;
        return QFile::remove(path);
    }
};

struct FakeBrowser final : Browser {
    bool online = true;
    bool canOpen = true;
    QStringList opened;
    bool IsOnline() const override { return online; }
    bool Open(const QString& address) override
    {
        opened << address;
        return canOpen;
    }
};

/// Keeps the requests; the test answers when it likes.
struct FakeWebFetch final : WebFetch {
    QString site;
    QStringList asked;
    std::function<void(const QByteArray&)> onSuccess;
    QString Site() const override { return site; }
    void Get(const QString& address, std::function<void(const QByteArray&)> callback) override
    {
        asked << address;
        onSuccess = std::move(callback);
    }
};

struct FakeClipboard final : Clipboard {
    QString text;
    QImage image;
    void SetText(const QString& newText) override
    {
        text = newText;
        image = QImage();
    }
    void SetImage(const QImage& newImage) override
    {
        text.clear();
        image = newImage;
    }
};

struct FakeRandomness final : Randomness {
    double next = 0;
    std::function<double()> draw; ///< instead of `next`, where numbers must differ
    double Uniform() override { return draw ? draw() : next; }
};

/// A desktop that only records what was asked.
struct FakePlatform {
    FakeClock clock;
    FakeFolders folders;
    FakeUser user;
    FakeRegional regional;
    FakeScreen screen;
    FakeSound sound;
    FakeDialogs dialogs;
    FakePrograms programs;
    FakeBrowser browser;
    FakeWebFetch web;
    FakeClipboard clipboard;
    FakeRandomness randomness;
    FakeTrash trash;

    Platform Doors()
    {
        return {clock,    folders, user, regional,  screen,     sound, dialogs,
                programs, browser, web,  clipboard, randomness, trash};
    }
};

} // namespace stoikal
