#pragma once

#include "platform/display/desktop/Desktop.h"

namespace kestro {

/// A desk whose one screen stands beside monitors that belong to other processes.
class OtherMonitorsDesktop final : public Desktop {
public:
    explicit OtherMonitorsDesktop(Desktop& desk)
        : m_desk(desk)
    {
    }
    [[nodiscard]] std::vector<Screen*> screens() const override { return m_desk.screens(); }
    [[nodiscard]] bool isFirst(const Screen&) const override { return false; }
    [[nodiscard]] Cursor& cursor() override { return m_desk.cursor(); }
    [[nodiscard]] TimerSource& timers() override { return m_desk.timers(); }
    [[nodiscard]] NotificationCenter& notifications() override { return m_desk.notifications(); }
    [[nodiscard]] const Clock& clock() const override { return m_desk.clock(); }
    [[nodiscard]] Random& random() override { return m_desk.random(); }

private:
    Desktop& m_desk;
};

} // namespace kestro
