#include "config_ui/EntryText.h"

#include "config_ui/EntryFacts.h"
#include "platform/base/DurationText.h"
#include "platform/base/FileURL.h"
#include "platform/base/URLKind.h"
#include "settings/EntryMark.h"
#include "settings/FolderEntry.h"
#include "settings/MovieURL.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QTime>

#include <algorithm>
#include <cmath>

namespace kestro {

namespace {

// "auto:" alone stands for nothing that has a name.
bool namesTrailers(const QUrl& url)
{
    return isAutomaticEntry(url) && (!url.host().isEmpty() || trailerChoice(url));
}

QString inOwnLanguage(const MovieFault& fault)
{
    QString words = QCoreApplication::translate("MovieFault", wordsOf(fault.kind));
    return words.replace(QStringLiteral("%1"), fault.detail);
}

} // namespace

// Which server it is says more than that one cannot be reached.
QString EntryText::faultText(const QUrl& url, const MovieFault& fault)
{
    const QString reason = inOwnLanguage(fault);
    return url.host().isEmpty() ? tr("Cannot be opened: %1").arg(reason)
                                : tr("%1: cannot be opened, %2").arg(url.host(), reason);
}

bool EntryText::hasMovie(const QUrl& url)
{
    if (isFolderEntry(url)) return folderEntry(url).has_value();
    return !isAutomaticEntry(url) && !namesWebContent(url) && isValidURL(url);
}

QString EntryText::name(const PlaylistEntry& entry)
{
    if (namesTrailers(entry.url)) return tr("Newest trailers");
    if (isAutomaticEntry(entry.url)) return entry.text;
    const QString last = lastPathComponent(entry.url);
    if (!last.isEmpty()) return last;
    return entry.url.host().isEmpty() ? entry.text : entry.url.host();
}

QString EntryText::detail(const PlaylistEntry& entry, const EntryFacts* facts)
{
    const QUrl& url = entry.url;
    if (isAutomaticEntry(url)) {
        const auto choice = trailerChoice(url);
        if (!choice) return tr("Left out: it does not say how many trailers of which width");
        const auto [count, width] = *choice;
        if (count == 1) return tr("The newest trailer, %1 pixels wide").arg(width);
        return count > 0 ? tr("%1 newest trailers, each %2 pixels wide").arg(count).arg(width)
                         : tr("All trailers, each %1 pixels wide").arg(width);
    }
    if (isFolderEntry(url)) return folderDetail(url, facts);
    if (isListEntry(url)) return listDetail(url, facts);
    if (!isValidURL(url)) return tr("Left out: a web page, no movie");
    if (facts != nullptr && facts->fault) return faultText(url, *facts->fault);
    const auto folder = localPath(url.adjusted(QUrl::RemoveFilename | QUrl::StripTrailingSlash));
    const QString place = folder.value_or(url.host());
    return namesWebContent(url) ? tr("Web content, %1").arg(place) : QDir::toNativeSeparators(place);
}

QString EntryText::folderDetail(const QUrl& url, const EntryFacts* facts)
{
    const auto folder = folderEntry(url);
    if (!folder) return tr("Left out: it names no folder of this machine");
    if (facts != nullptr && facts->fault) return faultText(url, *facts->fault);
    const QString place = QDir::toNativeSeparators(QDir::cleanPath(folder->path));
    if (facts == nullptr || !facts->movies) return tr("Folder, %1").arg(place);
    switch (*facts->movies) {
    case 0:
        return tr("Folder without movies, %1").arg(place);
    case 1:
        return tr("Folder with one movie, %1").arg(place);
    default:
        return tr("Folder with %L1 movies, %2").arg(*facts->movies).arg(place);
    }
}

QString EntryText::listDetail(const QUrl& url, const EntryFacts* facts)
{
    if (facts != nullptr && facts->fault) return faultText(url, *facts->fault);
    const QString place = QDir::toNativeSeparators(QFileInfo(folderEntry(url)->path).path());
    if (facts == nullptr || !facts->movies) return tr("List, %1").arg(place);
    switch (*facts->movies) {
    case 0:
        return tr("List without movies, %1").arg(place);
    case 1:
        return tr("List with one movie, %1").arg(place);
    default:
        return tr("List with %L1 movies, %2").arg(*facts->movies).arg(place);
    }
}

bool EntryText::isFault(const PlaylistEntry& entry, const EntryFacts* facts)
{
    if (isAutomaticEntry(entry.url)) return !trailerChoice(entry.url);
    if (isFolderEntry(entry.url)) return !folderEntry(entry.url) || (facts != nullptr && facts->fault);
    return !isValidURL(entry.url) || (facts != nullptr && facts->fault);
}

QString EntryText::duration(const EntryFacts* facts)
{
    if (facts == nullptr || !(facts->seconds > 0)) return {};
    return durationText(std::llround(std::max(facts->seconds, 1.0)));
}

QString EntryText::mark(const EntryMark& mark)
{
    QStringList parts{mark.isStarred ? tr("Starred") : QString(), timeText(mark.time)};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

QString EntryText::timeText(const PlayTime& time)
{
    const auto clock = [](int minute) {
        return QLocale().toString(QTime(minute / 60, minute % 60), QLocale::ShortFormat);
    };
    switch (time.kind) {
    case PlayTime::Kind::Always:
        return {};
    case PlayTime::Kind::Day:
        return tr("Plays by day");
    case PlayTime::Kind::Night:
        return tr("Plays at night");
    case PlayTime::Kind::Hours:
        break;
    }
    return tr("Plays from %1 until %2").arg(clock(time.from), clock(time.to));
}

QString EntryText::toolTip(const PlaylistEntry& entry, const EntryFacts* facts)
{
    if (!isFault(entry, facts)) return entry.text;
    const QString why = entry.text + u'\n' + detail(entry, facts);
    const bool mayChange = hasMovie(entry.url);
    return mayChange ? why + u'\n' + tr("A click on the sign looks again.") : why;
}

} // namespace kestro
