#pragma once

#include "trailers/ListChanges.h"
#include "trailers/TrailerListFile.h"
#include "trailers/TrailerSort.h"

#include <QList>
#include <QSet>
#include <QStringList>
#include <QUrl>

#include <mutex>
#include <optional>
#include <string_view>
#include <vector>

namespace kestro {

class Clock;

/// The trailers that were found on the site, and the pages visited there. Owned by the controller. Any
/// thread: a crawl writes it while the main thread reads; what is answered is a copy.
class TrailerList final {
public:
    /// The list of the user of `homeFolder`, empty until load(); `seed` is a list to start with.
    TrailerList(const QString& homeFolder, QString seed);

    /// Reads the list file, in place of what is here.
    void load();
    /// Writes the list file, whole or not at all; logs a failure and answers whether it was written. What
    /// another process has saved there meanwhile stays, with the changes that were made here.
    bool saveList();
    /// Takes on what another process has saved, with the changes that were made here; answers whether there
    /// was anything. Nothing while another thread saves, which does the same.
    bool refresh();
    /// Whether there is anything that was not read from the file nor written to it.
    [[nodiscard]] bool isChanged() const;
    /// Forgets every record and every page. The file stays until the next saving.
    void clear();

    // Records, by URL string.
    [[nodiscard]] QHash<QString, TrailerRecord> scanedURLs() const;
    [[nodiscard]] std::optional<TrailerRecord> record(const QString& url) const;
    [[nodiscard]] qsizetype count() const;
    /// Keeps each record under its URL, in the place of one that is there. What there is no room for is left
    /// out.
    void store(std::vector<TrailerRecord> records);
    /// Keeps `value`, a property-list value, as the record's "Sel"; nothing where there is no such record.
    void setSel(const QString& url, const QVariant& value);
    /// The URLs in the present order; nothing before anything was loaded or scanned, and after clear(). It is
    /// sorted when it is asked for, not at every page of a crawl.
    [[nodiscard]] std::optional<QStringList> scanedURLList() const;

    // Pages, absolute strings.
    [[nodiscard]] QSet<QByteArray> passedList() const;
    [[nodiscard]] bool isPassed(std::string_view page) const;
    /// Keeps a page, unless there is no room for more; answers whether it was not there before.
    bool addPassed(std::string_view page);
    /// Takes a page away again.
    void forgetPassed(std::string_view page);

    /// Whether a record or a page had to be left out because there are too many.
    [[nodiscard]] bool isFull() const;

    // The order, newest or highest first until it is set.
    [[nodiscard]] TrailerOrder order() const;
    /// "URL" or "Date"; null for "Date".
    void setSortKey(const QString& key);
    void setAscending(bool ascending);
    /// The keys of `trailers` in the present order.
    [[nodiscard]] QStringList sortedURLList(const QHash<QString, TrailerRecord>& trailers) const;
    /// … by date, in the present direction.
    [[nodiscard]] QStringList sortedURLListByDate(const QHash<QString, TrailerRecord>& trailers) const;

    /// The first `count` trailers of frame width `width` by date, in the present direction, one a folder,
    /// leaving out the URL strings in `excluded`; the last one picked stands first. All there are where
    /// `count` is not above 0.
    [[nodiscard]] QList<QUrl> lastTrailers(int count, int width, const QSet<QString>& excluded) const;

    /// The frame widths that records have, each once, the smallest first.
    [[nodiscard]] QStringList frameWidths() const;

    [[nodiscard]] const TrailerListFile& file() const { return m_file; }

private:
    enum class Reading { Same, Taken, Unreadable };

    [[nodiscard]] Reading read();
    [[nodiscard]] TrailerListContents contentsToSave(ListChanges& changes);
    void keep(const QString& url, TrailerRecord record);
    void noteSite(const QByteArray& site, bool isVisited);
    [[nodiscard]] TrailerEntries entriesOfWidth(int width) const;

    const TrailerListFile m_file;
    std::mutex m_fileTurn;      ///< held while the file is read or written; taken before the next
    mutable std::mutex m_mutex; ///< guards what follows
    TrailerListContents m_contents;
    std::optional<FileMark> m_mark; ///< of the file as it was read or written last
    ListChanges m_changes;          ///< since then
    TrailerOrder m_order;
    mutable std::optional<QStringList> m_sorted; ///< nothing where it has to be sorted anew
    bool m_isChanged = false;
};

/// Today, as the date of a record.
[[nodiscard]] QString curDateStr(const Clock& clock);

} // namespace kestro
