#pragma once

#include "config_ui/EntryFacts.h"
#include "config_ui/ProbeWorker.h"

#include <QCache>
#include <QList>
#include <QObject>
#include <QUrl>

namespace kestro {

/// Learns in the background how long the movies of entries are and what they look like, and keeps it: files
/// on one thread, what lies on servers on another, so that a slow server holds up no file. Owned by the
/// sheet. Main thread, which never waits for it but at the end.
class EntryReader final : public QObject {
    Q_OBJECT

public:
    /// `read` looks into one movie, on a thread of the reader's.
    explicit EntryReader(const ProbeWorker::Read& read);
    ~EntryReader() override;

    /// Reads what is not known yet of these, in this order, and nothing else any more.
    void want(const QList<QUrl>& urls);
    /// Knows nothing of the movie at `url` any more; what is read of it now still counts.
    void forget(const QUrl& url);
    /// The same where it cannot be opened; of all that cannot be.
    void forgetFault(const QUrl& url);
    void forgetFaults();
    /// What is known of the movie at `url`; null as long as nothing is. Good until the events go on.
    [[nodiscard]] const EntryFacts* facts(const QUrl& url) const { return m_known.object(url); }

Q_SIGNALS:
    /// More, or nothing any more, is known of the movie at `url`.
    void learned(const QUrl& url);

private:
    void keep(const QUrl& url, const EntryFacts& facts);
    [[nodiscard]] ProbeWorker::Deliver deliverHere();

    QCache<QUrl, EntryFacts> m_known;
    ProbeWorker m_files;
    ProbeWorker m_servers;
};

} // namespace kestro
