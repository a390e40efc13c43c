#include "engine/AfterImageTrail.h"

#include "engine/EngineTest.h"
#include "platform/display/view/Painter.h"

#include <QCoreApplication>
#include <QPainter>

#include <algorithm>
#include <thread>

namespace kestro {

namespace {

class AfterImageTrailTest : public EngineTest {
protected:
    AfterImageTrailTest() { canvas.fill(Qt::blue); }

    static Picture still(QColor colour, Size size = {40, 20})
    {
        QImage image(static_cast<int>(size.width), static_cast<int>(size.height), QImage::Format_RGB32);
        image.fill(colour);
        return {image, size};
    }
    void add(QColor colour, Point pos, Size size = {40, 20})
    {
        EXPECT_TRUE(trail.queueImageNoThread(still(colour, size), pos));
    }

    void draw(bool overBackground = false, const Rect& hidden = {})
    {
        QPainter device(&canvas);
        Painter painter(device, {0, 0}, 100, 1.0);
        trail.draw(painter, {{0, 0}, {200, 100}}, overBackground, hidden);
    }
    void drawInNewTick()
    {
        trail.age();
        draw();
    }

    QColor canvasAt(int x, int y) { return canvas.pixelColor(x, 99 - y); }

    std::vector<Rect> changes;
    AfterImageTrail trail{[this](const Rect& place) { changes.push_back(place); }};
    QImage canvas{200, 100, QImage::Format_ARGB32_Premultiplied};
};

} // namespace

TEST_F(AfterImageTrailTest, queueImage_addsAStillAndTellsOfTheChange)
{
    std::thread([this] { trail.queueImage(still(Qt::red), {10, 30}); }).join();
    EXPECT_EQ(trail.count(), 1);
    EXPECT_EQ(trail.shades(), std::vector<float>{1.0F});
    EXPECT_TRUE(changes.empty());
    QCoreApplication::processEvents();
    EXPECT_EQ(changes, (std::vector<Rect>{{{10, 30}, {40, 20}}}));
    draw();
    EXPECT_EQ(canvasAt(10, 30), QColor(Qt::red));
    EXPECT_EQ(canvasAt(49, 49), QColor(Qt::red));
    EXPECT_EQ(canvasAt(9, 30), QColor(Qt::blue));
}

TEST_F(AfterImageTrailTest, queueImage_keepsTheNewestFive)
{
    for (int i = 0; i < 6; ++i) {
        trail.queueImage(still(Qt::red), {static_cast<float>(i), 0});
        drawInNewTick();
    }
    EXPECT_EQ(trail.count(), 5);
    trail.queueImage(still(Qt::red), {0, 0});
    trail.age();
    EXPECT_EQ(trail.shades().front(), 1.0F);
    EXPECT_NEAR(trail.shades()[1], 0.98F, 1e-6);
    EXPECT_NEAR(trail.shades().back(), 0.92F, 1e-6);
}

TEST_F(AfterImageTrailTest, queueImage_withoutAPictureStillDropsTheOldestOfFive)
{
    for (int i = 0; i < 5; ++i)
        add(Qt::red, {0, 0});
    EXPECT_EQ(trail.count(), 5);
    trail.queueImage({}, {0, 0});
    EXPECT_EQ(trail.count(), 4);
    trail.queueImage({}, {0, 0});
    EXPECT_EQ(trail.count(), 4);
    add(Qt::red, {0, 0});
    EXPECT_FALSE(trail.queueImageNoThread({}, {0, 0}));
    EXPECT_EQ(trail.count(), 4);
    QCoreApplication::processEvents();
    EXPECT_TRUE(changes.empty());
}

TEST_F(AfterImageTrailTest, queueImageNoThread_addsAStillHereAndNow)
{
    add(Qt::green, {10, 30});
    EXPECT_EQ(trail.count(), 1);
    QCoreApplication::processEvents();
    EXPECT_TRUE(changes.empty());
}

// Run with a thread sanitizer this finds a list that somebody changes unguarded.
TEST_F(AfterImageTrailTest, list_isSharedWithTheCaptureThread)
{
    constexpr int rounds = 200;
    std::thread capture([this] {
        for (int i = 0; i < rounds; ++i)
            trail.queueImage(still(Qt::red), {10, 30});
    });
    for (int i = 0; i < rounds; ++i) {
        add(Qt::green, {20, 40});
        drawInNewTick();
    }
    capture.join();
    EXPECT_EQ(trail.count(), 5);
    QCoreApplication::processEvents();
    EXPECT_EQ(changes.size(), std::size_t{rounds});
}

TEST_F(AfterImageTrailTest, changing_areTheStillsOfThisDrawingAndTheLast_andWhatWasHidden)
{
    const auto isMarked = [this](float x, float y) {
        const auto places = trail.changing();
        const Rect point{{x, y}, {1, 1}};
        return std::any_of(places.begin(), places.end(),
                           [&](const Rect& place) { return !intersectionRect(place, point).isEmpty(); });
    };
    EXPECT_TRUE(trail.changing().empty());
    add(Qt::red, {10, 20});
    EXPECT_TRUE(isMarked(12, 22));
    draw(false, {{150, 50}, {10, 10}});
    EXPECT_TRUE(isMarked(155, 55));
    EXPECT_FALSE(isMarked(100, 80));
    for (int still = 0; still < 5; ++still)
        add(Qt::green, {100, 5});
    EXPECT_TRUE(isMarked(12, 22)); // drawn there before, gone now
    EXPECT_TRUE(isMarked(110, 10));
    draw();
    EXPECT_FALSE(isMarked(12, 22));
    EXPECT_FALSE(isMarked(155, 55));
    EXPECT_TRUE(isMarked(110, 10));
}

TEST_F(AfterImageTrailTest, changing_keepsWhatADrawingElsewhereLeftOut)
{
    draw(false, {{150, 50}, {10, 10}});
    QPainter device(&canvas);
    Painter painter(device, {0, 0}, 100, 1.0);
    trail.draw(painter, {{0, 0}, {20, 20}}, false);
    EXPECT_EQ(trail.changing(), (std::vector<Rect>{{{150, 50}, {10, 10}}}));
}

TEST_F(AfterImageTrailTest, age_takesAFiftiethOfEachStillThatWasDrawn)
{
    add(Qt::white, {0, 0});
    for (int drawing = 0; drawing < 50; ++drawing) {
        EXPECT_NEAR(trail.shades().front(), 1.0 - 0.02 * drawing, 1e-5);
        draw();
        EXPECT_NEAR(canvasAt(5, 5).red(), 255 * (1.0 - 0.02 * drawing), 2) << drawing;
        trail.age();
    }
}

TEST_F(AfterImageTrailTest, age_takesTheSame_howeverOftenTheStillWasDrawn)
{
    add(Qt::white, {0, 0});
    trail.age();
    EXPECT_EQ(trail.shades().front(), 1.0F);
    draw();
    draw();
    EXPECT_EQ(canvasAt(5, 5), QColor(Qt::white));
    trail.age();
    trail.age();
    EXPECT_NEAR(trail.shades().front(), 0.98F, 1e-6);
}

TEST_F(AfterImageTrailTest, draw_keepsTheBlackOfAStillThatFadedAway)
{
    add(Qt::white, {0, 0});
    for (int drawing = 0; drawing < 60; ++drawing)
        drawInNewTick();
    canvas.fill(Qt::blue);
    draw();
    EXPECT_EQ(canvasAt(5, 5), QColor(Qt::black));
    EXPECT_EQ(canvasAt(45, 5), QColor(Qt::blue));
}

TEST_F(AfterImageTrailTest, draw_fillsNoBlack_overABackground)
{
    add(Qt::white, {0, 0});
    for (int drawing = 0; drawing < 60; ++drawing)
        drawInNewTick();
    canvas.fill(Qt::blue);
    draw(true);
    EXPECT_EQ(canvasAt(5, 5), QColor(Qt::blue));
}

TEST_F(AfterImageTrailTest, draw_laysNewerStillsOnTop)
{
    add(Qt::red, {0, 0});
    add(Qt::green, {20, 0});
    draw();
    EXPECT_EQ(canvasAt(10, 10), QColor(Qt::red));
    EXPECT_EQ(canvasAt(30, 10), QColor(Qt::green));
}

TEST_F(AfterImageTrailTest, draw_isWhatDrawingEachStillWholeOldestFirstGives)
{
    add(Qt::red, {10, 10});
    drawInNewTick();
    add(Qt::green, {20, 15});
    drawInNewTick();
    add(Qt::white, {25, 5}, {10, 60});
    for (int drawing = 0; drawing < 10; ++drawing)
        drawInNewTick();
    trail.age();
    const auto shades = trail.shades();
    canvas.fill(Qt::blue);
    draw();
    const auto faint = [](QColor colour, float shade) {
        return QColor(qRound(colour.red() * shade), qRound(colour.green() * shade),
                      qRound(colour.blue() * shade));
    };
    const auto isNear = [](QColor seen, QColor wanted) {
        return qAbs(seen.red() - wanted.red()) <= 2 && qAbs(seen.green() - wanted.green()) <= 2 &&
               qAbs(seen.blue() - wanted.blue()) <= 2;
    };
    for (int x = 0; x < 200; ++x)
        for (int y = 0; y < 100; ++y) {
            QColor wanted = Qt::blue;
            if (x >= 10 && x < 50 && y >= 10 && y < 30) wanted = faint(Qt::red, shades[2]);
            if (x >= 20 && x < 60 && y >= 15 && y < 35) wanted = faint(Qt::green, shades[1]);
            if (x >= 25 && x < 35 && y >= 5 && y < 65) wanted = faint(Qt::white, shades[0]);
            ASSERT_TRUE(isNear(canvasAt(x, y), wanted)) << x << ' ' << y;
        }
}

TEST_F(AfterImageTrailTest, uncovered_isWhatNoStillCovers)
{
    add(Qt::red, {10, 10});
    add(Qt::red, {30, 20});
    float area = 0;
    for (const Rect& part : trail.uncovered({{0, 0}, {200, 100}})) {
        area += part.size.width * part.size.height;
        EXPECT_TRUE(intersectionRect(part, {{10, 10}, {40, 20}}).isEmpty());
        EXPECT_TRUE(intersectionRect(part, {{30, 20}, {40, 20}}).isEmpty());
    }
    EXPECT_EQ(area, 200 * 100 - 2 * 40 * 20 + 20 * 10);
}

} // namespace kestro
