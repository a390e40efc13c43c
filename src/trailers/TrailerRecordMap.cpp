#include "trailers/TrailerRecordMap.h"

#include <algorithm>

namespace kestro {

namespace {

const QString urlKey = QStringLiteral("URL");
const QString sizeKey = QStringLiteral("Size");
const QString dateKey = QStringLiteral("Date");
const QString acKey = QStringLiteral("AC");
const QString acYes = QStringLiteral("Y");

QVariant storable(const QVariant& value);

QVariantMap storableMap(const QVariantMap& map)
{
    QVariantMap clean;
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        clean.insert(storableText(entry.key()), storable(entry.value()));
    return clean;
}

QVariantList storableList(const QVariantList& list)
{
    QVariantList clean;
    for (const QVariant& value : list)
        clean.append(storable(value));
    return clean;
}

QVariant storable(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        return storableText(value.toString());
    case QMetaType::QVariantMap:
        return storableMap(value.toMap());
    case QMetaType::QVariantList:
        return storableList(value.toList());
    default:
        return value;
    }
}

// Printable ASCII always is storable, and nearly every text is that.
bool isPlain(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u' ' && c < u'\x7f'; });
}

bool isStorable(char32_t c)
{
    return c == u'\t' || c == u'\n' || c == u'\r' || (c >= 0x20 && c < 0xd800) ||
           (c >= 0xe000 && c < 0xfffe) || c >= 0x10000;
}

} // namespace

TrailerRecord trailerRecord(const QVariantMap& stored)
{
    TrailerRecord record;
    for (auto entry = stored.begin(); entry != stored.end(); ++entry) {
        const bool isText = entry->typeId() == QMetaType::QString;
        if (isText && entry.key() == urlKey)
            record.url = storableText(entry->toString());
        else if (isText && entry.key() == sizeKey)
            record.size = storableText(entry->toString());
        else if (isText && entry.key() == dateKey)
            record.date = storableText(entry->toString());
        else if (isText && entry.key() == acKey && entry->toString() == acYes)
            record.ac = true;
        else
            record.other.insert(storableText(entry.key()), storable(*entry));
    }
    return record;
}

QVariantMap dictionaryOf(const TrailerRecord& record)
{
    QVariantMap map = record.other;
    map.insert(urlKey, record.url);
    if (record.size) map.insert(sizeKey, *record.size);
    if (record.date) map.insert(dateKey, *record.date);
    if (record.ac) map.insert(acKey, acYes);
    return map;
}

QString storableText(const QString& text)
{
    if (isPlain(text)) return text.isNull() ? QStringLiteral("") : text;
    QList<uint> kept = text.toUcs4(); // halves of broken pairs become replacement characters
    kept.removeIf([](uint c) { return !isStorable(c); });
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(kept.constData()), kept.size());
}

} // namespace kestro
