#include "platform/base/Bounds.h"
#include "platform/plist/XmlPropertyList.h"

#include <QDateTime>
#include <QPoint>
#include <QTimeZone>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace kestro {

namespace {

QVariant nestedLists(int levels)
{
    QVariant value = QVariantList();
    for (int level = 1; level < levels; ++level)
        value = QVariantList{value};
    return value;
}

} // namespace

TEST(XmlPropertyListWriter, write_isWhatMacsWrite)
{
    const QVariantMap root{
        {QStringLiteral("FileList"), QStringList{QStringLiteral("a&b"), QStringLiteral("<c>")}},
        {QStringLiteral("Flag"), true},
        {QStringLiteral("None"), QVariantList()},
        {QStringLiteral("Ver"), QStringLiteral("5")},
    };
    EXPECT_EQ(xmlPropertyList(root).value_or("nothing").toStdString(),
              R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
	<dict>
		<key>FileList</key>
		<array>
			<string>a&amp;b</string>
			<string>&lt;c&gt;</string>
		</array>
		<key>Flag</key>
		<true/>
		<key>None</key>
		<array/>
		<key>Ver</key>
		<string>5</string>
	</dict>
</plist>
)");
}

TEST(XmlPropertyListWriter, write_isReadBackAsItWas)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const std::vector<QVariant> values{
        QStringLiteral(""),
        QStringLiteral("  spaces \t and\nlines\r\n and a return\r"),
        QStringLiteral("]]> & <![CDATA[ \" ' 映画 \U0001F3AC"),
        true,
        false,
        qlonglong(0),
        std::numeric_limits<qlonglong>::min(),
        std::numeric_limits<qulonglong>::max(),
        0.1 + 0.2,
        -1.5e-300,
        infinity,
        -infinity,
        QByteArray("\0\1\xff", 3),
        QByteArray(""),
        QDateTime({2104, 2, 29}, {23, 59, 59}, QTimeZone::utc()),
        QDateTime({1, 1, 1}, {0, 0, 0}, QTimeZone::utc()),
        QVariantMap{{QStringLiteral(""), QVariantList{QVariantMap()}}},
    };
    for (const QVariant& value : values) {
        const auto written = xmlPropertyList(value);
        ASSERT_TRUE(written.has_value()) << value.toString().toStdString();
        const auto found = readXmlPropertyList(*written);
        ASSERT_TRUE(found.has_value()) << written->constData();
        EXPECT_EQ(found->typeId(), value.typeId()) << written->constData();
        EXPECT_EQ(*found, value) << written->constData();
    }
}

TEST(XmlPropertyListWriter, write_takesSmallerNumbersToo)
{
    for (const QVariant& seven : {QVariant(7), QVariant(7U)})
        EXPECT_EQ(readXmlPropertyList(xmlPropertyList(seven).value_or("")), QVariant(qlonglong(7)));
    EXPECT_EQ(readXmlPropertyList(xmlPropertyList(2.5F).value_or("")), QVariant(2.5));
    const auto notANumber = readXmlPropertyList(xmlPropertyList(std::nan("")).value_or(""));
    EXPECT_TRUE(notANumber && std::isnan(notANumber->toDouble()));
}

TEST(XmlPropertyListWriter, write_givesDatesInUniversalTime)
{
    const QDateTime moment({2004, 1, 1}, {1, 0, 0}, QTimeZone(3600));
    EXPECT_TRUE(xmlPropertyList(moment).value_or("").contains("<date>2004-01-01T00:00:00Z</date>"));
}

TEST(XmlPropertyListWriter, write_answersNothing_forWhatNoPropertyListHolds)
{
    const std::vector<QVariant> values{
        QVariant(),
        QVariant::fromValue(nullptr),
        QPoint(1, 2),
        QDateTime(),
        QDateTime({12004, 1, 1}, {0, 0, 0}, QTimeZone::utc()),
        QString(QChar(1)),
        QString(QChar(0)),
        QString(QChar(0xd800)),
        QString(QChar(0xfffe)),
    };
    for (const QVariant& value : values) {
        EXPECT_FALSE(xmlPropertyList(value).has_value()) << value.typeName();
        EXPECT_FALSE(xmlPropertyList(QVariantList{true, value, true}).has_value()) << value.typeName();
        EXPECT_FALSE(xmlPropertyList(QVariantMap{{QStringLiteral("k"), value}}).has_value())
            << value.typeName();
    }
    EXPECT_FALSE(xmlPropertyList(QVariantMap{{QString(QChar(1)), true}}).has_value());
}

TEST(XmlPropertyListWriter, write_answersNothing_whenThereIsMoreThanTheReaderTakes)
{
    constexpr qsizetype aroundThem = 7; // the array, the root, the document type, the declaration, attributes
    QVariantList values(Bounds::propertyListValues - aroundThem, true);
    const auto most = xmlPropertyList(values);
    ASSERT_TRUE(most.has_value());
    EXPECT_TRUE(readXmlPropertyList(*most).has_value());
    values.append(true);
    EXPECT_FALSE(xmlPropertyList(values).has_value());
}

TEST(XmlPropertyListWriter, write_goesAsDeepAsTheReaders)
{
    const auto deepest = xmlPropertyList(nestedLists(256));
    ASSERT_TRUE(deepest.has_value());
    EXPECT_TRUE(readXmlPropertyList(*deepest).has_value());
    EXPECT_FALSE(xmlPropertyList(nestedLists(257)).has_value());
}

} // namespace kestro
