#include "platform/base/ShownURL.h"

#include "platform/base/Bounds.h"

#include <QString>
#include <QUrl>

#include <gtest/gtest.h>
#include <vector>

namespace kestro {

namespace {

struct Case {
    const char* given;
    const char* expected;
};

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// Each is what lets others in, somewhere in the lines below.
const std::vector<const char*> secrets{"me", "pw", "tok", "pass", "word", "frag"};

const std::vector<Case> lines{
    {"Connection to tcp://h:554 refused", "Connection to tcp://h:554 refused"},
    {"rtsp://me:pw@h/x: refused", "rtsp://h/x: refused"},
    {"RTSP://ME:pw@h/x", "RTSP://h/x"},
    {"http://me@h/x", "http://h/x"},
    {"http://me:p@ss:word@h:81/x", "http://h:81/x"},
    {"http://me:p%40ss%3Aword@h/x", "http://h/x"},
    {"http://me:pa/ss@h/x", "http://h/x"},
    {"http://me:pa?ss@h/x", "http://h/x"},
    {"http://me:pa#ss@h/x", "http://h/x"},
    {"http://me:p@s/word@h/x", "http://h/x"},
    {"http://me:my pass@h/x failed", "http://h/x failed"},
    {"http:/me:pw@h/x", "http:/h/x"},
    {"http:\\\\me:pw@h\\x", "http:\\\\h\\x"},
    {"http:////me:pw@h/x", "http:////h/x"},
    {"http://me:pw@[::1]:81/x", "http://[::1]:81/x"},
    {"http://[2001:db8::7]/x?tok", "http://[2001:db8::7]/x?…"},
    {"http://h/x?tok=1: 404", "http://h/x?…: 404"},
    {"http://h/x?tok=1#frag, then", "http://h/x?…, then"},
    {"http://h/x#frag", "http://h/x#…"},
    {"http://h?tok", "http://h?…"},
    {"http://h/x;tok=1/y;tok/z", "http://h/x;…/y;…/z"},
    {"http://h/x;tok=1", "http://h/x;…"},
    {"open 'http://h/x?tok=a'b' now", "open 'http://h/x?…' now"},
    {"open \"http://me:pw@h/x\" now", "open \"http://h/x\" now"},
    {"(see http://h/x?tok)", "(see http://h/x?…)"},
    {"(http://h/a(b)?tok)", "(http://h/a(b)?…)"},
    {"<http://h/x?tok>", "<http://h/x?…>"},
    {"http://h/x?tok|b,\"c<d>e", "http://h/x?…"},
    {"a http://me:pw@h/x b http://me:pw@i/y?tok c", "a http://h/x b http://i/y?… c"},
    {"edl://http://me:pw@h/x?tok", "edl://http://h/x?…"},
    {"concat:http://me:pw@h/x|http://me:pw@i/y", "concat:http://h/x|http://i/y"},
    {"http://proxy/http://me:pw@h/x", "http://proxy/http://h/x"},
    {"http://proxy/http%3a%2F%2Fme%3Apw%40h/x", "http://proxy/http%…/x"},
    {"data:video/mp4;base64,tokAAAA= is long", "data:… is long"},
    {"DATA:,tok", "DATA:…"},
    {"'data:text/html,<tok>'", "'data:…'"},
};

} // namespace

TEST(ShownURL, withoutSecrets_leavesOutWhatLetsIn)
{
    for (const Case& c : lines)
        EXPECT_EQ(withoutSecrets(text(c.given)).toStdString(), c.expected) << c.given;
}

TEST(ShownURL, withoutSecrets_showsNoneOfThem)
{
    for (const Case& c : lines)
        for (const char* secret : secrets)
            EXPECT_FALSE(withoutSecrets(text(c.given)).contains(text(secret), Qt::CaseInsensitive))
                << c.given;
}

TEST(ShownURL, withoutSecrets_changesNothing_whenDoneTwice)
{
    for (const Case& c : lines) {
        const QString once = withoutSecrets(text(c.given));
        EXPECT_EQ(withoutSecrets(once).toStdString(), once.toStdString()) << c.given;
    }
}

TEST(ShownURL, withoutSecrets_leavesALineAsItIs_whenNothingInItIsSecret)
{
    for (const char* line : {"",
                             "plain",
                             "no: URL",
                             "a: b@c",
                             "12:30:05",
                             "C:\\Films\\a.mov",
                             "std::string",
                             "x:/y",
                             "data: none",
                             "file:///Films/My Film; part 2.mov: no such file",
                             "http://h/@someone/x.mov",
                             "http://h:8080: refused",
                             "http://h:: odd",
                             "http://h/a:b@c",
                             "https://h/",
                             "http://h",
                             "://",
                             ":",
                             "http://",
                             "Failed to load movie:file:///Films/a%20b.mov"}) {
        EXPECT_EQ(withoutSecrets(text(line)).toStdString(), line);
    }
}

TEST(ShownURL, shownURL_isOneWordWithoutSecrets)
{
    for (const Case& c : std::vector<Case>{{"http://me:pw@h:81/x.mov?tok=1#frag", "http://h:81/x.mov?…"},
                                           {"HTTP://me@H/x.mov#frag", "http://h/x.mov"},
                                           {"http://h/x;tok=1/y.mov", "http://h/x;…/y.mov"},
                                           {"http://h/a b/ü\n.mov", "http://h/a%20b/%C3%BC%0A.mov"},
                                           {"http://me:pw@[::1]/x.mov", "http://[::1]/x.mov"},
                                           {"file:///Films/a;b c.mov", "file:///Films/a;b%20c.mov"},
                                           {"file:///Films/%23 1?.mov", "file:///Films/%23%201?…"},
                                           {"data:video/mp4,tok", "data:…"},
                                           {"auto://x/6/480", "auto://x/6/480"},
                                           {"x.mov?tok", "x.mov?…"},
                                           {"", "(no valid URL)"},
                                           {"http://me:pw@h:99999/", "(no valid URL)"}})
        EXPECT_EQ(shownURL(QUrl(text(c.given))).toStdString(), c.expected) << c.given;
}

TEST(ShownURL, shownURL_leavesOutTheMiddle_whenLong)
{
    const QString shown =
        shownURL(QUrl(QStringLiteral("http://host/") + QString(5000, u'a') + QStringLiteral("/last.mov")));
    EXPECT_EQ(shown.size(), Bounds::shownURLCharacters);
    EXPECT_TRUE(shown.startsWith(u"http://host/aaa"));
    EXPECT_TRUE(shown.endsWith(u"aaa/last.mov"));
    EXPECT_EQ(shown.count(u'…'), 1);
}

TEST(ShownURL, shownURL_isWhole_whenAsLongAsMayBe)
{
    const QString longest = QStringLiteral("http://host/") + QString(Bounds::shownURLCharacters - 12, u'a');
    EXPECT_EQ(shownURL(QUrl(longest)), longest);
}

} // namespace kestro
