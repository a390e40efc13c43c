#include "trailers/TrailerListFile.h"

#include "platform/base/Bounds.h"
#include "platform/base/Log.h"
#include "platform/base/ShownURL.h"
#include "platform/base/URLKind.h"
#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListFile.h"
#include "trailers/TrailerRecordMap.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <sys/stat.h>
#include <utility>

namespace kestro {

namespace {

const QString versionKey = QStringLiteral("Ver");
const QString version = QStringLiteral("010901");
const QString trailersKey = QStringLiteral("Trailers");
const QString sitesKey = QStringLiteral("Sites");

/// Takes what a file holds, and says what it had to leave out.
class ListReader final {
public:
    // The form of older releases: records by their URL, without dates at first.
    void readDictionary(const QVariantMap& stored)
    {
        for (auto entry = stored.begin(); entry != stored.end(); ++entry) {
            if (entry->typeId() != QMetaType::QVariantMap) continue;
            const QString url = storableText(entry.key());
            TrailerRecord record = trailerRecord(entry->toMap());
            if (!record.date && !record.other.contains(QStringLiteral("Date")))
                record.date = defaultDateStr();
            if (record.url.isEmpty()) record.url = url;
            keep(url, std::move(record));
        }
    }

    void readArray(const QVariantList& stored)
    {
        m_contents.trailers.reserve(std::min(stored.size(), Bounds::listedTrailers));
        for (const QVariant& element : stored) {
            if (element.typeId() != QMetaType::QVariantMap) continue;
            TrailerRecord record = trailerRecord(element.toMap());
            const QString url = record.url;
            if (!url.isEmpty()) keep(url, std::move(record));
        }
    }

    void readSites(const QVariantList& stored)
    {
        for (const QVariant& site : stored)
            if (site.typeId() == QMetaType::QString)
                m_contents.keepSite(storableText(site.toString()).toUtf8());
    }

    [[nodiscard]] TrailerListContents& contents() { return m_contents; }
    /// Records that name something else than a movie on a web site, and the first of them.
    [[nodiscard]] int strangers() const { return m_strangers; }
    [[nodiscard]] const QString& firstStranger() const { return m_firstStranger; }

private:
    void keep(const QString& url, TrailerRecord record)
    {
        const bool isOneText = record.url == url;
        if (isOneText) record.url = url; // one text in memory for both
        if (!isMovieOnWeb(url) || (!isOneText && !isMovieOnWeb(record.url))) {
            if (m_strangers++ == 0) m_firstStranger = url;
            return;
        }
        m_contents.keep(url, std::move(record));
    }

    // Most trailers are on the site of the one before, and a list has very many.
    bool isMovieOnWeb(const QString& url)
    {
        const auto isPlain = [](QChar c) { return c.unicode() > ' ' && c.unicode() < 0x7f && c != u'%'; };
        if (!m_site.isEmpty() && url.startsWith(m_site) && std::all_of(url.begin(), url.end(), isPlain) &&
            !url.contains(u".swf", Qt::CaseInsensitive))
            return true;
        const QUrl parsed(url);
        if (!isWebURL(parsed) || namesWebContent(parsed)) return false;
        const qsizetype slash = url.indexOf(u'/', url.indexOf(QStringLiteral("://")) + 3);
        m_site = slash < 0 ? QString() : url.first(slash + 1);
        return true;
    }

    TrailerListContents m_contents;
    QString m_site; ///< of the trailer before: scheme, host and the slash after it
    QString m_firstStranger;
    int m_strangers = 0;
};

// A link that leads nowhere is there too.
bool isThere(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() || file.isSymLink();
}

} // namespace

QString defaultDateStr()
{
    return QStringLiteral("2006/09/01");
}

TrailerListFile::TrailerListFile(const QString& homeFolder, QString seed)
    : m_path(homeFolder + QStringLiteral("/Library/Preferences/Kestro_Scanned_Trailers.lst"))
    , m_backup(homeFolder + QStringLiteral("/Library/Preferences/Kestro_Scanned_Trailers~.lst"))
    , m_seed(std::move(seed))
{
}

bool TrailerListContents::keep(const QString& url, TrailerRecord record)
{
    const auto old = trailers.constFind(url);
    if (!room.takeTrailer(record, old == trailers.constEnd() ? nullptr : &*old)) return false;
    trailers.emplace(url, std::move(record));
    return true;
}

bool TrailerListContents::keepSite(QByteArrayView site)
{
    const auto text = QByteArray::fromRawData(site.data(), site.size());
    if (sites.contains(text)) return true;
    if (!room.takePage(site)) return false;
    sites.insert(site.toByteArray());
    return true;
}

bool TrailerListContents::forgetSite(QByteArrayView site)
{
    if (!sites.remove(QByteArray::fromRawData(site.data(), site.size()))) return false;
    room.givePage(site);
    return true;
}

TrailerListContents TrailerListFile::load() const
{
    if (!isThere(m_path)) installSeed();
    if (!QFileInfo::exists(m_path)) return {};
    auto stored = readPropertyListDictionary(m_path);
    if (!stored || !stored->contains(versionKey)) {
        retire(stored.has_value());
        installSeed();
        stored = readPropertyListDictionary(m_path);
    }
    return contentsOf(stored.value_or(QVariantMap()));
}

std::optional<TrailerListContents> TrailerListFile::read() const
{
    const auto stored = readPropertyListDictionary(m_path);
    return stored ? std::optional(contentsOf(*stored)) : std::nullopt;
}

std::optional<FileMark> TrailerListFile::mark() const
{
    struct stat found = {};
    if (stat(QFile::encodeName(m_path).constData(), &found) != 0) return {};
    return FileMark{found.st_dev, found.st_ino, found.st_size, found.st_mtim.tv_sec, found.st_mtim.tv_nsec};
}

TrailerListContents TrailerListFile::contentsOf(const QVariantMap& stored) const
{
    ListReader reader;
    const QVariant trailers = stored.value(trailersKey);
    reader.contents().hasTrailers = trailers.isValid();
    if (trailers.typeId() == QMetaType::QVariantMap)
        reader.readDictionary(trailers.toMap());
    else if (trailers.typeId() == QMetaType::QVariantList)
        reader.readArray(trailers.toList());
    reader.readSites(stored.value(sitesKey).toList());
    if (reader.strangers() > 0)
        logLine(QStringLiteral("%1 entries of %2 are no movies on a web site and are left out; the first: %3")
                    .arg(reader.strangers())
                    .arg(m_path, shownURL(QUrl(reader.firstStranger()))));
    if (reader.contents().room.isFull())
        logLine(QStringLiteral("%1 holds more than there is room for: the rest is left out.").arg(m_path));
    return std::move(reader.contents());
}

// One that cannot be written leaves things as they are.
void TrailerListFile::installSeed() const
{
    const auto seed = readPropertyListFile(m_seed);
    if (seed && !isThere(m_path)) static_cast<void>(replacePropertyListFile(m_path, *seed));
}

// A file that can be read is used as it is where there is a backup already. One that cannot would be lost at
// the next saving.
void TrailerListFile::retire(bool isReadable) const
{
    if (!isReadable) return setAside();
    if (!isThere(m_backup)) QFile::rename(m_path, m_backup);
}

void TrailerListFile::setAside() const
{
    const auto kept = setAsidePropertyListFile(m_path);
    logLine(kept ? QStringLiteral("Cannot read %1: kept as %2.").arg(m_path, *kept)
                 : QStringLiteral("Cannot read %1.").arg(m_path));
}

bool TrailerListFile::save(const TrailerListContents& contents) const
{
    QVariantList trailers;
    trailers.reserve(contents.trailers.size());
    for (const TrailerRecord& record : contents.trailers)
        trailers.append(dictionaryOf(record));
    QVariantList sites;
    sites.reserve(contents.sites.size());
    for (const QByteArray& site : contents.sites)
        sites.append(QString::fromUtf8(site));
    return writePropertyList(m_path,
                             QVariantMap{{versionKey, version}, {trailersKey, trailers}, {sitesKey, sites}});
}

} // namespace kestro
