#include "engine/NeverList.h"

#include "platform/base/Log.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

class NeverListTest : public testing::Test {
protected:
    QByteArray text() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void write(const QByteArray& bytes) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QTemporaryDir folder;
    const QString path = folder.path() + QStringLiteral("/state/never");
    const QUrl cat{QStringLiteral("file:///films/the%20cat.mp4")};
    const QUrl dog{QStringLiteral("http://films.example/dog.mp4?a=1")};
    std::vector<QString> said;
    LogCapture capture{[this](const QString& line) { said.push_back(line); }};
};

} // namespace

TEST_F(NeverListTest, holdsWhatWasAdded_inLaterRunsToo)
{
    NeverList(path).add(cat);
    NeverList(path).add(dog);
    const NeverList later(path);
    EXPECT_TRUE(later.holds(cat));
    EXPECT_TRUE(later.holds(dog));
    EXPECT_FALSE(later.holds(QUrl(QStringLiteral("file:///films/other.mp4"))));
    EXPECT_EQ(text(), "file:///films/the%20cat.mp4\nhttp://films.example/dog.mp4?a=1\n");
}

TEST_F(NeverListTest, takeBack_takesTheLastOne_untilNoneIsLeft)
{
    NeverList list(path);
    list.add(cat);
    list.add(dog);
    EXPECT_EQ(list.takeBack(), dog);
    EXPECT_FALSE(list.holds(dog));
    EXPECT_TRUE(list.holds(cat));
    EXPECT_EQ(list.takeBack(), cat);
    EXPECT_EQ(list.takeBack(), std::nullopt);
    EXPECT_EQ(text(), "");
}

TEST_F(NeverListTest, movie_isThereOnce_asTheLastOne)
{
    NeverList list(path);
    list.add(cat);
    list.add(dog);
    list.add(cat);
    EXPECT_EQ(list.takeBack(), cat);
    EXPECT_FALSE(list.holds(cat));
}

TEST_F(NeverListTest, makesNoFile_whileNothingIsAdded)
{
    NeverList list(path);
    EXPECT_EQ(list.takeBack(), std::nullopt);
    EXPECT_FALSE(QFileInfo::exists(folder.path() + QStringLiteral("/state")));
    EXPECT_TRUE(said.empty());
}

TEST_F(NeverListTest, keepsWhatOthersWroteMeanwhile)
{
    NeverList first(path);
    NeverList second(path);
    first.add(cat);
    second.add(dog);
    const NeverList later(path);
    EXPECT_TRUE(later.holds(cat));
    EXPECT_TRUE(later.holds(dog));
}

TEST_F(NeverListTest, readsWhatWasWrittenByHand_andSaysHowManyThereAre)
{
    NeverList(path).add(dog);
    write("\n file:///films/the cat.mp4 \r\n\n");
    const NeverList list(path);
    EXPECT_TRUE(list.holds(cat));
    EXPECT_FALSE(list.holds(dog));
    EXPECT_EQ(said, std::vector{QStringLiteral("Never played, as %1 says: 1 movies.").arg(path)});
}

TEST_F(NeverListTest, leavesAFileAsItIs_thatCannotBeRead)
{
    NeverList(path).add(cat);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(17LL * 1024 * 1024)); // too large
    file.close();
    NeverList list(path);
    list.add(dog);
    EXPECT_TRUE(list.holds(dog)); // in this run
    EXPECT_EQ(QFileInfo(path).size(), 17LL * 1024 * 1024);
    EXPECT_FALSE(said.empty());
}

} // namespace kestro
