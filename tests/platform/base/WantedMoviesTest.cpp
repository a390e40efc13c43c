#include "platform/base/WantedMovies.h"

#include <gtest/gtest.h>

namespace kestro {

static const QList<QUrl> two{QUrl(QStringLiteral("http://h/a%20b.mp4?x=%0A")),
                             QUrl(QStringLiteral("https://ada:key@h/ä.mp4"))};

TEST(WantedMovies, list_isReadAsItWasWritten)
{
    for (const QList<QUrl>& wanted : {two, QList<QUrl>(), QList<QUrl>(two.first(1))}) {
        QByteArray text = textOf(wanted);
        EXPECT_EQ(takeWanted(text), wanted);
        EXPECT_TRUE(text.isEmpty());
    }
}

TEST(WantedMovies, list_isNone_untilItIsWhole)
{
    const QByteArray whole = textOf(two);
    for (qsizetype size = 0; size < whole.size(); ++size) {
        QByteArray text = whole.first(size);
        EXPECT_FALSE(takeWanted(text)) << size;
        EXPECT_EQ(text, whole.first(size));
        text += whole.sliced(size);
        EXPECT_EQ(takeWanted(text), two);
    }
}

TEST(WantedMovies, newestList_counts)
{
    QByteArray text = textOf(two) + textOf({}) + textOf(two.first(1)) + textOf(two).first(5);
    EXPECT_EQ(takeWanted(text), two.first(1));
    EXPECT_EQ(text, textOf(two).first(5));
}

} // namespace kestro
