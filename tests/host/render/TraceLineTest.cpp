#include "host/render/TraceLine.h"

#include "host/FakeDesk.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace kestro {

namespace {

QByteArray compact(const QJsonValue& value)
{
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
}

/// The session's second screen, whose origin is not the desk's.
class TraceLineTest : public testing::Test {
protected:
    TraceLineTest() { session.start(); }

    QJsonObject line() const { return traceLine(*session.savers().at(1), 1, 1.23456); }

    FakeDesk desk;
    SaverSession session{desk.desktop, desk.factory()};
};

} // namespace

TEST_F(TraceLineTest, line_tellsWhenAndWhere_whenTicked)
{
    desk.timers.advance(0.25);
    EXPECT_EQ(line().value(QStringLiteral("t")), QJsonValue(1.235));
    EXPECT_EQ(line().value(QStringLiteral("screen")), QJsonValue(1));
    EXPECT_EQ(line().value(QStringLiteral("tick")), QJsonValue(2));
}

TEST_F(TraceLineTest, windows_areFromBottomToTopInTheScreensCoordinates_whenShown)
{
    Window above({{{74, 5}, {8, 6}}, &desk.screen(1), QStringLiteral("above")});
    above.setLevel(WindowLevel::Shielding);
    above.setAlphaValue(0.3F);
    above.orderFront();
    EXPECT_EQ(compact(line().value(QStringLiteral("windows"))),
              R"([[{"alpha":1,"frame":[0,0,32,48],"kind":"host","level":1000},)"
              R"({"alpha":0.3,"frame":[10,5,8,6],"kind":"above","level":2000}]])");
}

TEST_F(TraceLineTest, line_tellsOfTheMovie_whenThereIsOne)
{
    SaverSnapshot& shown = desk.savers[1]->shown;
    shown.movie = SaverSnapshot::Movie{QStringLiteral("file:///a.mov"), 1200, 0.5F, {{1.5F, 2}, {30, 20}}};
    shown.curIdx = 3;
    shown.trail = 4;
    shown.isFading = true;
    EXPECT_EQ(compact(line().value(QStringLiteral("movie"))),
              R"([{"frame":[1.5,2,30,20],"rate":0.5,"time":1200,"url":"file:///a.mov"}])");
    EXPECT_EQ(line().value(QStringLiteral("curIdx")), QJsonValue(3));
    EXPECT_EQ(line().value(QStringLiteral("trail")), QJsonValue(4));
    EXPECT_EQ(line().value(QStringLiteral("fading")), QJsonValue(true));
    EXPECT_TRUE(line().value(QStringLiteral("sign")).isNull());
}

TEST_F(TraceLineTest, line_tellsOfTheSign_whenThereIsNoMovie)
{
    desk.savers[1]->shown.sign = Rect{{3, 4}, {5, 6}};
    EXPECT_TRUE(line().value(QStringLiteral("movie")).isNull());
    EXPECT_EQ(compact(line().value(QStringLiteral("sign"))), "[[3,4,5,6]]");
    EXPECT_EQ(line().value(QStringLiteral("curIdx")), QJsonValue(-1));
}

TEST_F(TraceLineTest, line_asksTheViewInAWindowAbove_whenTheHostedOneIsAnotherSaver)
{
    const auto plain = std::make_shared<ScreenSaverView>(Rect{{0, 0}, {32, 48}}, false);
    const auto saver = std::make_shared<HostedSaver>(desk.screen(1), plain, nullptr);
    session.stop();
    Window over({FakeDesk::right, &desk.screen(1), QStringLiteral("mySaverWindow")});
    FakeSaver behind({{0, 0}, {32, 48}}, QStringLiteral("x"), desk.journal);
    behind.shown.curIdx = 5;
    desk.screen(1).windows().front()->setContentView(nullptr);
    over.setContentView(&behind);
    over.orderFront();
    EXPECT_EQ(traceLine(*saver, 1, 0).value(QStringLiteral("curIdx")), QJsonValue(5));
}

} // namespace kestro
