#include "settings/Playlist.h"

#include "platform/base/Bounds.h"
#include "platform/base/Log.h"
#include "platform/base/Paths.h"
#include "platform/base/ShownURL.h"
#include "platform/base/URLKind.h"
#include "settings/EntryMarks.h"
#include "settings/FolderEntry.h"
#include "settings/LatestTrailers.h"
#include "settings/ListMovies.h"
#include "settings/MovieURL.h"
#include "settings/Settings.h"
#include "settings/SettingsStore.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace kestro {

const QString idvdFishMoviePath = QStringLiteral(
    "/Applications/iDVD.app/Contents/Resources/15_Fish_Two.theme/Contents/Resources/BackgroundMovie.PAL.mov");
const QString defalutMovieURL = QStringLiteral(
    "/System/Library/PrivateFrameworks/SetupAssistant.framework/Versions/A/Resources/intro.mov");
const QString defalutMovieURL_104 =
    QStringLiteral("/System/Library/CoreServices/Setup Assistant.app/Contents/Resources/"
                   "TransitionSection.bundle/Contents/Resources/intro.mov");

namespace {

const QString folderPrefix = QStringLiteral("folder:");
const QString defaultAutomaticEntry = QStringLiteral("auto://LatestTrailers/6/480");

bool isInstalled(const QString& path)
{
    return QFileInfo::exists(platformPath(path));
}

QUrl installedFileURL(const QString& path)
{
    return QUrl::fromLocalFile(platformPath(path));
}

QUrl defaultMovie()
{
    if (isInstalled(idvdFishMoviePath)) return installedFileURL(idvdFishMoviePath);
    return installedFileURL(isInstalled(defalutMovieURL) ? defalutMovieURL : defalutMovieURL_104);
}

// What a site names is played unasked: it is a movie on the web, and neither a page nor anything of this
// machine.
QList<QUrl> moviesOnWeb(QList<QUrl> trailers)
{
    const auto isStranger = [](const QUrl& url) { return !isWebURL(url) || namesWebContent(url); };
    const auto first = std::find_if(trailers.cbegin(), trailers.cend(), isStranger);
    if (first == trailers.cend()) return trailers;
    const QString example = shownURL(*first);
    const auto count = trailers.removeIf(isStranger);
    logLine(QStringLiteral("%1 trailers are no movies on a web site and are left out; the first: %2")
                .arg(count)
                .arg(example));
    return trailers;
}

// The older releases' own default, which a machine with a better movie moves away from.
bool isOldDefault(const QVariantList& stored)
{
    return stored.size() == 1 && stored.front().typeId() == QMetaType::QString &&
           stored.front().toString() == defalutMovieURL;
}

QString textOf(const QVariant& stored)
{
    return stored.typeId() == QMetaType::QString ? stored.toString() : QString();
}

} // namespace

/// Where a movie is, the text that says so in the file, null where none does, and what was said of it.
struct Playlist::Entry {
    QUrl url;
    QString storedText;
    EntryMark mark = {};
};

Playlist::Playlist(Settings& settings, LatestTrailers& trailers, bool isPreview, MovieFolders* folders,
                   EntryMarks* marks)
    : m_settings(settings)
    , m_trailers(trailers)
    , m_isPreview(isPreview)
    , m_folders(folders)
    , m_entryMarks(marks)
{
    followFolders();
}

// All of a large folder is wanted at once where a run is to begin with a movie that may be anywhere in it.
void Playlist::followFolders()
{
    QList<QUrl> entries;
    const auto stored = m_settings.value(option::fileList);
    if (stored && m_settings.plistVersion() >= settingsVersion)
        for (const QVariant& entry : *stored)
            if (const QString text = textOf(entry); text.startsWith(folderPrefix) || isCalledAsList(text))
                entries.append(QUrl(text));
    m_folders.follow(entries, m_settings.canContinue());
}

QList<QUrl> Playlist::movieFileList(bool expand)
{
    return urlsOf(entries(expand));
}

QList<QUrl> Playlist::urlsOf(QList<Entry> entries)
{
    QList<QUrl> urls;
    urls.reserve(entries.size());
    for (Entry& entry : entries)
        urls.append(std::move(entry.url));
    return urls;
}

EntryMark Playlist::markOf(const QUrl& entry) const
{
    if (isFolderEntry(entry)) return markOfFolder(entry);
    return m_entryMarks != nullptr ? m_entryMarks->of(entry) : EntryMark();
}

QStringList Playlist::movieFileStrings(bool expand)
{
    QStringList texts;
    for (const Entry& entry : entries(expand)) {
        const QString text = absoluteString(entry.url);
        const bool differsInCaseOnly = entry.storedText.compare(text, Qt::CaseInsensitive) == 0;
        texts.append(differsInCaseOnly ? entry.storedText : text);
    }
    return texts;
}

QList<Playlist::Entry> Playlist::entries(bool expand)
{
    const auto stored = m_settings.value(option::fileList);
    if (!stored) return storedURLs({absoluteString(defaultMovie()), defaultAutomaticEntry}, expand);
    return m_settings.plistVersion() < settingsVersion ? storedPaths(*stored) : storedURLs(*stored, expand);
}

bool Playlist::isDefault() const
{
    const auto stored = m_settings.value(option::fileList);
    return !stored || (m_settings.plistVersion() < settingsVersion && stored->isEmpty());
}

// An older release's empty list never expands: its user has not asked for trailers yet.
QList<Playlist::Entry> Playlist::storedPaths(const QVariantList& stored) const
{
    if (stored.isEmpty()) return {{defaultMovie(), {}}, {QUrl(defaultAutomaticEntry), {}}};
    if (isOldDefault(stored) && isInstalled(idvdFishMoviePath))
        return {{installedFileURL(idvdFishMoviePath), {}}};
    QList<Entry> found;
    for (const QVariant& entry : stored) {
        const QString path = textOf(entry);
        if (path.isEmpty()) continue;
        const QUrl url = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
        found.append({url, {}, markOf(url)});
    }
    return found;
}

QList<Playlist::Entry> Playlist::storedURLs(const QVariantList& stored, bool expand)
{
    QList<Entry> found;
    found.reserve(stored.size());
    if (expand) m_shownTrailers.clear();
    for (const QVariant& entry : stored) {
        if (expand && found.size() > Bounds::playlistEntries) break;
        const QString text = textOf(entry);
        const QUrl url(text);
        if (!url.isValid() || url.isRelative()) continue;
        const EntryMark mark = markOf(url);
        const bool isFolder = isFolderEntry(url) || isListEntry(url);
        if (!expand || !(isAutomaticEntry(url) || isFolder)) {
            found.append({url, text, mark});
            continue;
        }
        const QList<QUrl> movies = isFolder ? m_folders.moviesOf(url) : latestTrailers(url);
        found.reserve(found.size() + movies.size());
        for (const QUrl& movie : movies)
            found.append({movie, {}, mark});
    }
    if (expand) cut(found);
    return found;
}

void Playlist::cut(QList<Entry>& entries)
{
    if (entries.size() <= Bounds::playlistEntries) return;
    logLine(
        QStringLiteral("Only the first %1 movies of the playlist are played.").arg(Bounds::playlistEntries));
    entries.resize(Bounds::playlistEntries);
}

QList<QUrl> Playlist::latestTrailers(const QUrl& entry)
{
    const auto choice = trailerChoice(entry);
    if (!choice) return {};
    const QList<QUrl> found = m_trailers.lastTrailers(choice->count, choice->width, m_failedURLList);
    scanOnce();
    const QList<QUrl> movies = moviesOnWeb(found);
    for (const QUrl& movie : movies)
        m_shownTrailers.insert(movie);
    return movies;
}

// The scan refreshes the record for a later expansion; this one takes the record as it is.
void Playlist::scanOnce()
{
    if (m_hasAutoTrailers || m_isPreview || m_settings.store().leavesNothing()) return;
    m_hasAutoTrailers = true;
    m_trailers.scanLatest();
}

const QList<QUrl>& Playlist::fileList()
{
    if (!m_urlList) build();
    return *m_urlList;
}

const ListMarks& Playlist::marks()
{
    static_cast<void>(fileList());
    return m_marks;
}

void Playlist::build()
{
    QList<Entry> found = entries(true);
    m_marks = ListMarks();
    for (const Entry& entry : found)
        m_marks.append(entry.mark);
    m_urlList = urlsOf(std::move(found));
}

void Playlist::dropFileList()
{
    m_urlList.reset();
    followFolders();
}

std::optional<QList<QUrl>> Playlist::takeNews()
{
    if (!m_urlList || !m_folders.hasNews()) return {};
    const QList<QUrl> before = *std::move(m_urlList);
    build();
    const bool isAtPlayed = m_settings.isRandomMode();
    if (m_curIdx >= 0 && m_curIdx < before.size() && !m_urlList->isEmpty()) {
        const qsizetype played = isAtPlayed ? m_curIdx : (m_curIdx + before.size() - 1) % before.size();
        const int place = placeOf(before[played], played);
        m_curIdx = isAtPlayed ? place : static_cast<int>((place + 1) % m_urlList->size());
    }
    return before;
}

// An entry may be there twice: where it still is what it was, it is that one.
int Playlist::placeOf(const QUrl& played, qsizetype before) const
{
    if (before < m_urlList->size() && m_urlList->at(before) == played) return static_cast<int>(before);
    const qsizetype now = m_urlList->indexOf(played);
    return static_cast<int>(now >= 0 ? now : std::min(before, m_urlList->size()) - 1);
}

void Playlist::addFailedURL(const QUrl& url)
{
    m_failedURLList.insert(absoluteString(url));
}

} // namespace kestro
