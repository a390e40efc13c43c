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

TEST(PageRules, contentOfTheNet_fetchesFromItsOwnSiteAlone_asThatIsServed)
{
    for (const auto content : {PageRules::Content::Swf, PageRules::Content::Page}) {
        PageRules rules;
        rules.setContent(content, url("http://h/d/a"));
        for (const char* address :
             {"kestro-http://h/other/b.xml", "kestro-http://h:80/b", "blob:http://h/1", "data:,x"})
            EXPECT_TRUE(rules.mayFetch(url(address))) << address;
        for (const char* address :
             {"http://h/b", "kestro-http://h:81/b", "kestro-https://h/b", "kestro-http://www.h/b",
              "https://h/b", "kestro-http://127.0.0.1/b", "http://other/b", "ws://h/b", "wss://h/b",
              "file:///etc/passwd", "kestro-file:///a", "qrc:/web/Page.qml", "chrome://gpu"})
            EXPECT_FALSE(rules.mayFetch(url(address))) << address;
    }
}

TEST(PageRules, pageOfTheNet_neverSeesThePlayer)
{
    PageRules rules;
    rules.setContent(PageRules::Content::Page, url("http://h/a.html"));
    EXPECT_FALSE(rules.mayFetch(url("kestro-ruffle://player/ruffle.js")));
}

TEST(PageRules, swf_goesNowhere_aPageOnItsOwnSite)
{
    PageRules rules;
    rules.setContent(PageRules::Content::Swf, url("http://h/a.swf"));
    EXPECT_FALSE(rules.mayGoTo(url("kestro-http://h/b.html")));
    rules.setContent(PageRules::Content::Page, url("http://h/a.html"));
    EXPECT_TRUE(rules.mayGoTo(url("kestro-http://h/b.html")));
    for (const char* address : {"kestro-http://other/", "http://h/b.html", "mailto:ada@example.org"})
        EXPECT_FALSE(rules.mayGoTo(url(address))) << address;
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
