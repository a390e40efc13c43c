#include "platform/web/helper/PageRules.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

QUrl url(const char* text)
{
    return QUrl(QString::fromLatin1(text));
}

TEST(PageRules, swfOfAFile_fetchesNothingButWhatThePlayerServes)
{
    PageRules rules;
    rules.setContent(PageRules::Content::Swf, url("file:///m/a.swf"));
    EXPECT_TRUE(rules.mayFetch(url("kestro-ruffle://player/ruffle.js")));
    EXPECT_TRUE(rules.mayFetch(url("data:text/html,x")));
    for (const char* address :
         {"file:///m/a.swf", "file:///etc/passwd", "http://h/a", "https://h/a", "ws://h/a", "ftp://h/"})
        EXPECT_FALSE(rules.mayFetch(url(address))) << address;
}

TEST(PageRules, swfOfTheNet_fetchesFromItsOwnSiteAlone)
{
    PageRules rules;
    rules.setContent(PageRules::Content::Swf, url("http://h/d/a.swf"));
    EXPECT_TRUE(rules.mayFetch(url("http://h/other/b.xml")));
    EXPECT_TRUE(rules.mayFetch(url("http://h:80/b")));
    for (const char* address :
         {"http://h:81/b", "https://h/b", "http://www.h/b", "http://other/b", "file:///a", "ws://h/b"})
        EXPECT_FALSE(rules.mayFetch(url(address))) << address;
}

TEST(PageRules, swf_goesNowhere)
{
    PageRules rules;
    rules.setContent(PageRules::Content::Swf, url("http://h/a.swf"));
    EXPECT_FALSE(rules.mayGoTo(url("http://h/b.html")));
}

TEST(PageRules, pageOfTheNet_fetchesFromTheNetAlone)
{
    PageRules rules;
    rules.setContent(PageRules::Content::Page, url("http://h/a.html"));
    for (const char* address : {"http://h/b", "https://other/b", "wss://h/b", "blob:http://h/1", "data:,x"})
        EXPECT_TRUE(rules.mayFetch(url(address))) << address;
    for (const char* address :
         {"file:///etc/passwd", "kestro-ruffle://player/ruffle.js", "qrc:/web/Page.qml", "chrome://gpu"})
        EXPECT_FALSE(rules.mayFetch(url(address))) << address;
    EXPECT_TRUE(rules.mayGoTo(url("https://other/")));
    EXPECT_FALSE(rules.mayGoTo(url("mailto:ada@example.org")));
}

TEST(PageRules, pageOfAFile_fetchesFromItsFolderAlone)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("pages/in")));
    for (const char* name : {"pages/a.html", "pages/in/b.png", "secret.txt"})
        ASSERT_TRUE(QFile(folder.filePath(QString::fromLatin1(name))).open(QIODevice::WriteOnly));
    const auto inside = [&](const char* name) {
        return QUrl::fromLocalFile(folder.path() + u'/' + QString::fromLatin1(name));
    };
    PageRules rules;
    rules.setContent(PageRules::Content::Page, inside("pages/a.html"));
    EXPECT_TRUE(rules.mayFetch(inside("pages/in/b.png")));
    EXPECT_TRUE(rules.mayGoTo(inside("pages/a.html")));
    EXPECT_FALSE(rules.mayFetch(inside("secret.txt")));
    EXPECT_FALSE(rules.mayFetch(inside("pages/../secret.txt")));
    EXPECT_FALSE(rules.mayFetch(url("http://h/b.png")));
}

} // namespace

} // namespace kestro
