#include "host/session/WakeWatch.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

constexpr auto motion = InputEvent::Kind::Motion;

} // namespace

TEST(WakeWatch, endsSaver_isTrue_whenAnythingButMotion)
{
    WakeWatch watch;
    EXPECT_TRUE(watch.endsSaver(InputEvent::Kind::Key, {}));
    EXPECT_TRUE(watch.endsSaver(InputEvent::Kind::Button, {}));
    EXPECT_TRUE(watch.endsSaver(InputEvent::Kind::CloseRequest, {}));
}

TEST(WakeWatch, endsSaver_isFalse_whenThePointerIsFirstSeen)
{
    WakeWatch watch;
    EXPECT_FALSE(watch.endsSaver(motion, {5000, 3000}));
    EXPECT_FALSE(watch.endsSaver(motion, {5000, 3000}));
}

TEST(WakeWatch, endsSaver_countsFromWhereThePointerWasFirstSeen_whenItMovesOn)
{
    struct Case {
        Point to;
        bool ends;
    };
    for (const auto& [to, ends] :
         {Case{{110, 100}, false}, Case{{110.5, 100}, true}, Case{{100, 89}, true}, Case{{107, 107}, false},
          Case{{107.5, 107.5}, true}, Case{{89, 100}, true}}) {
        WakeWatch watch;
        EXPECT_FALSE(watch.endsSaver(motion, {100, 100}));
        EXPECT_EQ(watch.endsSaver(motion, to), ends) << to.x << ' ' << to.y;
    }
}

TEST(WakeWatch, endsSaver_isTrue_whenSmallStepsAddUp)
{
    WakeWatch watch;
    for (float x = 100; x <= 110; x += 2)
        EXPECT_FALSE(watch.endsSaver(motion, {x, 100}));
    EXPECT_TRUE(watch.endsSaver(motion, {112, 100}));
}

TEST(WakeWatch, forgetPointer_makesTheNextMotionTheFirst_whenThereWasOne)
{
    WakeWatch watch;
    EXPECT_FALSE(watch.endsSaver(motion, {100, 100}));
    watch.forgetPointer();
    EXPECT_FALSE(watch.endsSaver(motion, {500, 500}));
    EXPECT_TRUE(watch.endsSaver(motion, {500, 511}));
}

} // namespace kestro
