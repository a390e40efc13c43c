#include "trailers/ListRoom.h"

#include "platform/base/Bounds.h"
#include "platform/plist/XmlPropertyList.h"
#include "trailers/TrailerListFixture.h"
#include "trailers/TrailerRecordMap.h"

#include <QTimeZone>

namespace kestro {

namespace {

class ListRoomTest : public TrailerListFixture {
protected:
    static TrailerRecord recordOf(const QString& size)
    {
        TrailerRecord made = record("http://h/a.mov");
        made.size = size;
        return made;
    }

    ListRoom m_room;
};

/// What `record` adds to the file of a list.
qsizetype written(const TrailerRecord& record)
{
    const auto bytesOf = [](const QVariantList& records) {
        return xmlPropertyList(QVariantMap{{QStringLiteral("Trailers"), records}})->size();
    };
    return bytesOf({dictionaryOf(TrailerRecord()), dictionaryOf(record)}) -
           bytesOf({dictionaryOf(TrailerRecord())});
}

} // namespace

TEST_F(ListRoomTest, bytesInFile_areNoFewerThanAreWritten_whateverARecordHolds)
{
    TrailerRecord full = record("http://h/a.mov");
    full.ac = true;
    TrailerRecord odd = full;
    odd.other = {
        {QStringLiteral("Sel"), true},
        {QStringLiteral("n\"&"), -9'000'000'000'000'000'000LL},
        {QStringLiteral("r"), -1.2345678901234567e-300},
        {QStringLiteral("d"), QByteArray(1000, 'x')},
        {QStringLiteral("e"), QByteArray("x")},
        {QStringLiteral("t"), QDateTime(QDate(2008, 3, 14), QTime(), QTimeZone::utc())},
        {QStringLiteral("l"), QVariantList{QVariantList{QVariantList{5, QVariantMap()}}}},
        {QStringLiteral("m"), QVariantMap{{QStringLiteral("m"), QVariantMap{{QStringLiteral("m"), 1}}}}}};
    for (const TrailerRecord& one :
         {TrailerRecord(), full, odd, recordOf(QString(1000, u'"')), recordOf(QString(1000, u'&')),
          recordOf(QString(1000, u'\r')), recordOf(QString(1000, QChar(0xe4))),
          recordOf(QString(1000, QChar(0xffe6))), recordOf(QStringLiteral("\U0001f600").repeated(500))})
        EXPECT_GE(bytesInFile(one), written(one)) << one.size.value_or(QString()).left(4).toStdString();
}

TEST_F(ListRoomTest, takeTrailer_leavesOut_whatGoesBeyondTheBytes)
{
    const auto half = recordOf(QString(Bounds::listBytes / 2, u'x'));
    EXPECT_TRUE(m_room.takeTrailer(half, nullptr));
    EXPECT_FALSE(m_room.isFull());
    EXPECT_FALSE(m_room.takeTrailer(half, nullptr));
    EXPECT_TRUE(m_room.isFull());
    EXPECT_TRUE(m_room.takeTrailer(recordOf(QStringLiteral("480 x 204")), nullptr));
}

TEST_F(ListRoomTest, takeTrailer_countsTheDifference_whenOneTakesTheOthersPlace)
{
    const auto half = recordOf(QString(Bounds::listBytes / 2, u'x'));
    ASSERT_TRUE(m_room.takeTrailer(half, nullptr));
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(m_room.takeTrailer(half, &half));
    EXPECT_TRUE(m_room.takeTrailer(recordOf({}), &half));
    EXPECT_TRUE(m_room.takeTrailer(half, nullptr));
    EXPECT_FALSE(m_room.isFull());
}

TEST_F(ListRoomTest, takeTrailer_leavesOut_whatIsOneTooMany)
{
    const TrailerRecord small = recordOf(QStringLiteral("1 x 1"));
    for (qsizetype i = 0; i < Bounds::listedTrailers; ++i)
        ASSERT_TRUE(m_room.takeTrailer(small, nullptr)) << i;
    EXPECT_FALSE(m_room.takeTrailer(small, nullptr));
    EXPECT_TRUE(m_room.takeTrailer(small, &small));
}

TEST_F(ListRoomTest, takePage_leavesOut_whatIsOneTooMany)
{
    for (qsizetype i = 0; i < Bounds::listedPages; ++i)
        ASSERT_TRUE(m_room.takePage("http://h/a/")) << i;
    EXPECT_FALSE(m_room.takePage("http://h/a/"));
    EXPECT_TRUE(m_room.isFull());
}

TEST_F(ListRoomTest, givePage_makesRoomForOneMore)
{
    const std::string half(std::size_t(Bounds::listBytes) / 2, 'x');
    ASSERT_TRUE(m_room.takePage(half));
    ASSERT_FALSE(m_room.takePage(half));
    m_room.givePage(half);
    EXPECT_TRUE(m_room.takePage(half));
}

// Whatever a site names, its list is saved, and read again as it was.
TEST_F(ListRoomTest, listThatIsFull_isSavedAndReadAgain_whateverFilledIt)
{
    TrailerList list(m_home.path(), seed());
    const QString worst(1'000'000, u'"');
    for (int i = 0; !list.isFull(); ++i) {
        TrailerRecord one = recordOf(worst);
        one.url = QStringLiteral("http://h/%1.mov").arg(i);
        list.store({one});
        list.addPassed(("http://h/" + std::string(100'000, '&') + std::to_string(i)).c_str());
        ASSERT_LT(i, 100);
    }
    const auto count = list.count();
    EXPECT_GT(count, 5);
    ASSERT_TRUE(list.saveList());
    list.load();
    EXPECT_EQ(list.count(), count);
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(ListRoomTest, fileOfMoreThanThereIsRoomFor_isReadInPart_withOneLine)
{
    QVariantList sites;
    for (qsizetype i = 0; i <= Bounds::listedPages; ++i)
        sites.append(QString::number(i));
    QVariantMap file = listOf({stored(QStringLiteral("http://h/a.mov"))});
    file.insert(QStringLiteral("Sites"), sites);
    writeFile(file);
    TrailerList list(m_home.path(), seed());
    list.load();
    EXPECT_EQ(list.passedList().size(), Bounds::listedPages);
    ASSERT_EQ(m_log.size(), 1);
    EXPECT_TRUE(m_log.front().contains(path()));
    EXPECT_TRUE(list.saveList());
}

} // namespace kestro
