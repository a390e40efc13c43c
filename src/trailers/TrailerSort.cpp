#include "trailers/TrailerSort.h"

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

const QString urlKey = QStringLiteral("URL");
const QString dateKey = QStringLiteral("Date");

int signOf(int comparison)
{
    return (comparison > 0) - (comparison < 0);
}

int compareURLs(const TrailerEntry& a, const TrailerEntry& b)
{
    return signOf(a.text.compare(b.text));
}

int compareDates(const TrailerEntry& a, const TrailerEntry& b)
{
    return signOf(a.date.compare(b.date));
}

} // namespace

int sortURLList(const TrailerEntry& a, const TrailerEntry& b, const TrailerOrder& order)
{
    int result = 0;
    if (order.sortKey == urlKey) {
        result = compareURLs(a, b);
        if (result == 0) result = compareDates(a, b);
    } else if (order.sortKey.isNull() || order.sortKey == dateKey) {
        result = compareDates(a, b);
        if (result == 0) result = compareURLs(a, b);
    }
    return order.ascending ? result : -result;
}

QStringList sortedURLs(const QHash<QString, TrailerRecord>& trailers, const TrailerOrder& order)
{
    TrailerEntries entries;
    entries.reserve(static_cast<std::size_t>(trailers.size()));
    for (auto trailer = trailers.begin(); trailer != trailers.end(); ++trailer)
        entries.emplace_back(trailer.key(), trailer.value());
    std::sort(entries.begin(), entries.end(),
              [&](const TrailerEntry& a, const TrailerEntry& b) { return sortURLList(a, b, order) < 0; });
    QStringList urls;
    urls.reserve(trailers.size());
    for (const TrailerEntry& entry : entries)
        urls.append(*entry.url);
    return urls;
}

OrderedEntries::OrderedEntries(TrailerEntries entries, const TrailerOrder& order)
    : m_heap(std::move(entries))
    , m_order(order)
{
    std::ranges::make_heap(m_heap, [this](const auto& a, const auto& b) { return isLater(a, b); });
}

TrailerEntry OrderedEntries::takeFirst()
{
    std::ranges::pop_heap(m_heap, [this](const auto& a, const auto& b) { return isLater(a, b); });
    const TrailerEntry first = m_heap.back();
    m_heap.pop_back();
    return first;
}

bool OrderedEntries::isLater(const TrailerEntry& a, const TrailerEntry& b) const
{
    return sortURLList(a, b, m_order) > 0;
}

} // namespace kestro
