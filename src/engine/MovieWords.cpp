#include "engine/MovieWords.h"

#include "platform/base/FileURL.h"
#include "platform/base/Paths.h"
#include "platform/base/URLKind.h"
#include "settings/LatestTrailers.h"

#include <QDir>
#include <QFileInfo>

namespace kestro {

namespace {

constexpr qsizetype mostCharacters = 300;

/// Turns the direction of the text that follows.
bool turnsText(QChar character)
{
    const char16_t code = character.unicode();
    return code == 0x200e || code == 0x200f || (code >= 0x202a && code <= 0x202e) ||
           (code >= 0x2066 && code <= 0x2069);
}

QString fromHome(const QString& folder)
{
    const QString home = homeFolder();
    if (folder == home) return QStringLiteral("~");
    return folder.startsWith(home + u'/') ? u'~' + folder.mid(home.size()) : folder;
}

QString nameOf(const QString& folder)
{
    const QString name = QFileInfo(folder).fileName();
    return name.isEmpty() ? folder : name;
}

/// A trailer has a folder of its own, which is called like it.
QString originOf(const QUrl& url, LatestTrailers& trailers)
{
    const auto year = trailers.yearOf(url);
    if (!year) return url.host();
    const QUrl folder = url.adjusted(QUrl::RemoveFilename | QUrl::RemoveQuery | QUrl::RemoveFragment);
    const QString name = lastPathComponent(folder);
    return QStringLiteral("%1, %2").arg(name.isEmpty() ? url.host() : name).arg(*year);
}

} // namespace

MovieWords MovieWords::of(const QUrl& url, LatestTrailers& trailers)
{
    const QString file = lastPathComponent(url);
    const QString name = QFileInfo(file).completeBaseName();
    MovieWords words;
    words.title = shownText(name.isEmpty() ? file : name);
    if (const auto path = localPath(url)) {
        const QString folder = QFileInfo(*path).path();
        words.origin = shownText(nameOf(folder));
        words.place = shownText(fromHome(folder));
    } else {
        words.origin = words.place = shownText(originOf(url, trailers));
    }
    if (words.title.isEmpty()) words.title = words.origin;
    return words;
}

QString shownText(const QString& text)
{
    QString shown;
    for (const QChar character : text.left(mostCharacters)) {
        if (character.isSpace())
            shown.append(u' ');
        else if (character.category() != QChar::Other_Control && !turnsText(character))
            shown.append(character);
    }
    if (!shown.isEmpty() && shown.back().isHighSurrogate()) shown.chop(1); // half of a character
    return shown.simplified();
}

} // namespace kestro
