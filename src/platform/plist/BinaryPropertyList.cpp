#include "platform/plist/BinaryPropertyList.h"

#include "platform/base/Bounds.h"

#include <QDateTime>
#include <QTimeZone>
#include <QtEndian>

#include <algorithm>
#include <bit>

namespace kestro {

namespace {

constexpr QByteArrayView magic = "bplist00";
constexpr qsizetype trailerSize = 32;

// Objects may be referred to many times, so a few hundred bytes can unfold without bound. Each value counts
// as many bytes as it takes in memory, about; honest files, where most objects are referred to once, stay
// within this.
constexpr qint64 costOfValue = 64;
constexpr qint64 unfoldedOfAnyFile = qint64{4} * 1024 * 1024;
constexpr qint64 unfoldedPerByte = costOfValue;
constexpr qint64 largestUnfolded = 4 * Bounds::propertyListBytes;

qint64 unfoldedSizeAllowed(qint64 fileSize)
{
    return std::min(unfoldedOfAnyFile + fileSize * unfoldedPerByte, largestUnfolded);
}

// 2001-01-01T00:00:00Z, in seconds since 1970, from which dates are counted.
constexpr double dateOrigin = 978307200.0;

// Years 1 to 9999, as seconds from the origin of dates.
constexpr double earliestDate = -63114076800.0;
constexpr double latestDate = 252423993599.0;

/// A part of the file: `count` items of `size` bytes each, within bounds.
struct Span {
    qsizetype start = 0;
    qsizetype count = 0;
};

/// Reads one file. Every offset, count and reference is checked against the file before it is used.
class Reader final {
public:
    explicit Reader(QByteArrayView bytes)
        : m_bytes(bytes)
        , m_left(unfoldedSizeAllowed(bytes.size()))
    {
    }

    std::optional<QVariant> read()
    {
        if (!readTrailer()) return {};
        return object(m_top, 1);
    }

private:
    // Trailer: 6 bytes unused, size of a place, size of a reference, then number of objects, number of the
    // root and place of the table, 8 bytes each.
    bool readTrailer()
    {
        if (m_bytes.size() < magic.size() + trailerSize) return false;
        const qsizetype trailer = m_bytes.size() - trailerSize;
        m_placeSize = quint8(m_bytes[trailer + 6]);
        m_referenceSize = quint8(m_bytes[trailer + 7]);
        m_objects = unsignedAt(trailer + 8, 8);
        m_top = unsignedAt(trailer + 16, 8);
        m_table = unsignedAt(trailer + 24, 8);
        const auto end = quint64(trailer);
        return isIntegerSize(m_placeSize) && isIntegerSize(m_referenceSize) && m_table <= end &&
               m_objects <= (end - m_table) / quint64(m_placeSize);
    }

    static bool isIntegerSize(int size) { return size >= 1 && size <= 8; }

    // Big-endian; the range must lie in the file.
    [[nodiscard]] quint64 unsignedAt(qsizetype place, int size) const
    {
        quint64 number = 0;
        for (int at = 0; at < size; ++at)
            number = number << 8 | quint8(m_bytes[place + at]);
        return number;
    }

    std::optional<QVariant> object(quint64 number, int level)
    {
        if (number >= m_objects || !pay(costOfValue)) return {};
        const qsizetype entry = qsizetype(m_table) + qsizetype(number) * m_placeSize;
        const quint64 place = unsignedAt(entry, m_placeSize);
        if (place < quint64(magic.size()) || place >= m_table) return {};
        return objectAt(qsizetype(place), level);
    }

    // The marker's upper half is the kind; its lower half a size, a count, or which of the constants.
    std::optional<QVariant> objectAt(qsizetype place, int level)
    {
        const int marker = quint8(m_bytes[place]);
        switch (marker >> 4) {
        case 0x0:
            return flag(marker);
        case 0x1:
            return integer(place + 1, marker & 0xf);
        case 0x2:
            return real(place + 1, marker & 0xf);
        case 0x3:
            return date(place + 1, marker & 0xf);
        case 0x4:
        case 0x5:
        case 0x6:
            return text(place, marker >> 4);
        case 0xa:
            return array(place, level);
        case 0xd:
            return dictionary(place, level);
        default:
            return {};
        }
    }

    static std::optional<QVariant> flag(int marker)
    {
        if (marker == 0x08 || marker == 0x09) return QVariant(marker == 0x09);
        return {};
    }

    // Up to four bytes are unsigned, eight signed. Sixteen hold what is too large for eight.
    std::optional<QVariant> integer(qsizetype place, int power)
    {
        if (power > 4 || !isInFile(place, 1 << power)) return {};
        if (power < 4) return QVariant(qlonglong(unsignedAt(place, 1 << power)));
        const quint64 upper = unsignedAt(place, 8);
        const quint64 lower = unsignedAt(place + 8, 8);
        if (upper == ~quint64(0) && qint64(lower) < 0) return QVariant(qlonglong(lower));
        if (upper != 0) return {};
        return qint64(lower) < 0 ? QVariant(qulonglong(lower)) : QVariant(qlonglong(lower));
    }

    std::optional<QVariant> real(qsizetype place, int power)
    {
        if ((power != 2 && power != 3) || !isInFile(place, 1 << power)) return {};
        if (power == 2) return QVariant(double(std::bit_cast<float>(quint32(unsignedAt(place, 4)))));
        return QVariant(std::bit_cast<double>(unsignedAt(place, 8)));
    }

    std::optional<QVariant> date(qsizetype place, int power)
    {
        if (power != 3 || !isInFile(place, 8)) return {};
        const auto seconds = std::bit_cast<double>(unsignedAt(place, 8));
        if (!(seconds >= earliestDate && seconds <= latestDate)) return {};
        return QVariant(
            QDateTime::fromMSecsSinceEpoch(qint64((seconds + dateOrigin) * 1000.0), QTimeZone::utc()));
    }

    // Data (4), one byte a letter (5), and UTF-16 (6).
    std::optional<QVariant> text(qsizetype place, int kind)
    {
        const int unit = kind == 6 ? 2 : 1;
        const auto span = spanAt(place, unit);
        if (!span || !pay(span->count * unit)) return {};
        const QByteArrayView content = m_bytes.sliced(span->start, span->count * unit);
        if (kind == 4) return QVariant(content.toByteArray());
        return QVariant(kind == 5 ? QString::fromLatin1(content) : fromBigEndian(content));
    }

    static QString fromBigEndian(QByteArrayView content)
    {
        QString found(content.size() / 2, Qt::Uninitialized);
        qFromBigEndian<quint16>(content.data(), found.size(), found.data());
        return found;
    }

    std::optional<QVariant> array(qsizetype place, int level)
    {
        const auto span = spanAt(place, m_referenceSize);
        if (!span || level > Bounds::propertyListDepth) return {};
        QVariantList found;
        for (qsizetype at = 0; at < span->count; ++at) {
            auto element = object(reference(*span, at), level + 1);
            if (!element) return {};
            found.append(std::move(*element));
        }
        return QVariant(found);
    }

    // All references to keys, then all to values.
    std::optional<QVariant> dictionary(qsizetype place, int level)
    {
        const auto span = spanAt(place, 2 * m_referenceSize);
        if (!span || level > Bounds::propertyListDepth) return {};
        QVariantMap found;
        for (qsizetype at = 0; at < span->count; ++at) {
            const auto key = object(reference(*span, at), level + 1);
            if (!key || key->typeId() != QMetaType::QString) return {};
            auto value = object(reference(*span, span->count + at), level + 1);
            if (!value) return {};
            found.insert(key->toString(), *value);
        }
        return QVariant(found);
    }

    [[nodiscard]] quint64 reference(const Span& span, qsizetype at) const
    {
        return unsignedAt(span.start + at * m_referenceSize, m_referenceSize);
    }

    // What follows the marker at `place`: a count in its lower half or, where that is 15, in an integer
    // object after it; then that many items of `unit` bytes.
    [[nodiscard]] std::optional<Span> spanAt(qsizetype place, int unit) const
    {
        quint64 count = quint8(m_bytes[place]) & 0xf;
        qsizetype start = place + 1;
        if (count == 0xf) {
            if (!isInFile(start, 1)) return {};
            const int marker = quint8(m_bytes[start]);
            const int size = 1 << (marker & 0xf);
            if (marker >> 4 != 0x1 || size > 8 || !isInFile(start + 1, size)) return {};
            count = unsignedAt(start + 1, size);
            start += 1 + size;
        }
        if (count > quint64(m_bytes.size() - start) / quint64(unit)) return {};
        return Span{start, qsizetype(count)};
    }

    [[nodiscard]] bool isInFile(qsizetype place, qsizetype size) const
    {
        return m_bytes.size() - place >= size;
    }

    bool pay(qint64 cost)
    {
        m_left -= cost;
        return m_left >= 0;
    }

    QByteArrayView m_bytes;
    int m_placeSize = 0;
    int m_referenceSize = 0;
    quint64 m_objects = 0;
    quint64 m_top = 0;
    quint64 m_table = 0;
    qint64 m_left;
};

} // namespace

bool isBinaryPropertyList(const QByteArray& bytes)
{
    return bytes.startsWith("bplist");
}

std::optional<QVariant> readBinaryPropertyList(const QByteArray& bytes)
{
    if (!bytes.startsWith(magic)) return {};
    return Reader(bytes).read();
}

} // namespace kestro
