#include "platform/movie/BackwardsPlayer.h"

#include "platform/base/Clock.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "platform/display/view/Layer.h"
#include "platform/movie/MovieServer.h"
#include "platform/movie/MovieTeardown.h"
#include "platform/movie/MovieTest.h"

#include <gtest/gtest.h>
#include <vector>

using namespace kestro;

namespace {

constexpr double picture = 1 / 30.0;

class BackwardsPlayerTest : public testing::Test, private BackwardsListener {
protected:
    void open(const QUrl& url, std::size_t mostBytes = 256'000'000)
    {
        m_player = std::make_unique<BackwardsPlayer>(
            BackwardsSetup{.url = url, .longestRead = m_longestRead, .mostBytes = mostBytes},
            static_cast<BackwardsListener&>(*this), m_clock, m_timers);
    }
    void open(const char* name, std::size_t mostBytes = 256'000'000) { open(testMovie(name), mostBytes); }

    /// Waits until there is a picture, however long it takes to decode.
    [[nodiscard]] bool waitForPicture()
    {
        return waitUntil([this] { return !m_player->isLate() || !m_reason.isEmpty(); }) && m_reason.isEmpty();
    }
    /// Lets time pass, but none while pictures are late.
    [[nodiscard]] bool pass(double seconds)
    {
        for (double left = seconds; left > 0; left -= picture / 4) {
            if (m_over) return true;
            if (!waitForPicture()) return false;
            m_timers.advance(std::min(left, picture / 4));
        }
        return true;
    }
    [[nodiscard]] int shown(int width = 320, int height = 180)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        const PixelTarget target{image.bits(), width, height, static_cast<int>(image.bytesPerLine())};
        return m_player->render(target) ? numberIn(image) : -1;
    }

    ManualClock m_clock;
    ManualTimerSource m_timers{m_clock};
    std::unique_ptr<BackwardsPlayer> m_player;
    std::chrono::milliseconds m_longestRead = std::chrono::seconds(60);
    std::vector<int> m_numbers;
    std::function<void()> m_onPicture = [this] { m_numbers.push_back(shown()); };
    std::function<void()> m_onBeginning;
    QString m_reason;
    bool m_over = false;

private:
    void backwardsHasFrame() override { m_onPicture(); }
    void backwardsReachedBeginning() override
    {
        m_over = true;
        if (m_onBeginning) m_onBeginning();
    }
    void backwardsFailed(const QString& reason) override { m_reason = reason; }
};

} // namespace

TEST_F(BackwardsPlayerTest, standsAtTheLastPicture_oncePrepared)
{
    open("plain.mp4");
    m_player->prepare(2);
    EXPECT_FALSE(m_player->hasFrame());
    EXPECT_EQ(shown(), -1);
    ASSERT_TRUE(waitForPicture());
    EXPECT_TRUE(m_player->hasFrame());
    m_timers.advance(10);
    EXPECT_EQ(m_numbers, std::vector{59});
    EXPECT_EQ(m_player->position(), 2);
}

TEST_F(BackwardsPlayerTest, showsEachPicture_forAsLongAsItShowsForwards)
{
    open("plain.mp4");
    m_player->prepare(2);
    ASSERT_TRUE(waitForPicture());
    m_player->play();
    for (int number = 59; number > 0; --number) {
        ASSERT_TRUE(pass(picture / 2));
        EXPECT_EQ(m_numbers.back(), number);
        EXPECT_NEAR(m_player->position(), number == 59 ? 2 : number * picture, 0.001);
        ASSERT_TRUE(pass(picture / 2));
    }
    ASSERT_TRUE(pass(picture / 2));
    EXPECT_FALSE(m_over);
    ASSERT_TRUE(pass(picture));
    EXPECT_TRUE(m_over);
    EXPECT_EQ(m_player->position(), 0);
    EXPECT_EQ(m_numbers.size(), 60U);
}

TEST_F(BackwardsPlayerTest, keepsTimesThatVary)
{
    open("variable.mp4");
    m_player->prepare(2.9); // 59 comes at 2.967, 58 at 2.933, 57 at 2.9, 50 at 2.667, 49 at 2.433
    ASSERT_TRUE(waitForPicture());
    m_player->play();
    ASSERT_TRUE(pass(0.25));
    EXPECT_EQ(m_numbers.back(), 49);
    ASSERT_TRUE(pass(0.2));
    EXPECT_EQ(m_numbers.back(), 49);
    ASSERT_TRUE(pass(0.04));
    EXPECT_EQ(m_numbers.back(), 48);
}

TEST_F(BackwardsPlayerTest, beginsAtOnce_whenPreparedAhead)
{
    open("far30.mp4");
    m_player->prepare(8.5);
    ASSERT_TRUE(waitForPicture());
    m_player->play();
    m_timers.advance(2 * picture); // with no turn of the event loop: nothing more can come from the decoder
    EXPECT_EQ(shown(), 252);
}

TEST_F(BackwardsPlayerTest, playsEveryPicture_withinItsMemory_howeverFarKeyframesAre)
{
    open("far30.mp4");
    m_player->prepare(8.5);
    m_player->play();
    ASSERT_TRUE(pass(300 * picture));
    EXPECT_TRUE(m_over);
    ASSERT_EQ(m_numbers.size(), 255U);
    for (int i = 0; i < 255; ++i)
        EXPECT_EQ(m_numbers[i], 254 - i);
    EXPECT_LE(m_player->peakBytes(), 256'000'000U);
    EXPECT_GT(m_player->peakBytes(), 128'000'000U);
}

TEST_F(BackwardsPlayerTest, comesToTheBeginning_whereThatIsBeforeTheFirstPicture)
{
    open("delayed.mkv");
    m_player->prepare(0.53);
    m_player->play();
    ASSERT_TRUE(pass(0.3));
    EXPECT_EQ(m_numbers, std::vector{0});
    EXPECT_FALSE(m_over);
    ASSERT_TRUE(pass(0.3));
    EXPECT_TRUE(m_over);
}

TEST_F(BackwardsPlayerTest, stands_whilePaused)
{
    open("plain.mp4");
    m_player->prepare(2);
    m_player->play();
    ASSERT_TRUE(pass(10.5 * picture));
    m_player->pause();
    const int number = m_numbers.back();
    m_timers.advance(10);
    EXPECT_EQ(m_numbers.back(), number);
    m_player->play();
    ASSERT_TRUE(pass(picture));
    EXPECT_EQ(m_numbers.back(), number - 1);
}

TEST_F(BackwardsPlayerTest, goesOnElsewhere_whenSentThere)
{
    open("plain.mp4");
    m_player->prepare(2);
    m_player->play();
    ASSERT_TRUE(pass(10 * picture));
    m_player->prepare(20.5 * picture);
    EXPECT_NEAR(m_player->position(), 20.5 * picture, 1e-9);
    m_numbers.clear();
    ASSERT_TRUE(pass(2 * picture));
    EXPECT_EQ(m_numbers.front(), 20);
    EXPECT_EQ(m_numbers.back(), 18);
}

TEST_F(BackwardsPlayerTest, keepsNothing_whileItRests)
{
    open("plain.mp4");
    m_player->prepare(2);
    ASSERT_TRUE(waitForPicture());
    m_player->rest();
    EXPECT_FALSE(m_player->hasFrame());
    m_player->prepare(1);
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(m_numbers.back(), 30);
}

TEST_F(BackwardsPlayerTest, catchesUp_whenTheMainThreadWasHeldUp)
{
    open("plain.mp4");
    m_player->prepare(2);
    m_player->play();
    ASSERT_TRUE(waitForPicture());
    m_clock.advance(0.5);
    m_timers.advance(0.001);
    EXPECT_LT(m_numbers.size(), 5U);
    EXPECT_LE(shown(), 59 - 11);
    ASSERT_TRUE(pass(picture));
    EXPECT_EQ(shown(), 59 - 16);
}

TEST_F(BackwardsPlayerTest, turnsPicturesUpright)
{
    open("rotated180.mp4");
    m_onPicture = [] {};
    m_player->prepare(5.5 * picture);
    ASSERT_TRUE(waitForPicture());
    QImage image(320, 180, QImage::Format_RGB32);
    ASSERT_TRUE(m_player->render({image.bits(), 320, 180, static_cast<int>(image.bytesPerLine())}));
    EXPECT_EQ(numberIn(image.transformed(QTransform().rotate(180))), 5);
}

TEST_F(BackwardsPlayerTest, drawsBesideNothingElse)
{
    open("plain.mp4");
    m_player->prepare(2);
    ASSERT_TRUE(waitForPicture());
    QImage image(120, 60, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    const auto stride = static_cast<int>(image.bytesPerLine());
    ASSERT_TRUE(m_player->render({image.scanLine(10) + 4 * 10, 98, 40, stride}));
    EXPECT_EQ(numberIn(image.copy(10, 10, 98, 40)), 59);
    for (const QPoint outside :
         {QPoint(9, 10), QPoint(108, 10), QPoint(108, 49), QPoint(50, 9), QPoint(50, 50)})
        EXPECT_EQ(image.pixelColor(outside), QColor(Qt::magenta));
}

TEST_F(BackwardsPlayerTest, saysWhy_whenThereIsNoMovie)
{
    open("text.mov");
    m_player->prepare(1);
    m_player->play();
    EXPECT_TRUE(waitUntil([this] { return !m_reason.isEmpty(); }));
}

TEST_F(BackwardsPlayerTest, mayBeLetGoOf_whileItDecodes)
{
    finishMovieTeardown();
    const int before = threadCount();
    for (int turns = 0; turns < 6; ++turns) {
        open("far30.mp4");
        m_player->prepare(8.5);
        int turned = 0;
        EXPECT_TRUE(waitUntil([&] { return ++turned > turns; }));
        m_player.reset();
    }
    EXPECT_TRUE(waitUntil([before] { return threadCount() <= before; }));
}

TEST_F(BackwardsPlayerTest, mayBeLetGoOf_whenItTellsOfAPicture_orOfTheBeginning)
{
    open("plain.mp4");
    m_onPicture = [this] { m_player.reset(); };
    m_player->prepare(2);
    EXPECT_TRUE(waitUntil([this] { return m_player == nullptr; }));
    open("plain.mp4");
    m_onPicture = [] {};
    m_onBeginning = [this] { m_player.reset(); };
    m_player->prepare(0.01);
    m_player->play();
    ASSERT_TRUE(pass(0.1));
    EXPECT_EQ(m_player, nullptr);
}

class RemoteBackwards : public BackwardsPlayerTest {
protected:
    void SetUp() override { ASSERT_TRUE(m_server.start()); }
    void openRemote(const char* path, std::chrono::milliseconds longestRead = std::chrono::seconds(60))
    {
        m_longestRead = longestRead;
        open(m_server.addressOf(path));
    }

    MovieServer m_server;
};

TEST_F(RemoteBackwards, playsEveryPicture)
{
    for (const char* path : {"good/opengop.mp4", "good/plain.webm", "good/opengop.mkv", "moved/plain.ts"}) {
        m_numbers.clear();
        m_over = false;
        openRemote(path);
        m_player->prepare(2);
        m_player->play();
        ASSERT_TRUE(pass(2.1)) << path << qPrintable(m_reason);
        ASSERT_EQ(m_numbers.size(), 60U) << path;
        for (int i = 0; i < 60; ++i)
            EXPECT_EQ(m_numbers[i], 59 - i) << path;
    }
}

TEST_F(RemoteBackwards, saysSo_whereTheServerSendsMoviesOnlyWhole)
{
    openRemote("plain/plain.mp4");
    m_player->prepare(2);
    EXPECT_FALSE(waitForPicture());
    EXPECT_EQ(m_reason, QStringLiteral("it cannot be sought"));
}

TEST_F(RemoteBackwards, saysSo_whenTheServerGoesAway)
{
    openRemote("good/far30.mp4");
    m_player->prepare(8.5);
    ASSERT_TRUE(waitForPicture());
    m_server.stop();
    m_player->play();
    EXPECT_FALSE(pass(9));
    EXPECT_NE(m_reason, QString());
    EXPECT_LT(m_numbers.size(), 255U);
}

TEST_F(RemoteBackwards, saysSo_whenTheServerSaysNothing)
{
    openRemote("silent", std::chrono::milliseconds(200));
    m_player->prepare(2);
    EXPECT_FALSE(waitForPicture());
}

TEST_F(RemoteBackwards, saysSo_whenAReadNeverComesBack)
{
    openRemote("silent", std::chrono::hours(1));
    m_player->prepare(2);
    m_player->play();
    EXPECT_TRUE(waitUntil([this] {
        m_timers.advance(60);
        return !m_reason.isEmpty();
    }));
    EXPECT_GE(m_clock.now(), 3 * 3600);
    EXPECT_EQ(m_reason, "its pictures do not come any more");
}

TEST_F(RemoteBackwards, mayBeLetGoOf_whileTheServerSaysNothing)
{
    finishMovieTeardown();
    const int before = threadCount();
    openRemote("silent", std::chrono::hours(1));
    m_player->prepare(2);
    int turns = 0;
    EXPECT_TRUE(waitUntil([&] { return ++turns > 10; }));
    m_player.reset();
    EXPECT_TRUE(waitUntil([before] { return threadCount() <= before; }));
}
