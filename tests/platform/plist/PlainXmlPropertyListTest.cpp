#include "platform/plist/PlainXmlPropertyList.h"

#include "StoredForm.h"
#include "platform/plist/XmlPropertyList.h"

#include <QDateTime>

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace kestro {

namespace {

const QVariantMap everyKind{
    {QStringLiteral("Array"), QVariantList{QStringLiteral("a"), QVariantList(), QVariantMap()}},
    {QStringLiteral("Data"), QByteArray("hello")},
    {QStringLiteral("Date"), QDateTime({2004, 2, 29}, {12, 34, 56}, Qt::UTC)},
    {QStringLiteral("Empty"), QStringLiteral("")},
    {QStringLiteral("Flag"), true},
    {QStringLiteral("Integer"), qlonglong(-5)},
    {QStringLiteral("None"), std::numeric_limits<double>::quiet_NaN()},
    {QStringLiteral("Real"), 4.5},
    {QStringLiteral("Text"), QStringLiteral("\ta<b> & \"c\" 'd'\r\n grün 映画 \U0001F3AC ]]>")},
    {QStringLiteral("k&<y>"), false},
};

QByteArray plist(const QByteArray& element)
{
    return "<plist version=\"1.0\">" + element + "</plist>";
}

QByteArray nestedArrays(int levels)
{
    return QByteArray("<array>").repeated(levels) + QByteArray("</array>").repeated(levels);
}

// Where it is read at all, it is read as the reader of all XML reads it.
bool isReadAlike(const QByteArray& document)
{
    const auto plain = readPlainXmlPropertyList(document);
    return !plain || storedForm(plain) == storedForm(readAnyXmlPropertyList(document));
}

bool isRead(const QByteArray& document)
{
    EXPECT_TRUE(isReadAlike(document)) << document.data();
    return readPlainXmlPropertyList(document).has_value();
}

} // namespace

TEST(PlainXmlPropertyList, read_understandsWhatIsWritten)
{
    const auto written = xmlPropertyList(everyKind);
    ASSERT_TRUE(written.has_value());
    EXPECT_EQ(storedForm(readPlainXmlPropertyList(*written)), storedForm(QVariant(everyKind)));
}

TEST(PlainXmlPropertyList, read_understandsWhatAMacWrites)
{
    EXPECT_TRUE(isRead(R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple Computer//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>Trailers</key>
	<array>
		<dict>
			<key>URL</key>
			<string>http://h/trailers/a&amp;b.mov</string>
		</dict>
	</array>
</dict>
</plist>
)"));
}

TEST(PlainXmlPropertyList, read_keepsOneTextInMemory_whenItComesAgain)
{
    const auto found = readPlainXmlPropertyList(
        plist("<array><string>480 x 204</string><string>480 x 204</string></array>"));
    ASSERT_TRUE(found.has_value());
    const QVariantList texts = found->toList();
    EXPECT_EQ(texts.at(0).toString().constData(), texts.at(1).toString().constData());
}

TEST(PlainXmlPropertyList, read_keepsTextNotNull_whenEmpty)
{
    const auto found = readPlainXmlPropertyList(plist("<string></string>"));
    ASSERT_TRUE(found.has_value());
    EXPECT_FALSE(found->toString().isNull());
}

TEST(PlainXmlPropertyList, read_acceptsContainers_downTo256Levels)
{
    EXPECT_TRUE(isRead(plist(nestedArrays(256))));
    EXPECT_FALSE(isRead(plist(nestedArrays(257))));
    EXPECT_FALSE(isRead(plist("<array>" + nestedArrays(255).replace("></", "><dict/></") + "</array>")));
}

// Right or wrong, it is left to the reader of all XML.
TEST(PlainXmlPropertyList, read_answersNothing_whenOutOfTheOrdinary)
{
    const std::vector<QByteArray> documents{
        "",
        "\xef\xbb\xbf" + plist("<true/>"),
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + plist("<true/>"),
        " <?xml version=\"1.0\" encoding=\"UTF-8\"?>" + plist("<true/>"),
        "<!DOCTYPE plist [<!ENTITY e \"x\">]>" + plist("<string>&e;</string>"),
        "<!-- -->" + plist("<true/>"),
        plist("<true/>") + "<!-- -->",
        plist("<true/>") + "more",
        plist("<true/>").chopped(1),
        "<plist><true/></plist>",
        plist("<string>&#33;</string>"),
        plist("<string>&unknown;</string>"),
        plist("<string>&amp</string>"),
        plist("<string>a>b</string>"),
        plist("<string>a]]>b</string>"),
        plist("<string><![CDATA[a]]></string>"),
        plist("<string>a<!-- -->b</string>"),
        plist("<string>a\r\nb</string>"),
        plist("<string>\x01</string>"),
        plist("<string>\xff</string>"),
        plist("<string>\xef\xbf\xbe</string>"),
        plist("<string>\xed\xa0\x80</string>"),
        plist("<string>a</key>"),
        plist("<string >a</string>"),
        plist("<unknown/>"),
        plist("<array x=\"y\"/>"),
        plist("<array>"),
        plist("<dict><key>a</key></dict>"),
        plist("<dict><true/></dict>"),
        plist("<integer>five</integer>"),
        plist("<date>2004-02-31T12:34:56Z</date>"),
        plist("<data>***</data>"),
        plist("<true/><false/>"),
    };
    for (const QByteArray& document : documents)
        EXPECT_FALSE(isRead(document)) << document.data();
}

TEST(PlainXmlPropertyList, read_isWhatAllOfXMLReads_whateverByteIsPutInTheWay)
{
    const QByteArray document = xmlPropertyList(everyKind).value_or(QByteArray());
    for (qsizetype at = 0; at < document.size(); ++at) {
        for (const char byte : QByteArrayView("<>&;/\"'!]#- \r\t0a\x01\x7f\xc3\xff"))
            EXPECT_TRUE(isReadAlike(QByteArray(document).replace(at, 1, &byte, 1))) << at << byte;
        EXPECT_TRUE(isReadAlike(QByteArray(document).remove(at, 1))) << at;
        EXPECT_TRUE(isReadAlike(QByteArray(document).insert(at, document.sliced(at, 1)))) << at;
    }
}

} // namespace kestro
