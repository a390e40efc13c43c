#include "trailers/ListChanges.h"

#include <utility>

namespace kestro {

namespace {

using Records = QHash<QString, TrailerRecord>;

std::optional<TrailerRecord> find(const Records& records, const QString& url)
{
    const auto found = records.constFind(url);
    return found == records.constEnd() ? std::nullopt : std::optional(*found);
}

bool isFoundAnew(const TrailerRecord& record, const TrailerRecord& before)
{
    return record.size != before.size || record.date != before.date || record.ac != before.ac;
}

void takeFound(TrailerRecord& record, const TrailerRecord& from)
{
    record.size = from.size;
    record.date = from.date;
    record.ac = from.ac;
}

// Keys of either: one that is gone was changed too.
void takeChanged(QVariantMap& values, const QVariantMap& from, const QVariantMap& before)
{
    for (auto value = from.begin(); value != from.end(); ++value)
        if (before.value(value.key()) != *value) values.insert(value.key(), *value);
    for (auto value = before.begin(); value != before.end(); ++value)
        if (!from.contains(value.key())) values.remove(value.key());
}

TrailerRecord merged(const TrailerRecord& ours, const TrailerRecord& theirs, const TrailerRecord& before)
{
    TrailerRecord record = theirs;
    const bool isTheirsNewer = isFoundAnew(theirs, before) && theirs.date > ours.date;
    if (isFoundAnew(ours, before) && !isTheirsNewer) takeFound(record, ours);
    takeChanged(record.other, ours.other, before.other);
    return record;
}

/// What becomes of a record that was changed here; nothing where it goes.
std::optional<TrailerRecord> settled(const std::optional<TrailerRecord>& ours,
                                     const std::optional<TrailerRecord>& theirs,
                                     const std::optional<TrailerRecord>& before)
{
    if (theirs == before || !theirs) return ours;
    if (!ours) return theirs;
    return merged(*ours, *theirs, before.value_or(TrailerRecord()));
}

} // namespace

// The one before the first change counts.
void ListChanges::noteRecord(const QString& url, const std::optional<TrailerRecord>& before)
{
    if (!m_before.contains(url)) m_before.insert(url, before);
}

void ListChanges::noteClearing(const TrailerListContents& before)
{
    for (auto trailer = before.trailers.begin(); trailer != before.trailers.end(); ++trailer)
        noteRecord(trailer.key(), *trailer);
    for (const QByteArray& site : before.sites)
        noteSite(site, false);
}

TrailerListContents ListChanges::merged(const TrailerListContents& ours,
                                        const TrailerListContents& theirs) const
{
    TrailerListContents both;
    both.hasTrailers = ours.hasTrailers || theirs.hasTrailers;
    for (auto trailer = theirs.trailers.begin(); trailer != theirs.trailers.end(); ++trailer)
        if (!m_before.contains(trailer.key())) both.keep(trailer.key(), *trailer);
    for (auto before = m_before.begin(); before != m_before.end(); ++before) {
        auto record =
            settled(find(ours.trailers, before.key()), find(theirs.trailers, before.key()), *before);
        if (record) both.keep(before.key(), std::move(*record));
    }
    for (const QByteArray& site : theirs.sites)
        if (m_sites.value(site, true)) both.keepSite(site);
    for (auto site = m_sites.begin(); site != m_sites.end(); ++site)
        if (*site) both.keepSite(site.key());
    return both;
}

void ListChanges::rebase(const TrailerListContents& theirs)
{
    for (auto before = m_before.begin(); before != m_before.end(); ++before)
        *before = find(theirs.trailers, before.key());
}

void ListChanges::prepend(ListChanges earlier)
{
    for (auto before = earlier.m_before.begin(); before != earlier.m_before.end(); ++before)
        m_before.insert(before.key(), *before);
    earlier.m_sites.insert(m_sites);
    m_sites = std::move(earlier.m_sites);
}

} // namespace kestro
