#include "engine/Announcement.h"

#include "engine/EngineTest.h"

namespace kestro {

namespace {

class AnnouncementTest : public EngineTest {
protected:
    void say(const QString& title)
    {
        said.say({.clock = {}, .title = title, .detail = {}}, *desktop.mainScreen());
    }
    /// Ticks once after that many seconds.
    void pass(double seconds)
    {
        clock.advance(seconds);
        said.tick();
    }

    Announcement said{clock};
};

} // namespace

TEST_F(AnnouncementTest, standsForFourSeconds_andFadesAway)
{
    say(QStringLiteral("The Cat"));
    ASSERT_NE(said.window(), nullptr);
    pass(Announcement::standing - 0.01);
    EXPECT_EQ(said.window()->alphaValue(), 1);
    pass(0.01 + Announcement::fading / 2);
    EXPECT_NEAR(said.window()->alphaValue(), 0.5, 0.01);
    pass(Announcement::fading / 2);
    EXPECT_EQ(said.window(), nullptr);
}

TEST_F(AnnouncementTest, anotherOne_takesItsPlaceAndItsTime)
{
    say(QStringLiteral("The Cat"));
    pass(3);
    say(QStringLiteral("A Longer Title"));
    pass(3);
    ASSERT_NE(said.window(), nullptr);
    EXPECT_EQ(said.window()->alphaValue(), 1);
}

TEST_F(AnnouncementTest, liesInTheMiddleOfTheLowerPart)
{
    say(QStringLiteral("The Cat"));
    const Rect frame = said.window()->frame();
    EXPECT_NEAR(frame.origin.x + frame.size.width / 2, 960, 1);
    EXPECT_LT(frame.origin.y + frame.size.height, 400);
}

} // namespace kestro
