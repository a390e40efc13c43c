#include "engine/MoviesAhead.h"

#include <gtest/gtest.h>

using namespace kestro;

namespace {

QUrl movie(const QString& name)
{
    return QUrl(QStringLiteral("http://h/") + name);
}

QList<QUrl> movies(std::initializer_list<const char*> names)
{
    QList<QUrl> list;
    for (const char* name : names)
        list.append(movie(QLatin1String(name)));
    return list;
}

bool isTrailer(const QUrl& url)
{
    return url.path().startsWith(QStringLiteral("/t"));
}

} // namespace

TEST(MoviesAhead, whatFollows_comesFirst_andWhatPlaysLast)
{
    MoviesAhead ahead;
    const QList<QUrl> list = movies({"a", "b", "c", "d"});
    EXPECT_EQ(ahead.after(movie(QStringLiteral("b")), list, isTrailer), movies({"c", "d", "a", "b"}));
    EXPECT_EQ(ahead.after(movie(QStringLiteral("d")), list, isTrailer), movies({"a", "b", "c", "d"}));
}

TEST(MoviesAhead, trailers_comeBeforeAllOthers_inTheirOwnOrder)
{
    MoviesAhead ahead;
    const QList<QUrl> list = movies({"a", "t1", "t2", "b", "t3"});
    EXPECT_EQ(ahead.after(movie(QStringLiteral("a")), list, isTrailer), movies({"t1", "t2", "t3", "b", "a"}));
    EXPECT_EQ(ahead.after(movie(QStringLiteral("t2")), list, isTrailer),
              movies({"t1", "t3", "b", "a", "t2"}));
}

TEST(MoviesAhead, onlyMoviesOfTheWeb_areFetched_eachOnce)
{
    MoviesAhead ahead;
    QList<QUrl> list = movies({"a", "b.swf", "a", "c.m3u8", "d"});
    list.prepend(QUrl(QStringLiteral("file:///m.mp4")));
    EXPECT_EQ(ahead.after(list.front(), list, isTrailer), movies({"a", "d"}));
    EXPECT_EQ(ahead.after({}, {}, isTrailer), QList<QUrl>());
}

TEST(MoviesAhead, longList_isCut)
{
    MoviesAhead ahead;
    QList<QUrl> list;
    for (int number = 0; number < 200; ++number)
        list.append(movie(QString::number(number)));
    const QList<QUrl> wanted = ahead.after(list[150], list, isTrailer);
    ASSERT_EQ(wanted.size(), MoviesAhead::most);
    EXPECT_EQ(wanted.front(), list[151]);
    EXPECT_EQ(wanted.back(), list[(151 + 63) % 200]);
}

TEST(MoviesAhead, otherList_isReadAnew)
{
    MoviesAhead ahead;
    EXPECT_EQ(ahead.after({}, movies({"a"}), isTrailer), movies({"a"}));
    EXPECT_EQ(ahead.after({}, movies({"b"}), isTrailer), movies({"b"}));
    EXPECT_EQ(ahead.after({}, movies({"b", "c"}), isTrailer), movies({"b", "c"}));
}
