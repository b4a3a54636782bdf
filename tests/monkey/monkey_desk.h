#pragma once

#include "platform/doors.h"
#include "virtual_time.h"

#include <QDateTime>
#include <random>

namespace stoikal {

/// The dice of the monkey: the same seed gives the same throws on each machine.
class Dice
{
public:
    explicit Dice(std::uint32_t seed)
        : m_engine(seed)
    {
    }
    /// 0 to `count` - 1; 0 for a count below 1.
    int Below(qsizetype count)
    {
        return count < 1 ? 0 : static_cast<int>(m_engine() % static_cast<std::uint32_t>(count));
    }
    bool Percent(int chance) { return Below(100) < chance; }
    double Uniform() { return static_cast<double>(m_engine()) / 4294967296.0; }

private:
    std::mt19937 m_engine;
};

/// The folder that a run has to itself. It has the same name each time, since paths
/// stand in texts and texts move windows; a second run at the same time takes the next.
class RunFolder
{
public:
    RunFolder();
    ~RunFolder();
    RunFolder(const RunFolder&) = delete;
    RunFolder& operator=(const RunFolder&) = delete;

    const QString& Path() const { return m_path; }

private:
    QString m_path;
    int m_lock = -1;
};

/// A desktop on which a monkey can do no harm: time is the monkey's, folders are its
/// own, and nothing leads out of the program.
class MonkeyDesk final : private Clock,
                         private Folders,
                         private UserAccount,
                         private Regional,
                         private Screen,
                         private Sound,
                         private Dialogs,
                         private Programs,
                         private Browser,
                         private WebFetch,
                         private Clipboard,
                         private Randomness,
                         private Trash
{
public:
    /// The folder is emptied.
    MonkeyDesk(Dice& dice, const QString& folder);

    Platform Doors();
    /// Where the equation files, the journal and the high scores live.
    QString EquationFolder() const;

private:
    std::int64_t Counter() const override { return virtual_time::Nanoseconds(); }
    std::int64_t CountsPerSecond() const override { return 1'000'000'000; }
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
    QString CommonAppData() const override { return m_folder + QStringLiteral("/app"); }
    QString CommonDocuments() const override { return m_folder + QStringLiteral("/documents"); }
    QString Program() const override { return QStringLiteral(STOIKAL_HELP_DIR); }
    QStringList SeedFiles() const override;
    QString NetworkRoot() const override { return {}; }
    QString Cache() const override { return m_folder + QStringLiteral("/cache"); }
    QString LoginName() const override { return QStringLiteral("singe"); }
    QString RealName() const override { return QStringLiteral("Un singe"); }
    QChar DecimalSeparator() const override { return QLatin1Char(','); }
    QRect WorkArea() const override { return {0, 0, 800, 800}; }
    int Width() const override { return 800; }
    void Beep() override { }
    std::optional<Choice> OpenFile(QWidget* parent, const Request& request) override;
    std::optional<Choice> AppendToFile(QWidget* parent, const Request& request) override;
    std::optional<QColor> ChooseColour(QWidget* parent, const QColor& initial,
                                       const QList<QColor>& ownColours) override;
    bool StartCalculator() override { return m_calculatorRuns = true; }
    bool CalculatorRuns() const override { return m_calculatorRuns; }
    void CloseCalculator() override { m_calculatorRuns = false; }
    bool EditText(const QString&) override { return m_dice.Percent(80); }
    bool IsOnline() const override { return true; }
    bool Open(const QString&) override { return m_dice.Percent(80); }
    QString Site() const override { return {}; }
    void Get(const QString&, std::function<void(const QByteArray&)>) override { }
    void SetText(const QString&) override { }
    void SetImage(const QImage&) override { }
    double Uniform() override { return m_dice.Uniform(); }
    bool Move(const QString& path) override;

    Dice& m_dice;
    QString m_folder;
    bool m_calculatorRuns = false;
};

} // namespace stoikal
