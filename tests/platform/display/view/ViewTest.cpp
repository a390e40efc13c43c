#include "platform/display/view/View.h"

#include "platform/display/DisplayTest.h"

#include <QPainter>

namespace kestro {

namespace {

/// Views in a clear window over the lower left quarter of the screen.
class ViewTest : public DisplayTest {
protected:
    ViewTest()
    {
        window.setOpaque(false);
        window.orderFront();
    }

    Window window{{{{0, 0}, {100, 50}}, &screen(), QStringLiteral("window")}};
};

} // namespace

TEST_F(ViewTest, convertToWindow_addsTheOriginsOfAllSuperviews)
{
    View content({{1, 2}, {100, 50}});
    View frame({{10, 20}, {50, 20}});
    View inside({{3, -2}, {20, 20}});
    frame.addSubview(inside);
    EXPECT_EQ(inside.convertToWindow(inside.bounds()), (Rect{{3, -2}, {20, 20}}));
    content.addSubview(frame);
    window.setContentView(&content);
    EXPECT_EQ(inside.convertToWindow({{1, 1}, {5, 5}}), (Rect{{15, 21}, {5, 5}}));
    EXPECT_EQ(inside.window(), &window);
}

TEST_F(ViewTest, addSubview_takesViewFromWhereItWas)
{
    View first({{0, 0}, {10, 10}});
    View second({{0, 0}, {10, 10}});
    View moved({{0, 0}, {10, 10}});
    first.addSubview(moved);
    second.addSubview(moved);
    EXPECT_TRUE(first.subviews().empty());
    EXPECT_EQ(moved.superview(), &second);

    View content({{0, 0}, {100, 50}});
    window.setContentView(&content);
    second.addSubview(content);
    EXPECT_EQ(window.contentView(), nullptr);
    EXPECT_EQ(content.window(), nullptr);
}

TEST_F(ViewTest, destroyedView_takesItselfOutOfWindowAndSuperview)
{
    FillView content({{0, 0}, {100, 50}}, Qt::red);
    {
        FakeLayer layer(Qt::blue);
        View inside({{10, 10}, {20, 20}});
        content.addSubview(inside);
        inside.setLayer(&layer);
        window.setContentView(&content);
        screen().update();
        EXPECT_EQ(at(15, 15), QColor(Qt::blue));
    }
    EXPECT_TRUE(content.subviews().empty());
    screen().update();
    EXPECT_EQ(at(15, 15), QColor(Qt::red));
    {
        View last({{0, 0}, {100, 50}});
        window.setContentView(&last);
    }
    EXPECT_EQ(window.contentView(), nullptr);
    screen().update();
    EXPECT_EQ(at(15, 15), QColor(Qt::black));
}

TEST_F(ViewTest, layerThatOutlivesItsView_mayStillAnnounce)
{
    FakeLayer layer(Qt::blue);
    {
        View view({{0, 0}, {100, 50}});
        view.setLayer(&layer);
    }
    layer.announce();
    screen().update();
    EXPECT_EQ(surface().presentCount(), 1);
}

TEST_F(ViewTest, setNeedsDisplayInRect_redrawsThatPartOnly)
{
    FillView view({{0, 0}, {100, 50}}, Qt::red);
    window.setContentView(&view);
    screen().update();
    view.drawn.clear();
    view.setColour(Qt::green);
    view.setNeedsDisplayInRect({{10, 10}, {200, 5}});
    screen().update();
    EXPECT_EQ(view.drawn, (std::vector<Rect>{{{10, 10}, {90, 5}}}));
    EXPECT_EQ(surface().lastPresented(), QRegion(pixels({{10, 10}, {90, 5}})));
    EXPECT_EQ(at(20, 12), QColor(Qt::green));
    EXPECT_EQ(at(20, 9), QColor(Qt::red));
}

TEST_F(ViewTest, setNeedsDisplay_takesTheMarkAway_whenNotNeeded)
{
    FillView view({{0, 0}, {100, 50}}, Qt::red);
    window.setContentView(&view);
    screen().update();
    view.setNeedsDisplay(true);
    view.setNeedsDisplay(false);
    screen().update();
    EXPECT_EQ(view.drawn.size(), 1U);
}

TEST_F(ViewTest, display_drawsAtOnceAndWithoutAnotherTimeLater)
{
    FillView view({{0, 0}, {100, 50}}, Qt::red);
    FillView inside({{10, 10}, {10, 10}}, Qt::blue);
    view.addSubview(inside);
    window.setContentView(&view);
    view.display();
    EXPECT_EQ(view.drawn.size(), 1U);
    EXPECT_EQ(inside.drawn.size(), 1U);
    screen().update();
    EXPECT_EQ(view.drawn.size(), 1U);
    EXPECT_EQ(inside.drawn.size(), 1U);
    EXPECT_EQ(at(15, 15), QColor(Qt::blue));
}

TEST_F(ViewTest, displayRectIgnoringOpacity_drawsThatPartAtOnce)
{
    FillView view({{0, 0}, {100, 50}}, Qt::red);
    window.setContentView(&view);
    screen().update();
    view.setColour(Qt::green);
    view.displayRectIgnoringOpacity({{10, 10}, {20, 20}});
    EXPECT_EQ(view.drawn.back(), (Rect{{10, 10}, {20, 20}}));
    screen().update();
    EXPECT_EQ(at(15, 15), QColor(Qt::green));
    EXPECT_EQ(at(35, 15), QColor(Qt::red));
}

TEST_F(ViewTest, redraw_keepsWhatWasDrawnBefore)
{
    class Once final : public View {
    public:
        using View::View;
        void drawRect(Painter& painter, const Rect&) override
        {
            if (!m_isFilled) painter.fill(bounds(), Qt::black);
            m_isFilled = true;
            painter.fill({{m_next, 10}, {5, 5}}, Qt::white);
            m_next += 20;
        }

    private:
        bool m_isFilled = false;
        float m_next = 10;
    };
    Once view({{0, 0}, {100, 50}});
    window.setContentView(&view);
    screen().update();
    view.display();
    screen().update();
    EXPECT_EQ(at(12, 12), QColor(Qt::white));
    EXPECT_EQ(at(32, 12), QColor(Qt::white));
    EXPECT_EQ(surface().lastPresented(), QRegion(pixels({{30, 10}, {5, 5}})));
}

TEST_F(ViewTest, markedView_redrawsWhatLiesOnItButNotWhatIsBelow)
{
    FillView ground({{0, 0}, {100, 50}}, Qt::red);
    FillView middle({{10, 10}, {40, 30}}, Qt::green);
    FillView top({{15, 15}, {5, 5}}, Qt::blue);
    FillView sibling({{40, 10}, {30, 30}}, Qt::white);
    ground.addSubview(middle);
    middle.addSubview(top);
    ground.addSubview(sibling);
    window.setContentView(&ground);
    screen().update();
    for (FillView* view : {&ground, &middle, &top, &sibling})
        view->drawn.clear();
    middle.setNeedsDisplay(true);
    screen().update();
    EXPECT_TRUE(ground.drawn.empty());
    EXPECT_EQ(top.drawn.size(), 1U);
    EXPECT_EQ(sibling.drawn, (std::vector<Rect>{{{0, 0}, {10, 30}}}));
    EXPECT_EQ(at(45, 20), QColor(Qt::white));
    EXPECT_EQ(at(27, 27), QColor(Qt::blue));
}

TEST_F(ViewTest, movedOrRemovedSubview_hasItsOldPlaceDrawnAgain)
{
    FillView ground({{0, 0}, {100, 50}}, Qt::red);
    FillView inside({{10, 10}, {10, 10}}, Qt::blue);
    ground.addSubview(inside);
    window.setContentView(&ground);
    screen().update();
    inside.setFrameOrigin({50, 10});
    screen().update();
    EXPECT_EQ(at(15, 15), QColor(Qt::red));
    EXPECT_EQ(at(55, 15), QColor(Qt::blue));
    EXPECT_EQ(ground.drawn.back(), (Rect{{10, 10}, {10, 10}}));
    inside.setFrame({{50, 10}, {5, 10}});
    screen().update();
    EXPECT_EQ(at(57, 15), QColor(Qt::red));
    inside.removeFromSuperview();
    screen().update();
    EXPECT_EQ(at(52, 15), QColor(Qt::red));
}

TEST_F(ViewTest, drawing_isClippedToViewAndSuperviews)
{
    class Flood final : public View {
    public:
        using View::View;
        void drawRect(Painter& painter, const Rect&) override
        {
            painter.fill({{-99, -99}, {999, 999}}, Qt::blue);
        }
    };
    FillView ground({{0, 0}, {100, 50}}, Qt::red);
    View frame({{10, 10}, {20, 20}});
    Flood flood({{5, 5}, {40, 10}});
    ground.addSubview(frame);
    frame.addSubview(flood);
    window.setContentView(&ground);
    screen().update();
    EXPECT_EQ(at(15, 15), QColor(Qt::blue));
    EXPECT_EQ(at(29, 24), QColor(Qt::blue));
    EXPECT_EQ(at(30, 20), QColor(Qt::red));
    EXPECT_EQ(at(14, 20), QColor(Qt::red));
    EXPECT_EQ(at(20, 25), QColor(Qt::red));
}

TEST_F(ViewTest, viewDrawnFromWithinAnother_isDrawn)
{
    class Outer final : public View {
    public:
        using View::View;
        void drawRect(Painter& painter, const Rect&) override
        {
            subviews().front()->display();
            painter.fill({{50, 0}, {10, 10}}, Qt::green);
        }
    };
    Outer outer({{0, 0}, {100, 50}});
    FillView inner({{0, 0}, {10, 10}}, Qt::blue);
    outer.addSubview(inner);
    window.setContentView(&outer);
    screen().update();
    EXPECT_EQ(at(5, 5), QColor(Qt::blue));
    EXPECT_EQ(at(55, 5), QColor(Qt::green));
}

TEST_F(ViewTest, viewTakenAwayWhileItsSuperviewDraws_isLeftOut)
{
    class Changing final : public View {
    public:
        using View::View;
        void drawRect(Painter&, const Rect&) override { inside.reset(); }
        std::unique_ptr<View> inside;
    };
    Changing changing({{0, 0}, {100, 50}});
    changing.inside = std::make_unique<FillView>(Rect{{0, 0}, {10, 10}}, Qt::blue);
    changing.addSubview(*changing.inside);
    window.setContentView(&changing);
    screen().update();
    EXPECT_EQ(at(5, 5), QColor(Qt::black));
    EXPECT_TRUE(changing.subviews().empty());
}

TEST_F(ViewTest, viewThatDrawsOnTheDevice_hidesNothingItDidNotPaint)
{
    class Direct final : public View {
    public:
        using View::View;
        void drawRect(Painter& painter, const Rect&) override
        {
            painter.device().setClipRect(painter.deviceRect({{0, 0}, {10, 10}}));
            painter.fill(bounds(), Qt::red);
        }
    };
    FillView ground({{0, 0}, {100, 50}}, Qt::white);
    Window below({{{0, 0}, {100, 50}}, &screen(), QStringLiteral("below")});
    below.setContentView(&ground);
    below.orderBack();
    Direct direct({{0, 0}, {100, 50}});
    window.setContentView(&direct);
    screen().update();
    EXPECT_EQ(at(5, 5), QColor(Qt::red));
    EXPECT_EQ(at(50, 25), QColor(Qt::white));
}

} // namespace kestro
