#include "host/render/PictureQueue.h"

#include "host/render/PictureFolder.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

class PictureQueueTest : public testing::Test {
protected:
    QTemporaryDir home;
    PictureFolder folder{PictureFolder::open(home.path()).value()};
    QImage picture{8, 8, QImage::Format_RGB32};
};

} // namespace

TEST_F(PictureQueueTest, finish_leavesEveryPictureWritten_whenMoreAreAddedThanWait)
{
    PictureQueue queue(folder);
    for (int i = 0; i < 20; ++i)
        queue.add(picture, 0, i);
    queue.finish();
    EXPECT_EQ(QDir(home.path()).entryList(QDir::Files).size(), 20);
    EXPECT_TRUE(queue.written().isOk());
}

TEST_F(PictureQueueTest, destructor_waitsForWhatIsLeft_whenNotFinished)
{
    {
        PictureQueue queue(folder);
        queue.add(picture, 2, 1);
    }
    EXPECT_TRUE(QDir(home.path()).exists(PictureFolder::pictureName(2, 1)));
}

TEST_F(PictureQueueTest, failure_isTheFirst_whenSeveralPicturesCannotBeWritten)
{
    ASSERT_TRUE(QDir(home.path()).removeRecursively());
    PictureQueue queue(folder);
    queue.add(picture, 0, 1);
    queue.add(picture, 0, 2);
    queue.finish();
    ASSERT_FALSE(queue.written().isOk());
    EXPECT_TRUE(queue.written().error().contains(PictureFolder::pictureName(0, 1)));
}

} // namespace kestro
