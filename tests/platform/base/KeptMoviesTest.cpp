#include "platform/base/KeptMovies.h"

#include "platform/base/ScopedEnvironment.h"

#include <QUrl>

#include <gtest/gtest.h>

namespace kestro {

static QUrl url(const char* text)
{
    return QUrl(QLatin1String(text));
}

TEST(KeptMovies, folder_isAmongThePersonsCaches)
{
    const ScopedEnvironment home("KESTRO_HOME", "/somewhere");
    EXPECT_EQ(keptMoviesFolder(), QStringLiteral("/somewhere/.cache/kestro/movies"));
}

TEST(KeptMovies, moviesOnTheWeb_canBeKept)
{
    for (const char* text : {"http://h/a.mp4", "https://h/a", "http://h/a.mov?key=1", "http://h/m3u8/a.mp4"})
        EXPECT_TRUE(canBeKept(url(text))) << text;
}

TEST(KeptMovies, whatIsNoMovieOfTheWeb_cannotBeKept)
{
    for (const char* text :
         {"file:///a.mp4", "ftp://h/a.mp4", "http:///a.mp4", "http://h/a.swf", "http://h/a.m3u8",
          "http://h/a.M3U8?x=1", "https://h/live.mpd", "http://h/a.m3u", "auto://LatestTrailers/6/480", ""})
        EXPECT_FALSE(canBeKept(url(text))) << text;
}

TEST(KeptMovies, name_isOfTheWholeAddress)
{
    const QString name = keptName(url("http://h/a.mp4?key=1"));
    EXPECT_EQ(name.size(), 64);
    EXPECT_EQ(keptName(url("http://h/a.mp4?key=1#part")), name);
    for (const char* text : {"http://h/a.mp4", "http://h/a.mp4?key=2", "https://h/a.mp4?key=1",
                             "http://ada@h/a.mp4?key=1", "http://h:81/a.mp4?key=1"})
        EXPECT_NE(keptName(url(text)), name) << text;
    EXPECT_EQ(keptMovieFile(QStringLiteral("/f"), url("http://h/a.mp4?key=1")),
              QStringLiteral("/f/") + name + QStringLiteral(".movie"));
}

} // namespace kestro
