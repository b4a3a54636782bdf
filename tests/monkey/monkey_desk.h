#pragma once

#include "platform/doors.h"
#include "platform/qt_platform.h"

#include <QTemporaryDir>
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

/// A desktop on which a monkey can do no harm: clocks are real, folders are its
/// own, and nothing leads out of the program.
class MonkeyDesk final : private Folders,
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
    explicit MonkeyDesk(Dice& dice);

    Platform Doors();
    /// Where the equation files, the journal and the high scores live.
    QString EquationFolder() const;

private:
    QString CommonAppData() const override { return m_folder.filePath(QStringLiteral("app")); }
    QString CommonDocuments() const override { return m_folder.filePath(QStringLiteral("documents")); }
    QString Program() const override { return QStringLiteral(STOIKAL_HELP_DIR); }
    QStringList SeedFiles() const override;
    QString NetworkRoot() const override { return {}; }
    QString Cache() const override { return m_folder.filePath(QStringLiteral("cache")); }
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
    QTemporaryDir m_folder;
    QtClock m_clock;
    bool m_calculatorRuns = false;
};

} // namespace stoikal
