#pragma once

#include <QString>
#include <utility>
#include <vector>

namespace stoikal {

/// Environment variables for one test; what stood there before comes back.
class Environment
{
public:
    Environment() = default;
    ~Environment()
    {
        for (const auto& [name, value] : m_before) {
            if (value.isNull())
                qunsetenv(name.constData());
            else
                qputenv(name.constData(), value);
        }
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

    void Set(const char* name, const QString& value)
    {
        m_before.insert(m_before.begin(), {name, qgetenv(name)});
        qputenv(name, value.toLocal8Bit());
    }

    void Unset(const char* name)
    {
        m_before.insert(m_before.begin(), {name, qgetenv(name)});
        qunsetenv(name);
    }

private:
    std::vector<std::pair<QByteArray, QByteArray>> m_before; ///< the last change first
};

} // namespace stoikal
