#include "platform/plist/BinaryPropertyList.h"

#include <QDateTime>
#include <QProcess>
#include <QTimeZone>

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace kestro {

namespace {

QByteArray bigEndian(quint64 number, int size)
{
    QByteArray bytes;
    for (int at = size - 1; at >= 0; --at)
        bytes += char(number >> (8 * at));
    return bytes;
}

struct Layout {
    int placeSize = 2;
    int referenceSize = 1;
    quint64 top = 0;
};

// A file that holds `objects`, each its marker and content.
QByteArray binaryOf(const std::vector<QByteArray>& objects, Layout layout = {})
{
    QByteArray bytes = "bplist00";
    QByteArray table;
    for (const QByteArray& object : objects) {
        table += bigEndian(quint64(bytes.size()), layout.placeSize);
        bytes += object;
    }
    const auto tablePlace = quint64(bytes.size());
    return bytes + table + QByteArray(6, 0) + char(layout.placeSize) + char(layout.referenceSize) +
           bigEndian(objects.size(), 8) + bigEndian(layout.top, 8) + bigEndian(tablePlace, 8);
}

// Lists in lists, each object referring to the next one as often as asked.
std::vector<QByteArray> chain(int levels, int references)
{
    std::vector<QByteArray> objects;
    for (int level = 1; level < levels; ++level)
        objects.push_back(char(0xa0 + references) + bigEndian(quint64(level), 2).repeated(references));
    objects.push_back("\xa0");
    return objects;
}

// Written by another implementation of the form: Python's.
QByteArray fromPython(const char* expression)
{
    const QString script =
        QStringLiteral("import plistlib, datetime, sys\n"
                       "sys.stdout.buffer.write(plistlib.dumps(%1, fmt=plistlib.FMT_BINARY))")
            .arg(QString::fromUtf8(expression));
    QProcess python;
    python.start(QStringLiteral("/usr/bin/python3"), {QStringLiteral("-c"), script});
    EXPECT_TRUE(python.waitForFinished()) << python.errorString().toStdString();
    EXPECT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
    return python.readAllStandardOutput();
}

struct Case {
    QByteArray object;
    QVariant expected;
};

} // namespace

TEST(BinaryPropertyList, read_givesEachKindItsType)
{
    const std::vector<Case> cases{
        {"\x08", false},
        {"\x09", true},
        {QByteArray("\x10\xff", 2), qlonglong(255)},
        {QByteArray("\x11\x01\x00", 3), qlonglong(256)},
        {"\x12" + bigEndian(0xffffffff, 4), qlonglong(0xffffffff)},
        {"\x13" + bigEndian(quint64(-5), 8), qlonglong(-5)},
        {"\x14" + bigEndian(0, 8) + bigEndian(quint64(1) << 63, 8), qulonglong(1) << 63},
        {"\x14" + bigEndian(0, 8) + bigEndian(7, 8), qlonglong(7)},
        {"\x14" + bigEndian(quint64(-1), 8) + bigEndian(quint64(-7), 8), qlonglong(-7)},
        {"\x22" + bigEndian(0x40900000, 4), 4.5},
        {"\x23" + bigEndian(0x4012000000000000, 8), 4.5},
        {"\x33" + bigEndian(0, 8), QDateTime({2001, 1, 1}, {0, 0, 0}, QTimeZone::utc())},
        {"\x33" + bigEndian(0xc0f5180000000000, 8), QDateTime({2000, 12, 31}, {0, 0, 0}, QTimeZone::utc())},
        {"\x42hi", QByteArray("hi")},
        {"\x40", QByteArray("")},
        {"\x52hi", QStringLiteral("hi")},
        {"\x50", QStringLiteral("")},
        {QByteArray("\x62\x66\x20\x75\x3b", 5), QStringLiteral("映画")},
        {"\x5f\x10\x03"
         "abc",
         QStringLiteral("abc")},
        {"\xa0", QVariantList()},
        {"\xd0", QVariantMap()},
    };
    for (const Case& c : cases) {
        const auto found = readBinaryPropertyList(binaryOf({c.object}));
        ASSERT_TRUE(found.has_value()) << c.object.toHex().constData();
        EXPECT_EQ(found->typeId(), c.expected.typeId()) << c.object.toHex().constData();
        EXPECT_EQ(*found, c.expected) << c.object.toHex().constData();
    }
}

TEST(BinaryPropertyList, read_followsReferences)
{
    const auto file = binaryOf({"\xd2\x01\x02\x03\x01", "\x51k", "\x51l", "\xa2\x02\x02"});
    const QVariantMap expected{
        {QStringLiteral("k"), QVariantList{QStringLiteral("l"), QStringLiteral("l")}},
        {QStringLiteral("l"), QStringLiteral("k")},
    };
    EXPECT_EQ(readBinaryPropertyList(file), QVariant(expected));
}

TEST(BinaryPropertyList, read_takesEverySizeOfPlacesAndReferences)
{
    for (int placeSize = 1; placeSize <= 8; ++placeSize) {
        for (int referenceSize = 1; referenceSize <= 8; ++referenceSize) {
            const auto file = binaryOf({"\xa1" + bigEndian(2, referenceSize), "\x08", "\x51z"},
                                       {placeSize, referenceSize, 0});
            EXPECT_EQ(readBinaryPropertyList(file), QVariant(QVariantList{QStringLiteral("z")}))
                << placeSize << " " << referenceSize;
        }
    }
}

TEST(BinaryPropertyList, read_startsAtTheRootThatTheTrailerNames)
{
    EXPECT_EQ(readBinaryPropertyList(binaryOf({"\x08", "\x51z"}, {2, 1, 1})), QVariant(QStringLiteral("z")));
}

TEST(BinaryPropertyList, read_understandsWhatPythonWrites)
{
    const auto found =
        readBinaryPropertyList(fromPython("{'text': 'a', 'wide': '映画 \\U0001F3AC', 'long': 'x' * 300, "
                                          "'small': 1, 'below': -1, 'large': 2**64 - 1,"
                                          " 'real': 0.1, 'yes': True, 'no': False, 'data': b'\\x00\\xff', "
                                          "'date': datetime.datetime(2004, 2, 29, 12),"
                                          " 'list': [1, [2, {}]], 'many': list(range(300)), '': ''}"));
    QVariantList many;
    for (qlonglong number = 0; number < 300; ++number)
        many.append(number);
    const QVariantMap expected{
        {QStringLiteral("text"), QStringLiteral("a")},
        {QStringLiteral("wide"), QStringLiteral("映画 \U0001F3AC")},
        {QStringLiteral("long"), QString(300, u'x')},
        {QStringLiteral("small"), qlonglong(1)},
        {QStringLiteral("below"), qlonglong(-1)},
        {QStringLiteral("large"), std::numeric_limits<qulonglong>::max()},
        {QStringLiteral("real"), 0.1},
        {QStringLiteral("yes"), true},
        {QStringLiteral("no"), false},
        {QStringLiteral("data"), QByteArray("\0\xff", 2)},
        {QStringLiteral("date"), QDateTime({2004, 2, 29}, {12, 0, 0}, QTimeZone::utc())},
        {QStringLiteral("list"), QVariantList{qlonglong(1), QVariantList{qlonglong(2), QVariantMap()}}},
        {QStringLiteral("many"), many},
        {QStringLiteral(""), QStringLiteral("")},
    };
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(*found, QVariant(expected));
}

TEST(BinaryPropertyList, read_answersNothing_whenMalformed)
{
    const std::vector<QByteArray> objects{
        "\x07",
        QByteArray("\x00", 1),
        "\x0f",
        "\x15",
        "\x20",
        "\x24",
        "\x30",
        "\x32",
        "\x70",
        "\x80",
        "\xb0",
        "\xc0",
        "\xe0",
        "\xf0",
        "\xa1\x05",                                 // refers past the table
        "\xd1\x00\x00",                             // its key is itself
        "\x5f\x23",                                 // its count is no integer
        "\x5f\x14",                                 // its count is too wide
        "\x5f\x13\xff\xff\xff\xff\xff\xff\xff\xff", // its count is beyond any file
        "\x4f\x13\x7f\xff\xff\xff\xff\xff\xff\xff",
        "\xaf\x13\x7f\xff\xff\xff\xff\xff\xff\xff",
        "\xdf\x13\x7f\xff\xff\xff\xff\xff\xff\xff",
        "\x33\x7f\xf8" + bigEndian(0, 6), // no date
        "\x33\x7f\xf0" + bigEndian(0, 6),
        "\x33\x44" + bigEndian(0, 7),               // far beyond the year 9999
        "\x14" + bigEndian(1, 8) + bigEndian(0, 8), // wider than 64 bits
    };
    for (const QByteArray& object : objects)
        EXPECT_FALSE(readBinaryPropertyList(binaryOf({object})).has_value()) << object.toHex().constData();
    EXPECT_FALSE(readBinaryPropertyList(binaryOf({"\xd1\x01\x01", "\x10\x05"})).has_value())
        << "a key that is no text";
}

TEST(BinaryPropertyList, read_answersNothing_whenTheTrailerIsWrong)
{
    const QByteArray good = binaryOf({"\x09"});
    const qsizetype trailer = good.size() - 32;
    ASSERT_TRUE(readBinaryPropertyList(good).has_value());
    const auto withByte = [&](qsizetype at, char byte) {
        QByteArray bytes = good;
        bytes[trailer + at] = byte;
        return readBinaryPropertyList(bytes).has_value();
    };
    EXPECT_FALSE(withByte(6, 0)) << "size of a place";
    EXPECT_FALSE(withByte(6, 9));
    EXPECT_FALSE(withByte(7, 0)) << "size of a reference";
    EXPECT_FALSE(withByte(7, char(255)));
    EXPECT_FALSE(withByte(15, 2)) << "number of objects";
    EXPECT_FALSE(withByte(8, char(255)));
    EXPECT_FALSE(withByte(23, 1)) << "root";
    EXPECT_FALSE(withByte(31, 60)) << "place of the table";
    EXPECT_FALSE(withByte(24, char(255)));
}

TEST(BinaryPropertyList, read_answersNothing_whenAPlaceLiesOutsideTheObjects)
{
    QByteArray file = binaryOf({"\x09"});
    const qsizetype table = file.size() - 32 - 2;
    for (const int place : {0, 7, int(table), int(file.size()) - 1, 0xffff}) {
        file.replace(table, 2, bigEndian(quint64(place), 2));
        EXPECT_FALSE(readBinaryPropertyList(file).has_value()) << place;
    }
}

TEST(BinaryPropertyList, read_answersNothing_whenAContainerHoldsItself)
{
    EXPECT_FALSE(readBinaryPropertyList(binaryOf({QByteArray("\xa1\x00", 2)})).has_value());
    EXPECT_FALSE(readBinaryPropertyList(binaryOf({QByteArray("\xa2\x00\x00", 3)})).has_value());
    EXPECT_FALSE(
        readBinaryPropertyList(binaryOf({"\xa1\x01", QByteArray("\xd1\x02\x00", 3), "\x51k"})).has_value());
}

TEST(BinaryPropertyList, read_acceptsContainers_downTo256Levels)
{
    EXPECT_TRUE(readBinaryPropertyList(binaryOf(chain(256, 1), {4, 2, 0})).has_value());
    EXPECT_FALSE(readBinaryPropertyList(binaryOf(chain(257, 1), {4, 2, 0})).has_value());
    EXPECT_FALSE(readBinaryPropertyList(binaryOf(chain(60000, 1), {4, 2, 0})).has_value());
}

TEST(BinaryPropertyList, read_answersNothing_whenItUnfoldsWithoutBound)
{
    EXPECT_TRUE(readBinaryPropertyList(binaryOf(chain(10, 2), {4, 2, 0})).has_value());
    EXPECT_FALSE(readBinaryPropertyList(binaryOf(chain(100, 2), {4, 2, 0})).has_value());
    EXPECT_FALSE(readBinaryPropertyList(binaryOf(chain(100, 14), {4, 2, 0})).has_value());
}

TEST(BinaryPropertyList, read_answersNothing_whenCutAnywhere)
{
    const QByteArray whole = fromPython("{'a': [1, 2.5, 'text', b'data', True], 'b': {'c': 'ü'}}");
    ASSERT_TRUE(readBinaryPropertyList(whole).has_value());
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(readBinaryPropertyList(whole.first(size)).has_value()) << size;
}

// What such a file reads as is open; that it is read without a fault is what the sanitizers watch.
TEST(BinaryPropertyList, read_comesBack_whateverByteIsChanged)
{
    const QByteArray whole = fromPython("{'a': [1, 2.5, 'text', b'data', True], 'b': {'c': 'ü'}}");
    int understood = 0;
    for (qsizetype at = 0; at < whole.size(); ++at) {
        for (const int byte : {0x00, 0x0f, 0x7f, 0x80, 0xaf, 0xdf, 0xff}) {
            QByteArray changed = whole;
            changed[at] = char(byte);
            understood += readBinaryPropertyList(changed).has_value() ? 1 : 0;
        }
    }
    EXPECT_GT(understood, 0);
    EXPECT_LT(understood, 7 * whole.size());
}

TEST(BinaryPropertyList, isBinaryPropertyList_isTold_byTheStart)
{
    EXPECT_TRUE(isBinaryPropertyList("bplist00"));
    EXPECT_TRUE(isBinaryPropertyList("bplist15"));
    EXPECT_FALSE(isBinaryPropertyList("<?xml"));
    EXPECT_FALSE(isBinaryPropertyList(""));
}

} // namespace kestro
