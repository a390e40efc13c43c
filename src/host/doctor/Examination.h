#pragma once

#include "host/doctor/Finding.h"
#include "platform/base/DetachedTask.h"

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

namespace kestro {

/// A look at one thing, which may take its time. Owned by the DoctorRun. Main thread. Tested by DoctorTest.
class Examination {
public:
    using Done = std::function<void(Findings)>;

    explicit Examination(QString title)
        : m_title(std::move(title))
    {
    }
    virtual ~Examination() = default;
    Examination(const Examination&) = delete;
    Examination& operator=(const Examination&) = delete;

    [[nodiscard]] const QString& title() const { return m_title; }
    /// Begins the look; `done` is called once, at once or from the event loop, unless this is gone before.
    virtual void begin(Done done) = 0;

private:
    QString m_title;
};

/// A look at what answers at once.
class QuickExamination final : public Examination {
public:
    QuickExamination(QString title, std::function<Findings()> look)
        : Examination(std::move(title))
        , m_look(std::move(look))
    {
    }
    void begin(Done done) override { done(m_look()); }

private:
    std::function<Findings()> m_look;
};

/// A look at what may never answer. `look` owns all that it uses.
class SlowExamination final : public Examination {
public:
    SlowExamination(QString title, std::chrono::milliseconds longest, std::function<Findings()> look);
    void begin(Done done) override;

private:
    std::chrono::milliseconds m_longest;
    std::function<Findings()> m_look;
    std::unique_ptr<DetachedTask> m_task;
};

/// What is found of something that did not answer within `longest`.
[[nodiscard]] Finding noAnswer(std::chrono::milliseconds longest);

} // namespace kestro
