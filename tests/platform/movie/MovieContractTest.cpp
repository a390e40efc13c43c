// The rules that every movie keeps, held against the made-up one and the real one.

#include "platform/display/view/Layer.h"
#include "platform/movie/MovieMaker.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillMovie.h"

#include <gtest/gtest.h>

using namespace kestro;

class MovieContract : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override
    {
        if (qstrcmp(GetParam(), "Memory") == 0)
            m_maker = std::make_unique<MemoryMovieMaker>();
        else
            m_maker = std::make_unique<MpvMovieMaker>();
        m_movie = m_maker->movie();
        m_short = m_maker->shortMovie();
        ASSERT_TRUE(m_movie && m_short);
    }

    [[nodiscard]] bool wait(const std::function<bool()>& done) const { return m_maker->wait(done); }
    [[nodiscard]] bool playToEnd(QTMovie& movie) const
    {
        movie.play();
        return wait([&movie] { return movie.rate() == 0; });
    }

    std::unique_ptr<MovieMaker> m_maker;
    std::shared_ptr<QTMovie> m_movie;
    std::shared_ptr<QTMovie> m_short;
};

INSTANTIATE_TEST_SUITE_P(Kinds, MovieContract, testing::Values("Memory", "Mpv"));

static std::int64_t timeOf(const QTMovie& movie)
{
    return movie.currentTime().timeValue;
}

TEST_P(MovieContract, isLoadedAndStands_whenOpened)
{
    EXPECT_EQ(m_movie->state(), QTMovie::State::Loaded);
    EXPECT_EQ(m_movie->naturalSize(), (Size{320, 180}));
    EXPECT_EQ(m_movie->duration(), (MovieTime{1200, 600}));
    EXPECT_EQ(m_movie->currentTime(), (MovieTime{0, 600}));
    EXPECT_EQ(m_movie->rate(), 0);
}

TEST_P(MovieContract, hasNothingSet_whenOpened)
{
    EXPECT_FALSE(m_movie->attribute(MovieAttribute::Loops));
    EXPECT_FALSE(m_movie->attribute(MovieAttribute::LoopsBackAndForth));
    EXPECT_FALSE(m_movie->isMuted());
    EXPECT_EQ(m_movie->volume(), 1);
}

TEST_P(MovieContract, keepsAttributesApart)
{
    m_movie->setAttribute(MovieAttribute::Loops, true);
    m_movie->setAttribute(MovieAttribute::LoopsBackAndForth, true);
    EXPECT_TRUE(m_movie->attribute(MovieAttribute::Loops));
    m_movie->setAttribute(MovieAttribute::Loops, false);
    EXPECT_FALSE(m_movie->attribute(MovieAttribute::Loops));
    EXPECT_TRUE(m_movie->attribute(MovieAttribute::LoopsBackAndForth));
}

TEST_P(MovieContract, keepsSoundSettings_beforeAndWhilePlaying)
{
    for (int round = 0; round < 2; ++round) {
        m_movie->setMuted(round == 0);
        m_movie->setVolume(0.25F);
        EXPECT_EQ(m_movie->isMuted(), round == 0);
        EXPECT_EQ(m_movie->volume(), 0.25F);
        m_movie->play();
    }
}

TEST_P(MovieContract, playsForward_whenAskedTo)
{
    m_movie->play();
    EXPECT_EQ(m_movie->rate(), 1);
    EXPECT_TRUE(wait([this] { return timeOf(*m_movie) > 300; }));
    EXPECT_EQ(m_movie->rate(), 1);
}

TEST_P(MovieContract, playsOn_whenPlayIsAskedForAgain)
{
    m_movie->play();
    ASSERT_TRUE(wait([this] { return timeOf(*m_movie) > 300; }));
    m_movie->play();
    EXPECT_EQ(m_movie->rate(), 1);
    EXPECT_GT(timeOf(*m_movie), 300);
}

TEST_P(MovieContract, keepsItsPosition_whenStopped)
{
    m_movie->play();
    ASSERT_TRUE(wait([this] { return timeOf(*m_movie) > 300; }));
    m_movie->stop();
    EXPECT_EQ(m_movie->rate(), 0);
    EXPECT_GT(timeOf(*m_movie), 300);
    m_movie->play();
    EXPECT_EQ(m_movie->rate(), 1);
    EXPECT_GT(timeOf(*m_movie), 300);
}

TEST_P(MovieContract, isKnownAndStandsWhereItWas_whenLetGo)
{
    m_movie->play();
    ASSERT_TRUE(wait([this] { return timeOf(*m_movie) > 300; }));
    m_movie->letGo();
    const auto at = timeOf(*m_movie);
    EXPECT_GT(at, 300);
    EXPECT_EQ(m_movie->rate(), 0);
    EXPECT_EQ(m_movie->state(), QTMovie::State::Loaded);
    EXPECT_EQ(m_movie->naturalSize(), (Size{320, 180}));
    EXPECT_EQ(m_movie->duration(), (MovieTime{1200, 600}));
    EXPECT_FALSE(m_movie->layer().hasFrame());
    m_movie->play();
    EXPECT_EQ(m_movie->rate(), 1);
    EXPECT_GE(timeOf(*m_movie), at);
    EXPECT_TRUE(wait([this] { return m_movie->rate() == 0; }));
}

TEST_P(MovieContract, showsItsPictureAgain_whenLookedAtAfterItWasLetGo)
{
    m_movie->play();
    ASSERT_TRUE(wait([this] { return timeOf(*m_movie) > 300; }));
    m_movie->letGo();
    const auto at = timeOf(*m_movie);
    m_movie->layer().willShow();
    EXPECT_TRUE(wait([this] { return m_movie->layer().hasFrame(); }));
    EXPECT_FALSE(drawn(*m_movie).isNull());
    EXPECT_EQ(m_movie->rate(), 0);
    EXPECT_NEAR(timeOf(*m_movie), at, 40);
}

TEST_P(MovieContract, standsAtItsDuration_whenItHasEnded)
{
    ASSERT_TRUE(playToEnd(*m_short));
    EXPECT_EQ(m_short->currentTime(), m_short->duration());
    EXPECT_EQ(m_short->state(), QTMovie::State::Loaded);
}

TEST_P(MovieContract, playsFromTheBeginning_whenItStandsAtItsEnd)
{
    ASSERT_TRUE(playToEnd(*m_short));
    m_short->play();
    EXPECT_EQ(m_short->rate(), 1);
    EXPECT_EQ(timeOf(*m_short), 0);
    EXPECT_TRUE(wait([this] { return m_short->rate() == 0; }));
    EXPECT_EQ(m_short->currentTime(), m_short->duration());
}

TEST_P(MovieContract, keepsOnFromTheBeginning_whileItLoops)
{
    m_short->setAttribute(MovieAttribute::Loops, true);
    m_short->play();
    int turns = 0;
    std::int64_t last = 0;
    bool stood = false;
    EXPECT_TRUE(wait([&] {
        turns += timeOf(*m_short) < last;
        last = timeOf(*m_short);
        stood |= m_short->rate() != 1;
        return turns == 3;
    }));
    EXPECT_FALSE(stood);
}

TEST_P(MovieContract, playsBackwardsAndForward_withoutStanding)
{
    m_short->setAttribute(MovieAttribute::LoopsBackAndForth, true);
    m_short->play();
    int turns = 0;
    float last = 1;
    bool stood = false;
    EXPECT_TRUE(wait([&] {
        turns += m_short->rate() != last;
        last = m_short->rate();
        stood |= last == 0;
        return turns == 4;
    }));
    EXPECT_FALSE(stood);
    EXPECT_EQ(m_short->rate(), 1);
}

TEST_P(MovieContract, goesBackInTime_whilePlayingBackwards)
{
    m_movie->setAttribute(MovieAttribute::Loops, true);
    m_movie->setAttribute(MovieAttribute::LoopsBackAndForth, true);
    m_movie->play();
    ASSERT_TRUE(wait([this] { return m_movie->rate() == -1; }));
    bool jumped = false;
    std::int64_t last = timeOf(*m_movie);
    EXPECT_GT(last, 1000);
    EXPECT_TRUE(wait([&] {
        jumped |= timeOf(*m_movie) > last;
        last = timeOf(*m_movie);
        return last < 300;
    }));
    EXPECT_FALSE(jumped);
}

TEST_P(MovieContract, ends_whenLoopingIsSwitchedOffWhilePlaying)
{
    m_short->setAttribute(MovieAttribute::Loops, true);
    m_short->play();
    std::int64_t last = 0;
    ASSERT_TRUE(wait([&] { return timeOf(*m_short) < std::exchange(last, timeOf(*m_short)); }));
    m_short->setAttribute(MovieAttribute::Loops, false);
    EXPECT_TRUE(wait([this] { return m_short->rate() == 0; }));
    EXPECT_EQ(m_short->currentTime(), m_short->duration());
}

TEST_P(MovieContract, endsAtItsBeginning_whenTurningIsSwitchedOffWhilePlayingBackwards)
{
    m_short->setAttribute(MovieAttribute::LoopsBackAndForth, true);
    m_short->play();
    ASSERT_TRUE(wait([this] { return m_short->rate() == -1; }));
    m_short->setAttribute(MovieAttribute::LoopsBackAndForth, false);
    EXPECT_TRUE(wait([this] { return m_short->rate() == 0; }));
    EXPECT_EQ(timeOf(*m_short), 0);
    m_short->play();
    EXPECT_EQ(m_short->rate(), 1);
    EXPECT_TRUE(wait([this] { return m_short->rate() == 0; }));
    EXPECT_EQ(m_short->currentTime(), m_short->duration());
}

TEST_P(MovieContract, loopsForward_whenOnlyTurningIsSwitchedOffWhilePlayingBackwards)
{
    m_short->setAttribute(MovieAttribute::Loops, true);
    m_short->setAttribute(MovieAttribute::LoopsBackAndForth, true);
    m_short->play();
    ASSERT_TRUE(wait([this] { return m_short->rate() == -1; }));
    m_short->setAttribute(MovieAttribute::LoopsBackAndForth, false);
    ASSERT_TRUE(wait([this] { return m_short->rate() == 1; }));
    std::int64_t last = 0;
    EXPECT_TRUE(wait([&] { return timeOf(*m_short) < std::exchange(last, timeOf(*m_short)); }));
    EXPECT_EQ(m_short->rate(), 1);
}

TEST_P(MovieContract, playsFromTheBeginning_whenItWasSentToItsEnd)
{
    for (int round = 0; round < 2; ++round) { // at first there is nothing that plays, later there is
        m_short->setCurrentTime(m_short->duration());
        m_short->play();
        EXPECT_EQ(m_short->rate(), 1);
        EXPECT_EQ(timeOf(*m_short), 0);
        EXPECT_TRUE(wait([this] { return timeOf(*m_short) > 0 && m_short->rate() == 0; }));
    }
}

TEST_P(MovieContract, playsOn_whenLoopingIsSwitchedOnAtTheEnd)
{
    ASSERT_TRUE(playToEnd(*m_short));
    m_short->setAttribute(MovieAttribute::Loops, true);
    EXPECT_EQ(m_short->rate(), 0);
    m_short->play();
    int turns = 0;
    std::int64_t last = 0;
    EXPECT_TRUE(wait([&] {
        turns += timeOf(*m_short) < std::exchange(last, timeOf(*m_short));
        return turns == 2;
    }));
    EXPECT_EQ(m_short->rate(), 1);
}

TEST_P(MovieContract, playsBackwards_whenTurningIsSwitchedOnAtTheEnd)
{
    ASSERT_TRUE(playToEnd(*m_short));
    m_short->setAttribute(MovieAttribute::LoopsBackAndForth, true);
    m_short->play();
    EXPECT_EQ(m_short->rate(), -1);
    EXPECT_TRUE(wait([this] { return m_short->rate() == 1; }));
}

TEST_P(MovieContract, turns_whenSwitchedOnWhilePlaying)
{
    m_movie->play();
    ASSERT_TRUE(wait([this] { return timeOf(*m_movie) > 300; }));
    m_movie->setAttribute(MovieAttribute::LoopsBackAndForth, true);
    EXPECT_EQ(m_movie->rate(), 1);
    EXPECT_GT(timeOf(*m_movie), 300);
    EXPECT_TRUE(wait([this] { return m_movie->rate() == -1; }));
    EXPECT_TRUE(wait([this] { return timeOf(*m_movie) < 600; }));
}

TEST_P(MovieContract, isExactlyWhereItIsSent_whileItStands)
{
    for (const std::int64_t time : {700, 701, 13, 0, 1199, 1200}) {
        m_movie->setCurrentTime({time, 600});
        EXPECT_EQ(timeOf(*m_movie), time);
    }
    EXPECT_EQ(m_movie->rate(), 0);
}

TEST_P(MovieContract, staysInside_whenSentOutside)
{
    m_movie->setCurrentTime({-5, 600});
    EXPECT_EQ(timeOf(*m_movie), 0);
    m_movie->setCurrentTime({5000, 600});
    EXPECT_EQ(m_movie->currentTime(), m_movie->duration());
}

TEST_P(MovieContract, takesTimesOfAnyScale)
{
    m_movie->setCurrentTime({15, 10});
    EXPECT_EQ(m_movie->currentTime(), (MovieTime{900, 600}));
}

TEST_P(MovieContract, playsFromWhereItWasSent)
{
    m_movie->setCurrentTime({900, 600});
    m_movie->play();
    EXPECT_GE(timeOf(*m_movie), 900);
    bool before = false;
    EXPECT_TRUE(wait([&] {
        before |= timeOf(*m_movie) < 900;
        return timeOf(*m_movie) > 1000;
    }));
    EXPECT_FALSE(before);
}

TEST_P(MovieContract, playsOnFromThere_whenSentWhilePlaying)
{
    m_movie->play();
    ASSERT_TRUE(wait([this] { return timeOf(*m_movie) > 60; }));
    m_movie->setCurrentTime({900, 600});
    EXPECT_EQ(m_movie->rate(), 1);
    EXPECT_GE(timeOf(*m_movie), 900);
    EXPECT_TRUE(wait([this] { return timeOf(*m_movie) > 1000; }));
    m_movie->setCurrentTime({60, 600});
    EXPECT_TRUE(wait([this] { return timeOf(*m_movie) > 120; }));
    EXPECT_LT(timeOf(*m_movie), 900);
    EXPECT_EQ(m_movie->rate(), 1);
}

TEST_P(MovieContract, ends_whenSentToItsEndWhilePlaying)
{
    m_movie->play();
    ASSERT_TRUE(wait([this] { return timeOf(*m_movie) > 60; }));
    m_movie->setCurrentTime(m_movie->duration());
    EXPECT_TRUE(wait([this] { return m_movie->rate() == 0; }));
    EXPECT_EQ(m_movie->currentTime(), m_movie->duration());
}

TEST_P(MovieContract, standsElsewhere_whenSentFromItsEnd)
{
    ASSERT_TRUE(playToEnd(*m_short));
    m_short->setCurrentTime({60, 600});
    EXPECT_EQ(m_short->rate(), 0);
    EXPECT_EQ(timeOf(*m_short), 60);
    m_short->play();
    EXPECT_EQ(m_short->rate(), 1);
    EXPECT_GE(timeOf(*m_short), 60);
    EXPECT_TRUE(wait([this] { return m_short->rate() == 0; }));
}

TEST_P(MovieContract, showsItsPicture_whenItIsLookedAt)
{
    Layer& layer = m_movie->layer();
    layer.willShow();
    EXPECT_TRUE(wait([&layer] { return layer.hasFrame(); }));
    EXPECT_FALSE(drawn(*m_movie).isNull());
    EXPECT_EQ(m_movie->rate(), 0);
}

TEST_P(MovieContract, keepsItsPicture_atItsEnd)
{
    ASSERT_TRUE(playToEnd(*m_short));
    EXPECT_TRUE(m_short->layer().hasFrame());
    EXPECT_FALSE(drawn(*m_short).isNull());
}

TEST_P(MovieContract, givesStillsOfTheSizeThatIsSet)
{
    const auto copy = m_movie->copyForStills();
    EXPECT_EQ(copy->still({0, 600}).size, (Size{320, 180}));
    copy->setStillSize(100, 60);
    EXPECT_EQ(copy->still({600, 600}).image.size(), QSize(100, 60));
    EXPECT_FALSE(copy->still({100000, 600}).isNull());
    EXPECT_EQ(timeOf(*m_movie), 0);
}
