#include "StoredForm.h"
#include "platform/plist/XmlPropertyList.h"

#include <QDateTime>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace kestro {

namespace {

// Whoever reads it, the fast way or the whole one, reads the same.
std::optional<QVariant> readDocument(const QByteArray& document)
{
    const auto found = readXmlPropertyList(document);
    EXPECT_EQ(storedForm(found), storedForm(readAnyXmlPropertyList(document)))
        << document.left(200).constData();
    return found;
}

std::optional<QVariant> readValue(const QByteArray& element)
{
    return readDocument("<plist version=\"1.0\">" + element + "</plist>");
}

QByteArray nested(const char* element, int levels)
{
    const QByteArray name(element);
    return ("<" + name + ">").repeated(levels) + ("</" + name + ">").repeated(levels);
}

struct Case {
    const char* element;
    QVariant expected;
};

const double infinity = std::numeric_limits<double>::infinity();

} // namespace

TEST(XmlPropertyListReader, read_givesEachKindItsType)
{
    const std::vector<Case> cases{
        {"<string>text</string>", QStringLiteral("text")},
        {"<string></string>", QStringLiteral("")},
        {"<string/>", QStringLiteral("")},
        {"<string> a\n b </string>", QStringLiteral(" a\n b ")},
        {"<true/>", true},
        {"<false/>", false},
        {"<true></true>", true},
        {"<integer>5</integer>", qlonglong(5)},
        {"<integer>-5</integer>", qlonglong(-5)},
        {"<integer>+5</integer>", qlonglong(5)},
        {"<integer> 5\n</integer>", qlonglong(5)},
        {"<integer>0x1F</integer>", qlonglong(31)},
        {"<integer>9223372036854775807</integer>", std::numeric_limits<qlonglong>::max()},
        {"<integer>-9223372036854775808</integer>", std::numeric_limits<qlonglong>::min()},
        {"<integer>9223372036854775808</integer>", qulonglong(1) << 63},
        {"<integer>18446744073709551615</integer>", std::numeric_limits<qulonglong>::max()},
        {"<real>4.5</real>", 4.5},
        {"<real>-1e-3</real>", -0.001},
        {"<real>4</real>", 4.0},
        {"<real>+infinity</real>", infinity},
        {"<real>-infinity</real>", -infinity},
        {"<real>inf</real>", infinity},
        {"<data>aGVs\n\tbG8=</data>", QByteArray("hello")},
        {"<data></data>", QByteArray("")},
        {"<date>2004-02-29T12:34:56Z</date>", QDateTime({2004, 2, 29}, {12, 34, 56}, Qt::UTC)},
        {"<array/>", QVariantList()},
        {"<array></array>", QVariantList()},
        {"<dict/>", QVariantMap()},
        {"<array><string>a</string><integer>1</integer></array>",
         QVariantList{QStringLiteral("a"), qlonglong(1)}},
        {"<dict><key>k</key><true/><key/><false/></dict>",
         QVariantMap{{QStringLiteral("k"), true}, {QStringLiteral(""), false}}},
        {"<dict><key>k</key><array><dict/></array></dict>",
         QVariantMap{{QStringLiteral("k"), QVariantList{QVariantMap()}}}},
    };
    for (const Case& c : cases) {
        const auto found = readValue(c.element);
        ASSERT_TRUE(found.has_value()) << c.element;
        EXPECT_EQ(found->typeId(), c.expected.typeId()) << c.element;
        EXPECT_EQ(*found, c.expected) << c.element;
    }
}

TEST(XmlPropertyListReader, read_givesNotANumber_whenNamed)
{
    const auto found = readValue("<real>nan</real>");
    ASSERT_TRUE(found.has_value());
    EXPECT_TRUE(std::isnan(found->toDouble()));
}

TEST(XmlPropertyListReader, read_keepsTextNotNull_whenEmpty)
{
    EXPECT_FALSE(readValue("<string/>")->toString().isNull());
}

TEST(XmlPropertyListReader, read_takesTheLastValue_whenAKeyStandsTwice)
{
    const auto found = readValue("<dict><key>a</key><true/><key>a</key><false/></dict>");
    EXPECT_EQ(found, QVariant(QVariantMap{{QStringLiteral("a"), false}}));
}

TEST(XmlPropertyListReader, read_understandsAFileOfAMac)
{
    const auto found = readDocument(R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- settings -->
<!DOCTYPE plist PUBLIC "-//Apple Computer//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>FileList</key> <!-- </dict> in a comment ends nothing -->
	<array>
		<string>file:///Films/Tom%20&amp;%20&lt;Jerry&gt;&#33;&#x3f;.mov</string>
		<string><![CDATA[a<b>&amp;]]></string>
		<string>gr&#xfc;n – 映画</string>
	</array>
	<key>Ver</key>
	<string>5</string>
</dict>
</plist>
<!-- end -->
)");
    const QVariantMap expected{
        {QStringLiteral("FileList"),
         QVariantList{QStringLiteral("file:///Films/Tom%20&%20<Jerry>!?.mov"), QStringLiteral("a<b>&amp;"),
                      QStringLiteral("grün – 映画")}},
        {QStringLiteral("Ver"), QStringLiteral("5")},
    };
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(*found, QVariant(expected));
}

TEST(XmlPropertyListReader, read_answersNothing_whenMalformed)
{
    const std::vector<QByteArray> documents{
        "",
        " ",
        "not xml",
        "<plist>",
        "<plist/>",
        "<plist></plist>",
        "<plist><true/><false/></plist>",
        "<plist><true/></plist><plist><true/></plist>",
        "<plist><true/></plist>trailing",
        "<dict/>",
        "<html><body/></html>",
        "<plist><dict></array></plist>",
        "<plist><unknown/></plist>",
        "<plist><dict><string>value without key</string></dict></plist>",
        "<plist><dict><key>key without value</key></dict></plist>",
        "<plist><dict><key>a</key><key>b</key></dict></plist>",
        "<plist><string>a<true/></string></plist>",
        "<plist><string>&unknown;</string></plist>",
        "<plist><string>\x01</string></plist>",
        "<plist><string>\xff\xfe</string></plist>",
        "<plist><integer></integer></plist>",
        "<plist><integer>five</integer></plist>",
        "<plist><integer>5.5</integer></plist>",
        "<plist><integer>18446744073709551616</integer></plist>",
        "<plist><real>four</real></plist>",
        "<plist><real></real></plist>",
        "<plist><date>yesterday</date></plist>",
        "<plist><date>2004-02-31T12:34:56Z</date></plist>",
        "<plist><data>***</data></plist>",
        "<?xml version=\"1.0\" encoding=\"no-such-encoding\"?><plist><true/></plist>",
    };
    for (const QByteArray& document : documents)
        EXPECT_FALSE(readDocument(document).has_value()) << document.constData();
}

TEST(XmlPropertyListReader, read_answersNothing_whenOneValueOfManyIsMalformed)
{
    EXPECT_FALSE(readValue("<array><true/><array><integer>x</integer></array><true/></array>").has_value());
    EXPECT_FALSE(readValue("<dict><key>a</key><date>x</date><key>b</key><true/></dict>").has_value());
}

TEST(XmlPropertyListReader, read_acceptsContainers_downTo256Levels)
{
    EXPECT_TRUE(readValue(nested("array", 256)).has_value());
    EXPECT_FALSE(readValue(nested("array", 257)).has_value());
    EXPECT_TRUE(readValue("<array>" + nested("array", 255) + "<array/><dict/></array>").has_value());
}

TEST(XmlPropertyListReader, read_answersNothing_whenNestedAMillionTimes)
{
    for (const char* element : {"array", "string", "dict", "unknown"}) {
        EXPECT_FALSE(readValue(nested(element, 1'000'000)).has_value()) << element;
        EXPECT_FALSE(readDocument(QByteArray("<") + element + ">").has_value()) << element;
    }
    EXPECT_FALSE(readDocument("<plist>" + QByteArray("<dict><key/>").repeated(1'000'000)).has_value());
}

TEST(XmlPropertyListReader, read_answersNothing_whenEntitiesUnfoldWithoutBound)
{
    QByteArray document = "<!DOCTYPE plist [<!ENTITY e0 \"haha\">";
    for (int level = 1; level < 30; ++level) {
        const QByteArray before = "&e" + QByteArray::number(level - 1) + ";";
        document += "<!ENTITY e" + QByteArray::number(level) + " \"" + before.repeated(10) + "\">";
    }
    document += "]><plist><string>&e29;</string></plist>";
    EXPECT_FALSE(readDocument(document).has_value());
}

TEST(XmlPropertyListReader, read_answersNothing_whenCutAnywhere)
{
    const QByteArray whole =
        "<?xml version=\"1.0\"?>\n<!DOCTYPE plist SYSTEM \"x\">\n<plist><dict><key>a</key>"
        "<array><string>b&amp;</string><integer>12</integer><real>1.5</real><true/>"
        "<data>aGk=</data><date>2004-01-01T00:00:00Z</date></array></dict></plist>";
    ASSERT_TRUE(readDocument(whole).has_value());
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(readDocument(whole.first(size)).has_value()) << size;
}

} // namespace kestro
