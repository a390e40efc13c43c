#include "config_ui/EntryReader.h"

#include "platform/base/PostTo.h"
#include "settings/FolderEntry.h"

#include <algorithm>

namespace kestro {

namespace {

constexpr qsizetype mostKibibytes = 48 * 1024; ///< of pictures that are kept

} // namespace

EntryReader::EntryReader(const ProbeWorker::Read& read)
    : m_known(mostKibibytes)
    , m_files(read, deliverHere())
    , m_servers(read, deliverHere())
{
}

EntryReader::~EntryReader() = default;

// Events that are on their way when the reader goes away are dropped with it.
ProbeWorker::Deliver EntryReader::deliverHere()
{
    return [this](const QUrl& url, const EntryFacts& facts) {
        postTo(*this, [this, url, facts] { keep(url, facts); });
    };
}

void EntryReader::want(const QList<QUrl>& urls)
{
    QList<QUrl> files;
    QList<QUrl> onServers;
    for (const QUrl& url : urls) {
        QList<QUrl>& lane = url.isLocalFile() || isFolderEntry(url) ? files : onServers;
        if (!m_known.contains(url) && !lane.contains(url)) lane.append(url);
    }
    m_files.want(files);
    m_servers.want(onServers);
}

void EntryReader::forget(const QUrl& url)
{
    if (m_known.remove(url)) Q_EMIT learned(url);
}

void EntryReader::forgetFault(const QUrl& url)
{
    const EntryFacts* const known = facts(url);
    if (known != nullptr && known->fault) forget(url);
}

void EntryReader::forgetFaults()
{
    for (const QUrl& url : m_known.keys())
        forgetFault(url);
}

void EntryReader::keep(const QUrl& url, const EntryFacts& facts)
{
    const qsizetype kibibytes = 1 + facts.picture.sizeInBytes() / 1024;
    m_known.insert(url, new EntryFacts(facts), std::min(kibibytes, mostKibibytes));
    Q_EMIT learned(url);
}

} // namespace kestro
