#include "trailers/ListRoom.h"

#include "platform/base/Bounds.h"

#include <QVariant>

namespace kestro {

namespace {

// The file is XML, one element a line, one tab a level; the longest of the element's names decides.
constexpr qint64 elementBytes = 24;
constexpr qint64 levelOfEntries = 3; // root, list, record
constexpr qint64 bytesOfNumber = 64; // of a date too

qint64 bytesOf(QChar c)
{
    if (c == u'&' || c == u'<' || c == u'>' || c == u'"' || c == u'\r') return 6; // "&quot;"
    if (c < QChar(0x80)) return 1;
    return c < QChar(0x800) ? 2 : 3;
}

qint64 bytesOf(const QString& text, qint64 level)
{
    qint64 bytes = elementBytes + level;
    for (const QChar c : text)
        bytes += bytesOf(c);
    return bytes;
}

qint64 bytesOf(const QVariant& value, qint64 level);

qint64 bytesOf(const QVariantMap& map, qint64 level)
{
    qint64 bytes = 2 * (elementBytes + level);
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        bytes += bytesOf(entry.key(), level + 1) + bytesOf(*entry, level + 1);
    return bytes;
}

qint64 bytesOf(const QVariantList& list, qint64 level)
{
    qint64 bytes = 2 * (elementBytes + level);
    for (const QVariant& value : list)
        bytes += bytesOf(value, level + 1);
    return bytes;
}

qint64 bytesOf(const QVariant& value, qint64 level)
{
    switch (value.typeId()) {
    case QMetaType::QVariantMap:
        return bytesOf(value.toMap(), level);
    case QMetaType::QVariantList:
        return bytesOf(value.toList(), level);
    case QMetaType::QString:
        return bytesOf(value.toString(), level);
    case QMetaType::QByteArray: // letters for every three bytes, in lines of their own
        return elementBytes + level + value.toByteArray().size() * (level + 2);
    default:
        return elementBytes + level + bytesOfNumber;
    }
}

qint64 bytesOfPage(QByteArrayView page)
{
    return elementBytes + levelOfEntries + bytesOf(QString::fromUtf8(page), 0);
}

} // namespace

qint64 bytesInFile(const TrailerRecord& record)
{
    constexpr qint64 own = 5 * (elementBytes + levelOfEntries); // the record's tags, and its names' lines
    const qint64 texts = bytesOf(record.url, levelOfEntries + 1) +
                         bytesOf(record.size.value_or(QString()), levelOfEntries + 1) +
                         bytesOf(record.date.value_or(QString()), levelOfEntries + 1) +
                         bytesOf(QString(), levelOfEntries + 1);
    return own + texts + (record.other.isEmpty() ? 0 : bytesOf(record.other, levelOfEntries));
}

bool ListRoom::takeTrailer(const TrailerRecord& record, const TrailerRecord* old)
{
    const bool isBelow = old || m_trailers < Bounds::listedTrailers;
    if (!take(isBelow, bytesInFile(record) - (old ? bytesInFile(*old) : 0))) return false;
    if (!old) ++m_trailers;
    return true;
}

bool ListRoom::takePage(QByteArrayView page)
{
    if (!take(m_pages < Bounds::listedPages, bytesOfPage(page))) return false;
    ++m_pages;
    return true;
}

void ListRoom::givePage(QByteArrayView page)
{
    m_bytes -= bytesOfPage(page);
    --m_pages;
}

bool ListRoom::take(bool isBelowBound, qint64 bytes)
{
    const bool isTaken = isBelowBound && m_bytes + bytes <= Bounds::listBytes;
    if (isTaken)
        m_bytes += bytes;
    else
        m_isFull = true;
    return isTaken;
}

} // namespace kestro
