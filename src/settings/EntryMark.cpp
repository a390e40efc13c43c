#include "settings/EntryMark.h"

#include <QStringList>
#include <QUrl>
#include <QUrlQuery>

namespace kestro {

namespace {

const QString starWord = QStringLiteral("star");
const QString starKey = starWord;
const QString whenKey = QStringLiteral("when");

} // namespace

std::optional<EntryMark> entryMarkFrom(const QString& words)
{
    EntryMark mark;
    for (const QString& word : words.simplified().split(u' ', Qt::SkipEmptyParts)) {
        const auto time = playTimeFrom(word);
        const bool isTaken = word == starWord ? mark.isStarred : mark.time != PlayTime();
        if (isTaken || (word != starWord && !time)) return {};
        if (time)
            mark.time = *time;
        else
            mark.isStarred = true;
    }
    return mark;
}

QString textOf(const EntryMark& mark)
{
    QStringList words{mark.isStarred ? starWord : QString(), textOf(mark.time)};
    words.removeAll(QString());
    return words.join(u' ');
}

EntryMark markOfFolder(const QUrl& entry)
{
    if (!entry.hasQuery()) return {};
    const QUrlQuery query(entry);
    return {query.queryItemValue(starKey) == u"1",
            playTimeFrom(query.queryItemValue(whenKey, QUrl::FullyDecoded)).value_or(PlayTime())};
}

QUrl folderWithMark(const QUrl& entry, const EntryMark& mark)
{
    QUrlQuery query(entry);
    query.removeAllQueryItems(starKey);
    query.removeAllQueryItems(whenKey);
    if (mark.isStarred) query.addQueryItem(starKey, QStringLiteral("1"));
    if (mark.time != PlayTime()) query.addQueryItem(whenKey, textOf(mark.time));
    QUrl marked = entry;
    marked.setQuery(query.isEmpty() ? QString() : query.toString(QUrl::FullyEncoded));
    return marked;
}

} // namespace kestro
