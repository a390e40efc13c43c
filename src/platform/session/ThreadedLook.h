#pragma once

#include "platform/base/DetachedTask.h"
#include "platform/session/AskedFact.h"

#include <memory>

namespace kestro {

/// A fact that nobody tells of: it is looked up when it is asked, by work on a thread of its own, because
/// that may hang. What comes late is not known. Main thread, but for the work. Tested by CaptureLookTest.
class ThreadedLook final : public AskedFact {
public:
    /// `work` owns all that it uses, and may run after this is gone; `key` names it among all such work.
    ThreadedLook(QString key, std::function<QList<Hindrance>()> work);

private:
    void look(Found found) override;

    QString m_key;
    std::function<QList<Hindrance>()> m_work;
    std::unique_ptr<DetachedTask> m_task;
};

} // namespace kestro
