#pragma once

#include "host/doctor/Examination.h"

#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace kestro {

/// Has everything looked at, all at the same time, and tells what was found, in the order of the
/// examinations. One that has not answered in time is a finding of its own. Main thread. Tested by
/// DoctorTest.
class DoctorRun final {
public:
    using Examinations = std::vector<std::unique_ptr<Examination>>;
    using Told = std::function<void(const QList<Chapter>&)>;

    DoctorRun(Examinations examinations, std::chrono::milliseconds longest);

    /// `told` is called once, from the event loop or at once.
    void begin(Told told);

private:
    void take(std::size_t index, Findings findings);
    void finish();

    Examinations m_examinations;
    std::vector<std::optional<Findings>> m_found;
    std::chrono::milliseconds m_longest;
    std::size_t m_awaited;
    Told m_told;
    QTimer m_bound;
};

} // namespace kestro
