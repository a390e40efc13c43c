#pragma once

#include "host/preferences/Preview.h"

#include <QStringList>
#include <QWidget>

#include <functional>

namespace kestro {

/// What is asked of a preview.
struct Asked {
    QStringList journal;
    bool isThere = true;
    bool hasOptions = true;
    std::function<void()> whileStarting;
};

/// A preview without a saver, which keeps what it is asked.
class FakePreview final : public Preview {
public:
    explicit FakePreview(Asked& asked)
        : m_asked(asked)
    {
    }

    QWidget& widget() override { return m_widget; }
    bool start(const std::function<void()>& made) override
    {
        if (m_asked.isThere) made();
        if (m_asked.whileStarting) m_asked.whileStarting();
        return m_isStarted = m_asked.isThere;
    }
    bool isRunning() const override { return m_isStarted && m_pauses == 0; }
    void setPaused(Pause reason, bool paused) override
    {
        m_pauses = paused ? m_pauses | reason : m_pauses & ~unsigned{reason};
    }
    bool hasOptions() const override { return m_asked.hasOptions; }
    void openOptions(QWidget& over) override
    {
        m_asked.journal.append(QStringLiteral("options over ") + over.windowTitle());
    }
    void end() override
    {
        m_isStarted = false;
        m_asked.journal.append(QStringLiteral("end"));
    }

private:
    Asked& m_asked;
    QWidget m_widget;
    bool m_isStarted = false;
    unsigned m_pauses = 0;
};

} // namespace kestro
