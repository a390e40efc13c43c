#pragma once

#include <QByteArray>
#include <QString>

namespace kestro {

/// Sets an environment variable, or takes it away, for its own life time. For tests; main thread.
class ScopedEnvironment final {
public:
    ScopedEnvironment(const char* name, const QString& value)
        : ScopedEnvironment(name)
    {
        qputenv(name, value.toLocal8Bit());
    }
    explicit ScopedEnvironment(const char* name)
        : m_name(name)
        , m_wasSet(qEnvironmentVariableIsSet(name))
        , m_before(qgetenv(name))
    {
        qunsetenv(name);
    }
    ~ScopedEnvironment()
    {
        if (m_wasSet)
            qputenv(m_name, m_before);
        else
            qunsetenv(m_name);
    }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
    const char* m_name;
    bool m_wasSet;
    QByteArray m_before;
};

} // namespace kestro
