#include "trailers/TrailerList.h"

#include "platform/base/Clock.h"
#include "platform/base/Log.h"
#include "platform/base/StoredValue.h"
#include "settings/MovieURL.h"
#include "trailers/ListLock.h"
#include "trailers/TrailerRecordMap.h"

#include <set>
#include <utility>

namespace kestro {

namespace {

const QString selKey = QStringLiteral("Sel");

int widthOf(const TrailerRecord& record)
{
    if (!record.size) return 0;
    const auto end = record.size->indexOf(QStringLiteral(" x "));
    return intValue(end < 0 ? *record.size : record.size->left(end));
}

QStringView withoutSlashesAtEnd(QStringView path)
{
    while (path.endsWith(u'/'))
        path.chop(1);
    return path;
}

// The folder of a URL string, taken as a path.
QString folderOf(const QString& url)
{
    const QStringView path = withoutSlashesAtEnd(url);
    return path.first(path.lastIndexOf(u'/') + 1).toString();
}

bool isExcluded(const QString& text, const QUrl& url, const QSet<QString>& excluded)
{
    return excluded.contains(text) || excluded.contains(absoluteString(url));
}

QByteArray borrowed(std::string_view text)
{
    return QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

QString curDateStr(const Clock& clock)
{
    const QDate today = clock.today();
    return QString::asprintf("%04d/%02d/%02d", today.year(), today.month(), today.day());
}

TrailerList::TrailerList(const QString& homeFolder, QString seed)
    : m_file(homeFolder, std::move(seed))
{
}

void TrailerList::load()
{
    const std::lock_guard turn(m_fileTurn);
    const auto mark = m_file.mark();
    auto contents = m_file.load();
    const std::lock_guard guard(m_mutex);
    m_contents = std::move(contents);
    m_mark = mark;
    m_changes = {};
    m_sorted.reset();
    m_isChanged = false;
}

bool TrailerList::refresh()
{
    const std::unique_lock turn(m_fileTurn, std::try_to_lock);
    return turn && read() == Reading::Taken;
}

TrailerList::Reading TrailerList::read()
{
    const auto mark = m_file.mark();
    {
        const std::lock_guard guard(m_mutex);
        if (!mark || mark == m_mark) return Reading::Same;
    }
    const auto theirs = m_file.read();
    if (!theirs) return Reading::Unreadable;
    const std::lock_guard guard(m_mutex);
    m_contents = m_changes.merged(m_contents, *theirs);
    m_changes.rebase(*theirs);
    m_mark = mark;
    m_sorted.reset();
    return Reading::Taken;
}

// Without the lock, too: whoever keeps it for so long shall not keep the list from being saved.
bool TrailerList::saveList()
{
    const std::lock_guard turn(m_fileTurn);
    const auto lock = ListLock::takeToSave(m_file.path());
    if (!lock) logLine(lock.failure().message);
    if (read() == Reading::Unreadable) m_file.setAside();
    ListChanges changes;
    const bool isSaved = m_file.save(contentsToSave(changes));
    if (!isSaved) logLine(QStringLiteral("Failed to save list."));
    const std::lock_guard guard(m_mutex);
    if (isSaved) {
        m_mark = m_file.mark();
    } else {
        m_changes.prepend(std::move(changes));
        m_isChanged = true;
    }
    return isSaved;
}

// What changes while it is being saved counts for the next time.
TrailerListContents TrailerList::contentsToSave(ListChanges& changes)
{
    const std::lock_guard guard(m_mutex);
    changes = std::exchange(m_changes, {});
    m_isChanged = false;
    return m_contents;
}

bool TrailerList::isChanged() const
{
    const std::lock_guard guard(m_mutex);
    return m_isChanged;
}

void TrailerList::clear()
{
    const std::lock_guard guard(m_mutex);
    m_changes.noteClearing(m_contents);
    m_contents = {};
    m_sorted.reset();
    m_isChanged = true;
}

QHash<QString, TrailerRecord> TrailerList::scanedURLs() const
{
    const std::lock_guard guard(m_mutex);
    return m_contents.trailers;
}

std::optional<TrailerRecord> TrailerList::record(const QString& url) const
{
    const std::lock_guard guard(m_mutex);
    const auto found = m_contents.trailers.constFind(url);
    return found == m_contents.trailers.constEnd() ? std::nullopt : std::optional(*found);
}

qsizetype TrailerList::count() const
{
    const std::lock_guard guard(m_mutex);
    return m_contents.trailers.size();
}

void TrailerList::store(std::vector<TrailerRecord> records)
{
    const std::lock_guard guard(m_mutex);
    for (TrailerRecord& record : records) {
        record.url = storableText(record.url);
        if (record.size) record.size = storableText(*record.size);
        const QString url = record.url;
        keep(url, std::move(record));
    }
    m_contents.hasTrailers = true;
    m_sorted.reset();
}

void TrailerList::setSel(const QString& url, const QVariant& value)
{
    const std::lock_guard guard(m_mutex);
    const auto found = m_contents.trailers.find(url);
    if (found == m_contents.trailers.end()) return;
    TrailerRecord record = *found;
    record.other.insert(selKey, value);
    keep(url, std::move(record));
}

void TrailerList::keep(const QString& url, TrailerRecord record)
{
    const auto found = m_contents.trailers.constFind(url);
    const auto before = found == m_contents.trailers.constEnd() ? std::nullopt : std::optional(*found);
    if (!m_contents.keep(url, std::move(record))) return;
    m_changes.noteRecord(url, before);
    m_isChanged = true;
}

std::optional<QStringList> TrailerList::scanedURLList() const
{
    const std::lock_guard guard(m_mutex);
    if (!m_contents.hasTrailers) return {};
    if (!m_sorted) m_sorted = sortedURLs(m_contents.trailers, m_order);
    return m_sorted;
}

QSet<QByteArray> TrailerList::passedList() const
{
    const std::lock_guard guard(m_mutex);
    return m_contents.sites;
}

bool TrailerList::isPassed(std::string_view page) const
{
    const std::lock_guard guard(m_mutex);
    return m_contents.sites.contains(borrowed(page));
}

bool TrailerList::addPassed(std::string_view page)
{
    const std::lock_guard guard(m_mutex);
    if (m_contents.sites.contains(borrowed(page))) return false;
    if (m_contents.keepSite(borrowed(page))) noteSite(*m_contents.sites.constFind(borrowed(page)), true);
    return true;
}

void TrailerList::forgetPassed(std::string_view page)
{
    const std::lock_guard guard(m_mutex);
    const QByteArray site(page.data(), static_cast<qsizetype>(page.size()));
    if (m_contents.forgetSite(site)) noteSite(site, false);
}

void TrailerList::noteSite(const QByteArray& site, bool isVisited)
{
    m_changes.noteSite(site, isVisited);
    m_isChanged = true;
}

bool TrailerList::isFull() const
{
    const std::lock_guard guard(m_mutex);
    return m_contents.room.isFull();
}

TrailerOrder TrailerList::order() const
{
    const std::lock_guard guard(m_mutex);
    return m_order;
}

void TrailerList::setSortKey(const QString& key)
{
    const std::lock_guard guard(m_mutex);
    m_order.sortKey = key;
    m_sorted.reset();
}

void TrailerList::setAscending(bool ascending)
{
    const std::lock_guard guard(m_mutex);
    m_order.ascending = ascending;
    m_sorted.reset();
}

QStringList TrailerList::sortedURLList(const QHash<QString, TrailerRecord>& trailers) const
{
    return sortedURLs(trailers, order());
}

QStringList TrailerList::sortedURLListByDate(const QHash<QString, TrailerRecord>& trailers) const
{
    return sortedURLs(trailers, {QStringLiteral("Date"), order().ascending});
}

QList<QUrl> TrailerList::lastTrailers(int count, int width, const QSet<QString>& excluded) const
{
    const std::lock_guard guard(m_mutex);
    OrderedEntries entries(entriesOfWidth(width), {QStringLiteral("Date"), m_order.ascending});
    QSet<QString> folders;
    QList<QUrl> picked;
    while (!entries.isEmpty()) {
        const QString& text = *entries.takeFirst().url;
        const QString folder = folderOf(text);
        if (folders.contains(folder)) continue;
        const QUrl url(text);
        if (!url.isValid() || isExcluded(text, url, excluded)) continue;
        folders.insert(folder);
        picked.prepend(url);
        if (picked.size() == count) break;
    }
    return picked;
}

QStringList TrailerList::frameWidths() const
{
    const std::lock_guard guard(m_mutex);
    std::set<int> widths;
    for (const TrailerRecord& trailer : m_contents.trailers)
        if (const int width = widthOf(trailer); width > 0) widths.insert(width);
    QStringList texts;
    for (const int width : widths)
        texts.append(QString::number(width));
    return texts;
}

TrailerEntries TrailerList::entriesOfWidth(int width) const
{
    TrailerEntries entries;
    const auto& trailers = m_contents.trailers;
    for (auto trailer = trailers.begin(); trailer != trailers.end(); ++trailer)
        if (widthOf(*trailer) == width) entries.emplace_back(trailer.key(), trailer.value());
    return entries;
}

} // namespace kestro
