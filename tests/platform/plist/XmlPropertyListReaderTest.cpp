#include "platform/base/Bounds.h"
#include "platform/plist/XmlPropertyList.h"

#include <QDateTime>
#include <QStringEncoder>
#include <QTimeZone>
#include <QXmlStreamReader>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace kestro {

namespace {

bool isWellFormed(const QByteArray& document)
{
    QXmlStreamReader reader(document);
    while (!reader.atEnd())
        reader.readNext();
    return !reader.hasError();
}

std::optional<QVariant> readValue(const QByteArray& element)
{
    return readXmlPropertyList("<plist version=\"1.0\">" + element + "</plist>");
}

QByteArray nestedIn(const QByteArray& name, const QByteArray& content)
{
    return "<" + name + ">" + content + "</" + name + ">";
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
        {"<date>2004-02-29T12:34:56Z</date>", QDateTime({2004, 2, 29}, {12, 34, 56}, QTimeZone::utc())},
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
    const auto found = readXmlPropertyList(R"(<?xml version="1.0" encoding="UTF-8"?>
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
        EXPECT_FALSE(readXmlPropertyList(document).has_value()) << document.constData();
}

TEST(XmlPropertyListReader, read_answersNothing_whenOneValueOfManyIsMalformed)
{
    EXPECT_FALSE(readValue("<array><true/><array><integer>x</integer></array><true/></array>").has_value());
    EXPECT_FALSE(readValue("<dict><key>a</key><date>x</date><key>b</key><true/></dict>").has_value());
}

// What pugixml would let pass.
TEST(XmlPropertyListReader, read_answersNothing_whenTheXMLIsNotProper)
{
    const std::vector<QByteArray> documents{
        "<?xml version=\"1.0\" encoding=\"UTF-16\"?><plist><true/></plist>",
        "<?xml version=\"1.0\"?>\xef\xbb\xbf<plist><true/></plist>",
        "<?xml version=\"1.1\"?><plist><true/></plist>",
        "<?xml encoding=\"UTF-8\"?><plist><true/></plist>",
        " <?xml version=\"1.0\"?><plist><true/></plist>",
        "<?xml version=\"1.0\"?><?xml version=\"1.0\"?><plist><true/></plist>",
        "<!DOCTYPE plist><!DOCTYPE plist><plist><true/></plist>",
        "<!DOCTYPE plist PUBLIC \"x\"><plist><true/></plist>",
        "<!DOCTYPEplist><plist><true/></plist>",
        "<plist><true/></plist><!DOCTYPE plist>",
        "<plist><true/></plist>u",
        "<plist><true/></plist>&amp;",
        "<plist><true/></plist><![CDATA[ ]]>",
        "<plist><true/></plist><",
        "<plist><true/></plist ",
        "text<plist><true/></plist>",
        "<!-- a -- b --><plist><true/></plist>",
        "<plist><array><!-- a ---></array></plist>",
        "<plist a=\"1\" a=\"2\"><true/></plist>",
        "<plist a=\"<\"><true/></plist>",
        "<plist a=\"&b;\"><true/></plist>",
        "<plist a=1><true/></plist>",
        "<p:plist><p:true/></p:plist>",
        "<plist xmlns:=\"u\"><true/></plist>",
        "<plist><array>&unknown;<true/></array></plist>",
        "<plist><array>a]]>b<true/></array></plist>",
        "<plist><string>a]]>b</string></plist>",
        "<plist><string>&amp</string></plist>",
        "<plist><string>&;</string></plist>",
        "<plist><string>&#0;</string></plist>",
        "<plist><string>&#1;</string></plist>",
        "<plist><string>&#xd800;</string></plist>",
        "<plist><string>&#x110000;</string></plist>",
        "<plist><string>&#+33;</string></plist>",
        "<plist><string>&#X21;</string></plist>",
        "<plist><string><![CDATA[\x01]]></string></plist>",
        "<plist><string>\xef\xbf\xbe</string></plist>",
        "<plist><string>\xed\xa0\x80</string></plist>",
        QByteArray("<plist><true/></plist>\0", 23),
        QByteArray("<plist><string>a\0b</string></plist>", 34),
    };
    for (const QByteArray& document : documents)
        EXPECT_FALSE(readXmlPropertyList(document).has_value()) << document.constData();
}

// Each byte of a document with everything in it is changed, taken away and repeated.
TEST(XmlPropertyListReader, read_answersNothing_whenAnotherReaderFindsItMalformed)
{
    const QByteArray document =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- a --><!DOCTYPE plist PUBLIC \"b\" 'c'>\n"
        "<plist version=\"1.0\"><dict><key>gr\xc3\xbcn&#xfc;</key><array><string>b&amp;<![CDATA[ c ]]>"
        "</string><integer>12</integer>d<true/><?e f?></array></dict></plist><!-- g -->\n";
    ASSERT_TRUE(readXmlPropertyList(document).has_value());
    const auto isReadAmiss = [](const QByteArray& spoilt) {
        return readXmlPropertyList(spoilt).has_value() && !isWellFormed(spoilt);
    };
    for (qsizetype at = 0; at < document.size(); ++at) {
        for (const char byte : QByteArrayView("<>&;/\"'!]#- \r\t0a:\x01\x7f\xc3\xff"))
            EXPECT_FALSE(isReadAmiss(QByteArray(document).replace(at, 1, &byte, 1))) << at << byte;
        EXPECT_FALSE(isReadAmiss(QByteArray(document).remove(at, 1))) << at;
        EXPECT_FALSE(isReadAmiss(QByteArray(document).insert(at, document.sliced(at, 1)))) << at;
    }
}

TEST(XmlPropertyListReader, read_keepsAllText_whereItStandsBesideSections)
{
    const std::vector<std::pair<QByteArray, QString>> cases{
        {"<string> </string>", QStringLiteral(" ")},
        {"<string> <!-- --> </string>", QStringLiteral("  ")},
        {"<string> a <?b c?> d\r\n<![CDATA[ &e; ]]> </string>", QStringLiteral(" a  d\n &e;  ")},
        {"<string>\xef\xbb\xbf&quot;&apos;&gt;</string>", QStringLiteral("\ufeff\"'>")},
    };
    for (const auto& [element, expected] : cases)
        EXPECT_EQ(readValue(element), QVariant(expected)) << element.constData();
}

TEST(XmlPropertyListReader, read_ignoresTextAndAttributes_thatMeanNothing)
{
    EXPECT_EQ(
        readXmlPropertyList("<plist a='&lt;' xmlns=\"c\">d<array e=\"f\">g<true/>h &amp;</array>i</plist>"),
        QVariant(QVariantList{true}));
}

TEST(XmlPropertyListReader, read_understandsEncodings_thatADocumentTellsOf)
{
    const QString text = QStringLiteral("<plist><string>grün</string></plist>");
    const QByteArray latin = "<?xml version='1.0' encoding='ISO-8859-1' standalone='yes'?>" + text.toLatin1();
    QStringEncoder wide(QStringEncoder::Utf16, QStringEncoder::Flag::WriteBom);
    const QByteArray marked = wide(QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-16\"?>") + text);
    const QByteArray markedToo = "\xef\xbb\xbf" + text.toUtf8();
    for (const QByteArray& document : {latin, marked, markedToo})
        EXPECT_EQ(readXmlPropertyList(document), QVariant(QStringLiteral("grün"))) << document.constData();
}

TEST(XmlPropertyListReader, read_keepsOneTextInMemory_whenItComesAgain)
{
    const auto found = readValue("<array><string>480 x 204</string><string>480 x 204</string></array>");
    ASSERT_TRUE(found.has_value());
    const QVariantList texts = found->toList();
    EXPECT_EQ(texts.at(0).toString().constData(), texts.at(1).toString().constData());
}

TEST(XmlPropertyListReader, read_answersNothing_whenThereAreMoreValuesThanItsBound)
{
    constexpr qsizetype mostInAnArray = Bounds::propertyListValues - 3; // beside it, the root and its version
    const auto values = [](qsizetype count) {
        return nestedIn("array", QByteArray("<true/>").repeated(count));
    };
    EXPECT_TRUE(readValue(values(mostInAnArray)).has_value());
    EXPECT_FALSE(readValue(values(mostInAnArray + 1)).has_value());
    EXPECT_FALSE(readValue("<array" + QByteArray(" a=''").repeated(mostInAnArray + 1) + "/>").has_value());
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
        EXPECT_FALSE(readXmlPropertyList(QByteArray("<") + element + ">").has_value()) << element;
    }
    EXPECT_FALSE(readXmlPropertyList("<plist>" + QByteArray("<dict><key/>").repeated(1'000'000)).has_value());
}

TEST(XmlPropertyListReader, read_answersNothing_whenEntitiesUnfoldWithoutBound)
{
    QByteArray document = "<!DOCTYPE plist [<!ENTITY e0 \"haha\">";
    for (int level = 1; level < 30; ++level) {
        const QByteArray before = "&e" + QByteArray::number(level - 1) + ";";
        document += "<!ENTITY e" + QByteArray::number(level) + " \"" + before.repeated(10) + "\">";
    }
    document += "]><plist><string>&e29;</string></plist>";
    EXPECT_FALSE(readXmlPropertyList(document).has_value());
}

TEST(XmlPropertyListReader, read_answersNothing_whenCutAnywhere)
{
    const QByteArray whole =
        "<?xml version=\"1.0\"?>\n<!DOCTYPE plist SYSTEM \"x\">\n<plist><dict><key>a</key>"
        "<array><string>b&amp;</string><integer>12</integer><real>1.5</real><true/>"
        "<data>aGk=</data><date>2004-01-01T00:00:00Z</date></array></dict></plist>";
    ASSERT_TRUE(readXmlPropertyList(whole).has_value());
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(readXmlPropertyList(whole.first(size)).has_value()) << size;
}

} // namespace kestro
