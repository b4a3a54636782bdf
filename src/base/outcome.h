#pragma once

#include <QString>
#include <utility>
#include <variant>

namespace stoikal {

/// Why an operation on the world did not work, in a French sentence.
struct Failure {
    QString text;
    bool isMissing = false; ///< what was asked for is not there
};

/// A value, or the reason why there is none.
template <typename Value>
class [[nodiscard]] Outcome
{
public:
    Outcome(Value value) // NOLINT(google-explicit-constructor): a reader returns its value as it is
        : m_content(std::move(value))
    {
    }
    Outcome(Failure failure) // NOLINT(google-explicit-constructor)
        : m_content(std::move(failure))
    {
    }

    bool Succeeded() const { return std::holds_alternative<Value>(m_content); }
    explicit operator bool() const { return Succeeded(); }
    const Value& operator*() const { return std::get<Value>(m_content); }
    const Value* operator->() const { return &std::get<Value>(m_content); }
    Value& operator*() { return std::get<Value>(m_content); }
    Value* operator->() { return &std::get<Value>(m_content); }
    const Failure& Why() const { return std::get<Failure>(m_content); }
    const QString& Reason() const { return Why().text; }
    /// Whether it failed because what was asked for is not there.
    bool IsMissing() const { return !Succeeded() && Why().isMissing; }

private:
    std::variant<Value, Failure> m_content;
};

} // namespace stoikal
