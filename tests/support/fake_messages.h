#pragma once

#include "forms/messages.h"
#include "support/qt_printers.h"

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace stoikal {

/// Keeps every box shown. A question needs a prepared answer, and every
/// prepared answer must be asked for: both faults fail the test.
class FakeMessages final : public Messages
{
public:
    ~FakeMessages() override { EXPECT_TRUE(answers.empty()) << "an answer was never asked for"; }

    std::vector<Message> shown;
    std::deque<QMessageBox::StandardButton> answers;
    /// Looks around while a box is open.
    std::function<void(const Message&)> whileOpen;

private:
    QMessageBox::StandardButton Show(QWidget*, const Message& message) override
    {
        shown.push_back(message);
        if (whileOpen)
            whileOpen(message);
        if (message.buttons == QMessageBox::Ok)
            return QMessageBox::Ok;
        if (answers.empty()) {
            ADD_FAILURE() << "unexpected question: " << message.text.toStdString();
            return QMessageBox::Cancel;
        }
        const auto answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

} // namespace stoikal
