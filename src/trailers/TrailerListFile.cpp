#include "trailers/TrailerListFile.h"

#include "platform/base/Log.h"
#include "platform/plist/PropertyList.h"
#include "trailers/TrailerRecordMap.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace kestro {

namespace {

const QString versionKey = QStringLiteral("Ver");
const QString version = QStringLiteral("010901");
const QString trailersKey = QStringLiteral("Trailers");
const QString sitesKey = QStringLiteral("Sites");

const QString extension = QStringLiteral(".lst");
constexpr int mostBackups = 1000;

void keep(TrailerListContents& contents, const QString& url, TrailerRecord record)
{
    if (record.url == url) record.url = url; // one text in memory for both
    contents.trailers.emplace(url, std::move(record));
}

// The form of older releases: records by their URL, without dates at first.
void readDictionary(const QVariantMap& stored, TrailerListContents& contents)
{
    for (auto entry = stored.begin(); entry != stored.end(); ++entry) {
        if (entry->typeId() != QMetaType::QVariantMap) continue;
        const QString url = storableText(entry.key());
        TrailerRecord record = trailerRecord(entry->toMap());
        if (!record.date && !record.other.contains(QStringLiteral("Date"))) record.date = defaultDateStr();
        if (record.url.isEmpty()) record.url = url;
        keep(contents, url, std::move(record));
    }
}

void readArray(const QVariantList& stored, TrailerListContents& contents)
{
    contents.trailers.reserve(stored.size());
    for (const QVariant& element : stored) {
        if (element.typeId() != QMetaType::QVariantMap) continue;
        TrailerRecord record = trailerRecord(element.toMap());
        const QString url = record.url;
        if (!url.isEmpty()) keep(contents, url, std::move(record));
    }
}

TrailerListContents contentsOf(const QVariantMap& stored)
{
    TrailerListContents contents;
    const QVariant trailers = stored.value(trailersKey);
    contents.hasTrailers = trailers.isValid();
    if (trailers.typeId() == QMetaType::QVariantMap)
        readDictionary(trailers.toMap(), contents);
    else if (trailers.typeId() == QMetaType::QVariantList)
        readArray(trailers.toList(), contents);
    for (const QVariant& site : stored.value(sitesKey).toList())
        if (site.typeId() == QMetaType::QString)
            contents.sites.insert(storableText(site.toString()).toUtf8());
    return contents;
}

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

// A copy that fails, because a file is there or because none can be written, leaves things as they are.
void TrailerListFile::installSeed() const
{
    if (!QFileInfo::exists(m_seed) || !QDir().mkpath(QFileInfo(m_path).path())) return;
    if (!QFile::copy(m_seed, m_path)) return;
    QFile::setPermissions(m_path, QFile::permissions(m_path) | QFileDevice::WriteOwner);
}

// A file that can be read is used as it is where there is a backup already. One that cannot would be lost at
// the next saving.
void TrailerListFile::retire(bool isReadable) const
{
    QString kept = m_backup;
    for (int number = 1; !isReadable && isThere(kept) && number < mostBackups; ++number)
        kept = m_backup.chopped(extension.size()) + QString::number(number) + extension;
    const bool isMoved = !isThere(kept) && QFile::rename(m_path, kept);
    if (isMoved && !isReadable)
        logLine(QStringLiteral("Cannot read %1: kept as %2.").arg(m_path, kept));
    else if (!isReadable)
        logLine(QStringLiteral("Cannot read %1.").arg(m_path));
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
