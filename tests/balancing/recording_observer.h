#pragma once

#include "balancing/balancing_engine.h"
#include "support/qt_printers.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <vector>

namespace stoikal {

/// What one choice of free positions reported of its progress.
struct ReportedChoice {
    int attempts = 0; ///< announced at its begin
    int calls = 0;
    int first = 0;
    int last = 0;
    bool rises = true; ///< each report is above the one before
    bool ended = false;
};

/// Watches a balancing and keeps all that it was told. A question that no answer
/// was prepared for fails the test.
class RecordingObserver final : public BalancingObserver
{
public:
    QString text;
    int resultsWritten = 0;
    QStringList titles;
    QStringList questions;
    std::vector<bool> answers; ///< given in this order
    int searchesBegun = 0;
    int searchesEnded = 0;
    std::vector<ReportedChoice> choices;
    int stopAtChoice = 0; ///< gives the search up at the first report of this choice, from 1; 0 never

    void Append(const QString& appended) override { text += appended; }
    void ResultWritten() override
    {
        EXPECT_TRUE(text.endsWith(QLatin1Char('\n'))) << "a result is told when it stands in the text";
        ++resultsWritten;
    }
    bool KeepsUnknownSymbol(const QString& title, const QString& question) override
    {
        titles << title;
        questions << question;
        const auto asked = static_cast<std::size_t>(questions.size());
        if (asked > answers.size()) {
            ADD_FAILURE() << "not expected: " << question.toStdString();
            return false;
        }
        return answers[asked - 1];
    }
    void SearchBegins() override { ++searchesBegun; }
    void SearchEnds() override { ++searchesEnded; }
    void AttemptsBegin(int attempts) override
    {
        choices.emplace_back();
        choices.back().attempts = attempts;
    }
    bool AttemptsDone(int attempts) override
    {
        ReportedChoice& choice = choices.at(choices.size() - 1);
        if (choice.calls++ == 0)
            choice.first = attempts;
        choice.rises = choice.rises && attempts > choice.last;
        choice.last = attempts;
        return choices.size() != static_cast<std::size_t>(stopAtChoice);
    }
    void AttemptsEnd() override { choices.at(choices.size() - 1).ended = true; }
};

} // namespace stoikal
