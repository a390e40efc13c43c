#include "platform/display/DisplayTest.h"

namespace kestro {

namespace {

/// A movie frame in a window that moves, with an inner view whose movie is taken over by another.
class HeldPictureTest : public DisplayTest {
protected:
    HeldPictureTest()
    {
        window.setOpaque(false);
        frame.addSubview(inner);
        inner.setLayer(&first);
        window.setContentView(&frame);
        window.orderFront();
        screen().update();
    }

    void changeMovie()
    {
        frame.holdPicture();
        inner.setLayer(&second);
    }

    FakeLayer first{Qt::blue};
    FakeLayer second{Qt::green};
    FillView frame{{{0, 0}, {40, 30}}, Qt::red};
    View inner{{{0, -2}, {40, 30}}};
    Window window{{{{20, 20}, {40, 30}}, &screen(), QStringLiteral("movie")}};
};

} // namespace

TEST_F(HeldPictureTest, holdPicture_keepsThePictureUntilTheNextMovieHasOne)
{
    second.setHasPicture(false);
    changeMovie();
    EXPECT_TRUE(frame.isHoldingPicture());
    screen().update();
    EXPECT_EQ(at(30, 30), QColor(Qt::blue));

    second.show(Qt::green);
    screen().update();
    EXPECT_FALSE(frame.isHoldingPicture());
    EXPECT_EQ(at(30, 30), QColor(Qt::green));
}

TEST_F(HeldPictureTest, heldPicture_staysAtItsPlaceOnTheScreen_whenWindowAndViewMove)
{
    second.setHasPicture(false);
    changeMovie();
    window.setFrameOrigin({100, 50});
    frame.setFrameSize({10, 10});
    screen().update();
    EXPECT_EQ(at(21, 21), QColor(Qt::blue));
    EXPECT_EQ(at(59, 47), QColor(Qt::blue));
    EXPECT_EQ(at(59, 48), QColor(Qt::black)); // the movie lies two points lower than its frame
    EXPECT_EQ(at(105, 55), QColor(Qt::red));  // what was drawn before moves with its window

    second.show(Qt::green);
    screen().update();
    EXPECT_EQ(at(30, 30), QColor(Qt::black));
    EXPECT_EQ(at(105, 55), QColor(Qt::green));
}

TEST_F(HeldPictureTest, holdingView_isNotDrawnUntilItLetsGo)
{
    second.setHasPicture(false);
    changeMovie();
    frame.drawn.clear();
    frame.display();
    EXPECT_TRUE(frame.drawn.empty());
    frame.setNeedsDisplay(true);
    screen().update();
    EXPECT_TRUE(frame.drawn.empty());
    frame.dropHeldPicture();
    screen().update();
    EXPECT_FALSE(frame.drawn.empty());
    EXPECT_EQ(at(30, 30), QColor(Qt::red));
}

TEST_F(HeldPictureTest, hold_survivesATimeOutOfAnyWindow)
{
    second.setHasPicture(false);
    changeMovie();
    window.setContentView(nullptr);
    screen().update();
    EXPECT_EQ(at(30, 30), QColor(Qt::black));
    window.setContentView(&frame);
    screen().update();
    EXPECT_EQ(at(30, 30), QColor(Qt::blue));
}

TEST_F(HeldPictureTest, holdPicture_keepsTheOlderPicture_whenNoMovieHasOneSince)
{
    second.setHasPicture(false);
    changeMovie();
    frame.holdPicture();
    EXPECT_TRUE(frame.isHoldingPicture());
    screen().update();
    EXPECT_EQ(at(30, 30), QColor(Qt::blue));
}

TEST_F(HeldPictureTest, holdPicture_doesNothing_whenNothingIsShown)
{
    inner.setLayer(nullptr);
    frame.holdPicture();
    EXPECT_FALSE(frame.isHoldingPicture());
    inner.setLayer(&first);
    window.orderOut();
    frame.holdPicture();
    EXPECT_FALSE(frame.isHoldingPicture());
}

TEST_F(HeldPictureTest, heldPicture_isSeenInAVisibleWindowOnly)
{
    second.setHasPicture(false);
    changeMovie();
    window.orderOut();
    screen().update();
    EXPECT_EQ(at(30, 30), QColor(Qt::black));
    EXPECT_TRUE(frame.isHoldingPicture());
}

TEST_F(HeldPictureTest, heldPicture_liesInItsWindowsPlaceInTheOrder)
{
    FillView cover({{0, 0}, {10, 10}}, Qt::white);
    Window above({{{25, 25}, {10, 10}}, &screen(), QStringLiteral("above")});
    above.setContentView(&cover);
    above.orderFront();
    second.setHasPicture(false);
    changeMovie();
    screen().update();
    EXPECT_EQ(at(30, 30), QColor(Qt::white));
    EXPECT_EQ(at(40, 30), QColor(Qt::blue));
}

TEST_F(HeldPictureTest, holdPicture_holdsAllTheMoviesInTheView)
{
    FakeLayer other(Qt::yellow);
    View beside({{30, 0}, {10, 10}});
    frame.addSubview(beside);
    beside.setLayer(&other);
    screen().update();
    frame.holdPicture();
    inner.setLayer(nullptr);
    beside.setLayer(nullptr);
    screen().update();
    EXPECT_EQ(at(30, 30), QColor(Qt::blue));
    EXPECT_EQ(at(55, 25), QColor(Qt::yellow));
}

} // namespace kestro
