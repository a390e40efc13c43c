#include "platform/movie/PlayerState.h"

#include <gtest/gtest.h>

using namespace kestro;

using Loading = PlayerState::Loading;
using Moving = PlayerState::Moving;
using Placed = PlayerState::Placed;
using Stopped = PlayerState::Stopped;
using Playing = PlayerState::Playing;
using Failed = PlayerState::Failed;
using Step = PlayerState::Step;

template <typename State>
static bool is(const PlayerState& player)
{
    return std::holds_alternative<State>(player.current());
}

static Step stepOf(const PlayerState& player)
{
    return std::get<Moving>(player.current()).step;
}

/// Loaded, and arrived at `at`.
static PlayerState placed(double at = 2)
{
    PlayerState player;
    player.load(at);
    static_cast<void>(player.opened());
    static_cast<void>(player.restarted());
    return player;
}

static PlayerState playing(double at = 2)
{
    PlayerState player = placed(at);
    player.play();
    return player;
}

TEST(PlayerState, loading_becomesMovingUnderway_whenOpened)
{
    PlayerState player;
    player.load(3);
    EXPECT_TRUE(is<Loading>(player));
    EXPECT_EQ(player.position(), 3);
    EXPECT_FALSE(player.opened());
    EXPECT_EQ(stepOf(player), Step::Underway);
}

TEST(PlayerState, loading_isSoughtOnceItIsOpened_whenSentElsewhereMeanwhile)
{
    PlayerState player;
    player.load(0);
    const auto move = player.move();
    EXPECT_FALSE(player.goTo(5));
    EXPECT_EQ(player.position(), 5);
    EXPECT_TRUE(player.opened());
    EXPECT_EQ(stepOf(player), Step::Ordered);
    EXPECT_NE(player.move(), move);
    EXPECT_FALSE(player.restarted()) << "that was the load's";
    EXPECT_FALSE(player.opened());
}

TEST(PlayerState, loading_isNotGoing_evenWhenItIsToPlay)
{
    PlayerState player;
    player.load(0);
    player.play();
    EXPECT_TRUE(player.isUnderway());
    EXPECT_FALSE(player.isGoing());
    static_cast<void>(player.opened());
    EXPECT_TRUE(player.isGoing());
}

TEST(PlayerState, moving_becomesPlaced_whenItIsToStand)
{
    PlayerState player;
    player.load(3);
    static_cast<void>(player.opened());
    EXPECT_TRUE(player.restarted());
    EXPECT_TRUE(is<Placed>(player));
    EXPECT_EQ(player.position(), 3);
}

TEST(PlayerState, moving_becomesPlaying_whenItIsToPlay)
{
    PlayerState player = playing();
    ASSERT_TRUE(player.goTo(7));
    player.accepted(player.move());
    player.seekBegan();
    EXPECT_TRUE(player.restarted());
    EXPECT_TRUE(is<Playing>(player));
    EXPECT_EQ(player.position(), 7);
}

TEST(PlayerState, moving_mayBeStoppedAndStartedOnItsWay)
{
    PlayerState player = playing();
    ASSERT_TRUE(player.goTo(7));
    player.stop();
    EXPECT_FALSE(player.isGoing());
    player.play();
    EXPECT_TRUE(player.isGoing());
    player.stop();
    EXPECT_TRUE(player.tookTooLong());
    EXPECT_TRUE(is<Placed>(player));
}

TEST(PlayerState, moving_ignoresARestart_untilItIsUnderway)
{
    PlayerState player = placed();
    ASSERT_TRUE(player.goTo(7));
    EXPECT_FALSE(player.restarted());
    player.seekBegan();
    EXPECT_FALSE(player.restarted()) << "the seek before was carried out";
    player.accepted(player.move());
    EXPECT_FALSE(player.restarted());
    player.seekBegan();
    EXPECT_TRUE(player.restarted());
}

TEST(PlayerState, moving_ignoresTheAnswersToEarlierMoves)
{
    PlayerState player = placed();
    ASSERT_TRUE(player.goTo(7));
    const auto earlier = player.move();
    ASSERT_TRUE(player.goTo(8));
    player.accepted(earlier);
    EXPECT_EQ(stepOf(player), Step::Ordered);
    EXPECT_FALSE(player.refused(earlier));
    EXPECT_TRUE(is<Moving>(player));
}

TEST(PlayerState, moving_arrives_whenItIsRefused)
{
    PlayerState player = playing();
    ASSERT_TRUE(player.goTo(7));
    EXPECT_TRUE(player.refused(player.move()));
    EXPECT_TRUE(is<Playing>(player));
}

TEST(PlayerState, moving_arrives_whenItTakesTooLong_andNothingElseDoes)
{
    PlayerState player = playing();
    EXPECT_FALSE(player.tookTooLong());
    ASSERT_TRUE(player.goTo(7));
    EXPECT_TRUE(player.tookTooLong());
    EXPECT_FALSE(player.isUnderway());
}

TEST(PlayerState, moving_isWhereItWasSent_whateverMpvTells)
{
    PlayerState player = playing();
    ASSERT_TRUE(player.goTo(7));
    player.timeIs(2.5, 0);
    EXPECT_EQ(player.position(), 7);
}

TEST(PlayerState, placed_staysExactlyThere)
{
    PlayerState player = placed(2);
    player.timeIs(1.97, 0);
    EXPECT_EQ(player.position(), 2);
    player.stop();
    EXPECT_TRUE(is<Placed>(player));
}

TEST(PlayerState, playing_followsMpv_fromThePictureThere)
{
    PlayerState player = playing(2);
    player.timeIs(1.98, 0.04);
    EXPECT_EQ(player.position(), 2) << "that picture still shows at 2";
    player.timeIs(2.02, 0.04);
    EXPECT_EQ(player.position(), 2.02);
    player.timeIs(1.9, 0.04);
    EXPECT_EQ(player.position(), 1.9);
}

TEST(PlayerState, stopped_learnsWhereThatWas)
{
    PlayerState player = playing(2);
    player.timeIs(3, 0);
    player.stop();
    EXPECT_TRUE(is<Stopped>(player));
    player.timeIs(3.04, 0);
    EXPECT_EQ(player.position(), 3.04);
    player.play();
    EXPECT_TRUE(is<Playing>(player));
    EXPECT_EQ(player.position(), 3.04);
}

TEST(PlayerState, loadsAgainWhereItIs_playingOn)
{
    PlayerState player = playing(2);
    player.load(2.5);
    EXPECT_TRUE(is<Loading>(player));
    static_cast<void>(player.opened());
    EXPECT_TRUE(player.restarted());
    EXPECT_TRUE(is<Playing>(player));
    EXPECT_EQ(player.position(), 2.5);
}

TEST(PlayerState, restartWithoutAMove_leavesItAsItIs)
{
    PlayerState player = playing();
    EXPECT_TRUE(player.restarted());
    EXPECT_TRUE(is<Playing>(player));
    PlayerState standing = placed();
    EXPECT_TRUE(standing.restarted());
    EXPECT_TRUE(is<Placed>(standing));
}

TEST(PlayerState, failed_isFinal_whereItWas)
{
    PlayerState player = playing(2);
    player.fail();
    EXPECT_FALSE(player.goTo(5));
    EXPECT_FALSE(player.restarted());
    player.load(6);
    player.play();
    player.timeIs(4, 0);
    EXPECT_TRUE(is<Failed>(player));
    EXPECT_EQ(player.position(), 2);
    EXPECT_FALSE(player.isGoing());
}
