#include "settings/ListMovies.h"

#include "platform/base/Bounds.h"
#include "platform/base/Log.h"

#include <QUrl>

#include <gtest/gtest.h>

namespace kestro {

namespace {

class ListMoviesTest : public testing::Test {
protected:
    static QStringList read(const QString& path, const QByteArray& text)
    {
        QStringList movies;
        for (const QUrl& url : moviesOfList(path, text))
            movies.append(url.toString(QUrl::FullyEncoded));
        return movies;
    }
    static QStringList lines(const QByteArray& text) { return read("/home/ada/films.m3u", text); }
    static QStringList tracks(const QByteArray& tracks)
    {
        return read(
            "/home/ada/films.XSPF",
            R"(<?xml version="1.0"?><playlist xmlns="http://xspf.org/ns/0/" xmlns:x="urn:x"><trackList>)" +
                tracks + "</trackList></playlist>");
    }

    QStringList log;
    LogCapture capture{[this](const QString& line) { log.append(line); }};
};

const QByteArray manyLines(qsizetype count)
{
    return QByteArray("a.mov\n").repeated(count);
}

} // namespace

TEST_F(ListMoviesTest, list_isCalledByItsExtension)
{
    for (const char* name : {"/a.m3u", "/a.M3U8", "/b c.xspf"})
        EXPECT_TRUE(isCalledAsList(QString::fromUtf8(name))) << name;
    for (const char* name : {"/a.mov", "/m3u", "/a.m3u.mov", "/a.pls", ""})
        EXPECT_FALSE(isCalledAsList(QString::fromUtf8(name))) << name;
}

TEST_F(ListMoviesTest, line_isAPathOrAnAddress)
{
    struct Case {
        const char* line;
        const char* url;
    };
    for (const Case& c :
         {Case{"a.mov", "file:///home/ada/a.mov"}, Case{"../b c.mov", "file:///home/b%20c.mov"},
          Case{"/films/\xc3\xbc%20?#.mov", "file:///films/%C3%BC%2520%3F%23.mov"},
          Case{"file:///films/a%20b.mov", "file:///films/a%20b.mov"},
          Case{"http://example.com/a.m3u8?b=1", "http://example.com/a.m3u8?b=1"},
          Case{"HTTPS://example.com/a.mov", "https://example.com/a.mov"},
          Case{"one: two.mov", "file:///home/ada/one:%20two.mov"}})
        EXPECT_EQ(lines(c.line), QStringList(QString::fromUtf8(c.url))) << c.line;
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(ListMoviesTest, lines_mayEndAsInWindows_andBeginWithAMark)
{
    EXPECT_EQ(lines("\xef\xbb\xbf#EXTM3U\r\n#EXTINF:12,A\r\na.mov\r\n\r\n  b.mov"),
              (QStringList{"file:///home/ada/a.mov", "file:///home/ada/b.mov"}));
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(ListMoviesTest, whatIsNoMovie_isLeftOut_withOneLine)
{
    EXPECT_EQ(lines("b.m3u\nfolder:///home\nauto://LatestTrailers/1/2\nftp://a/b.mov\nfile://server/a.mov\n"
                    "file:///c.xspf\n/home/\nhttp:///a.mov\na.mov\n"),
              QStringList("file:///home/ada/a.mov"));
    EXPECT_EQ(log, QStringList("/home/ada/films.m3u: entries that are left out: 8."));
}

TEST_F(ListMoviesTest, moviesBeyondTheBound_areLeftOut)
{
    EXPECT_EQ(lines(manyLines(Bounds::listFileMovies)).size(), Bounds::listFileMovies);
    EXPECT_TRUE(log.isEmpty());
    EXPECT_EQ(lines(manyLines(Bounds::listFileMovies + 3)).size(), Bounds::listFileMovies);
    EXPECT_EQ(log, QStringList("/home/ada/films.m3u: entries that are left out: 3."));
}

TEST_F(ListMoviesTest, longText_namesNothing)
{
    const QByteArray longest = "a.mov\n#" + QByteArray(Bounds::listFileBytes - 7, 'x');
    EXPECT_EQ(lines(longest).size(), 1);
    EXPECT_TRUE(lines(longest + 'x').isEmpty());
    EXPECT_EQ(log, QStringList("/home/ada/films.m3u: a playlist of more than 1048576 bytes is left out."));
}

TEST_F(ListMoviesTest, track_isAtItsFirstLocation)
{
    EXPECT_EQ(
        tracks("<track><title>A</title><location> a%20b.mov </location><location>c.mov</location></track>"
               "<track/><track><location>http://example.com/?a=1&amp;b=2</location></track>"
               "<track><location><![CDATA[../d.mov]]></location></track>"),
        (QStringList{"file:///home/ada/a%20b.mov", "http://example.com/?a=1&b=2", "file:///home/d.mov"}));
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(ListMoviesTest, track_isLeftOut_whereItIsNoMovie)
{
    EXPECT_TRUE(tracks("<track><location>b.xspf</location></track>"
                       "<track><location>folder:///a</location></track>")
                    .isEmpty());
    EXPECT_EQ(log, QStringList("/home/ada/films.XSPF: entries that are left out: 2."));
}

TEST_F(ListMoviesTest, whatIsNoXspf_namesNothing)
{
    for (const char* text : {"", "a.mov", "<playlist><trackList>", "<other><trackList/></other>"}) {
        log.clear();
        EXPECT_TRUE(read("/a.xspf", text).isEmpty()) << text;
        EXPECT_EQ(log, QStringList("/a.xspf: not a playlist.")) << text;
    }
}

TEST_F(ListMoviesTest, entityOfADocumentItself_standsForNothing)
{
    EXPECT_EQ(read("/a.xspf",
                   "<!DOCTYPE playlist [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><playlist><trackList>"
                   "<track><location>/x&e;y</location></track></trackList></playlist>"),
              QStringList("file:///x&e;y"));
}

} // namespace kestro
