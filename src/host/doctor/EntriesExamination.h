#pragma once

#include "host/doctor/Examination.h"

#include <QList>
#include <QUrl>

#include <chrono>
#include <functional>
#include <map>
#include <memory>

namespace kestro {

/// Opens each entry of the playlist, a few at the same time. Main thread. Tested by DoctorTest.
class EntriesExamination final : public Examination {
public:
    /// Opens an entry, on a thread of its own, which may never come back. The error says why it cannot.
    using Opener = std::function<Findings(const QUrl&)>;

    /// Each entry may take `longest`. Of more than 200 the rest is counted.
    EntriesExamination(QList<QUrl> entries, std::chrono::milliseconds longest, Opener opener);
    void begin(Done done) override;

private:
    void openNext();
    void opened(qsizetype index, const std::optional<Findings>& found);
    void finish();

    QList<QUrl> m_entries;
    qsizetype m_left = 0; ///< entries beyond those that are opened
    std::chrono::milliseconds m_longest;
    Opener m_opener;
    Done m_done;
    std::map<qsizetype, std::unique_ptr<DetachedTask>> m_tasks; ///< by the entry's number
    std::map<qsizetype, Findings> m_found;
    qsizetype m_next = 0;
};

/// What opens a movie or web content for that: see Opener.
[[nodiscard]] Findings openEntry(const QUrl& entry);

} // namespace kestro
