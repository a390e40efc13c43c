#pragma once

#include "platform/display/XvfbServer.h"
#include "platform/session/PrivateBus.h"
#include "platform/session/SessionFact.h"

#include <QCoreApplication>

#include <array>
#include <gtest/gtest.h>

namespace kestro {

/// A program with an event loop and a bus of its own, which serves as the session's and the system's.
class FactTest : public testing::Test {
protected:
    /// What is known once the fact has answered.
    [[nodiscard]] static QList<Hindrance> asked(SessionFact& fact)
    {
        int answers = 0;
        fact.ask([&answers] { ++answers; });
        if (!waitUntil([&answers] { return answers > 0; })) ADD_FAILURE() << "no answer";
        return fact.hindrances();
    }
    /// Whether it comes to have `count` reasons by itself.
    [[nodiscard]] static bool comesToHave(const SessionFact& fact, qsizetype count)
    {
        return waitUntil([&fact, count] { return fact.hindrances().size() == count; });
    }

    int m_argc = 1;
    std::array<char, 5> m_name{"test"};
    std::array<char*, 2> m_argv{m_name.data(), nullptr};
    QCoreApplication m_application{m_argc, m_argv.data()};
    PrivateBus m_bus;
    QDBusConnection m_ours = m_bus.connect();
};

} // namespace kestro
