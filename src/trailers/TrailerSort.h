#pragma once

#include "trailers/TrailerRecord.h"

#include <QHash>
#include <QStringList>

#include <vector>

namespace kestro {

// The orders of the list. Dates compare as text, which their fixed form allows; a record without one comes
// before all others. Any thread. Tested by TrailerListTest.

/// The key and the direction of an order.
struct TrailerOrder {
    QString sortKey; ///< "URL" or "Date"; null means "Date"
    bool ascending = false;
};

/// One URL of the list and the date of its record, for as long as the list stays as it is. The texts are
/// here and not looked up there, because comparing them is most of what sorting costs.
struct TrailerEntry {
    TrailerEntry(const QString& key, const TrailerRecord& record)
        : url(&key)
        , text(key)
        , date(record.date ? QStringView(*record.date) : QStringView())
    {
    }

    const QString* url;
    QStringView text; ///< of the URL
    QStringView date; ///< empty where there is none
};

using TrailerEntries = std::vector<TrailerEntry>;

/// -1, 0 or 1: by the order's key, then by the other one; any other key than the two gives 0.
[[nodiscard]] int sortURLList(const TrailerEntry& a, const TrailerEntry& b, const TrailerOrder& order);

/// The URLs of `trailers` in that order.
[[nodiscard]] QStringList sortedURLs(const QHash<QString, TrailerRecord>& trailers,
                                     const TrailerOrder& order);

/// Gives out entries one by one, in order: what is taken costs, not what is there. Sorting a whole list to
/// use its first few would take most of a second for a large one.
class OrderedEntries final {
public:
    OrderedEntries(TrailerEntries entries, const TrailerOrder& order);

    [[nodiscard]] bool isEmpty() const { return m_heap.empty(); }
    /// The next entry; only where not isEmpty().
    [[nodiscard]] TrailerEntry takeFirst();

private:
    [[nodiscard]] bool isLater(const TrailerEntry& a, const TrailerEntry& b) const;

    TrailerEntries m_heap;
    TrailerOrder m_order;
};

} // namespace kestro
