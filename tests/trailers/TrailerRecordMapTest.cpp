#include "trailers/TrailerRecordMap.h"

#include <gtest/gtest.h>

namespace kestro {

TEST(TrailerRecordMap, trailerRecord_holdsWhatTheDictionaryHolds)
{
    const QVariantMap stored{{QStringLiteral("URL"), QStringLiteral("http://h/a.mov")},
                             {QStringLiteral("Size"), QStringLiteral("480 x 204")},
                             {QStringLiteral("Date"), QStringLiteral("2008/03/14")},
                             {QStringLiteral("AC"), QStringLiteral("Y")},
                             {QStringLiteral("Sel"), true}};
    const TrailerRecord record = trailerRecord(stored);
    EXPECT_EQ(record.url, QStringLiteral("http://h/a.mov"));
    EXPECT_EQ(record.size, QStringLiteral("480 x 204"));
    EXPECT_EQ(record.date, QStringLiteral("2008/03/14"));
    EXPECT_TRUE(record.ac);
    EXPECT_EQ(record.other, (QVariantMap{{QStringLiteral("Sel"), true}}));
    EXPECT_EQ(dictionaryOf(record), stored);
}

TEST(TrailerRecordMap, trailerRecord_leavesOutWhatNoFileCanHold_alsoInWhatItDoesNotKnow)
{
    const QVariantMap inner{{QStringLiteral("a\x01"), QVariantList{QStringLiteral("b\x02")}}};
    const TrailerRecord record =
        trailerRecord({{QStringLiteral("URL"), QStringLiteral("u\x03")}, {QStringLiteral("k\x04"), inner}});
    const QVariantMap cleanInner{{QStringLiteral("a"), QVariantList{QStringLiteral("b")}}};
    EXPECT_EQ(record.url, QStringLiteral("u"));
    EXPECT_EQ(record.other, (QVariantMap{{QStringLiteral("k"), cleanInner}}));
}

} // namespace kestro
