#include "host/FakeDesk.h"
#include "platform/base/Log.h"
#include "platform/display/desktop/Notifications.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

InputEvent event(InputEvent::Kind kind, QPointF position = {5, 5})
{
    return {kind, position};
}

class SaverSessionTest : public testing::Test {
protected:
    void send(std::size_t screen, const InputEvent& input)
    {
        ImageDesktop::surfaceOf(desk.screen(screen)).sendInput(input);
    }
    void countWakes()
    {
        session.setWakeHandler([this] { ++wakes; });
        session.start();
    }

    FakeDesk desk;
    SaverSession session{desk.desktop, desk.factory()};
    int wakes = 0;
};

} // namespace

TEST_F(SaverSessionTest, start_makesAViewOfEachScreensSize_whenCalled)
{
    EXPECT_TRUE(session.start());
    ASSERT_EQ(desk.savers.size(), 2u);
    EXPECT_EQ(desk.savers[0]->frame(), (Rect{{0, 0}, FakeDesk::left.size}));
    EXPECT_EQ(desk.savers[1]->frame(), (Rect{{0, 0}, FakeDesk::right.size}));
}

TEST_F(SaverSessionTest, changeMovie_reachesTheSaverOfEveryScreen)
{
    session.start();
    session.changeMovie(MovieStep::Next);
    session.changeMovie(MovieStep::Previous);
    for (const char* what : {"a next", "b next", "a previous", "b previous"})
        EXPECT_EQ(desk.count(QString::fromLatin1(what)), 1) << what;
}

TEST_F(SaverSessionTest, start_coversEveryScreenBeforeAnyViewStarts_whenCalled)
{
    std::size_t covered = 0;
    desk.onMake = [&](FakeSaver& saver) {
        saver.onStart = [&] { covered += desk.screen(0).windows().size() + desk.screen(1).windows().size(); };
    };
    session.start();
    EXPECT_EQ(covered, 4u);
    EXPECT_EQ(desk.journal.first(), QStringLiteral("a start"));
}

TEST_F(SaverSessionTest, stop_stopsInScreenOrderThenTells_whenRunning)
{
    session.start();
    desk.journal.clear();
    desk.desktop.notifications().addObserver(this, Notice::ApplicationWillTerminate, nullptr,
                                             [this] { desk.journal.append(QStringLiteral("told")); });
    session.stop();
    session.stop();
    const QStringList wanted{QStringLiteral("a stop"), QStringLiteral("a stop done"),
                             QStringLiteral("b stop"), QStringLiteral("b stop done"), QStringLiteral("told")};
    EXPECT_EQ(desk.journal, wanted);
    EXPECT_TRUE(session.isStopped());
}

TEST_F(SaverSessionTest, tickHandler_hearsOfEachScreensTicks_whenSet)
{
    std::vector<const Screen*> ticked;
    session.setTickHandler([&](HostedSaver& saver) { ticked.push_back(&saver.screen()); });
    session.start();
    desk.timers.advance(0.11);
    EXPECT_EQ(ticked, (std::vector<const Screen*>{&desk.screen(0), &desk.screen(1)}));
}

TEST_F(SaverSessionTest, destructor_stopsTheViews_whenStillRunning)
{
    {
        SaverSession other(desk.desktop, desk.factory());
        other.start();
    }
    EXPECT_EQ(desk.count(QStringLiteral("a stop")), 1);
    EXPECT_EQ(desk.count(QStringLiteral("b stop")), 1);
    EXPECT_TRUE(desk.screen(0).windows().empty());
}

TEST_F(SaverSessionTest, start_answersFalse_whenNoViewCanBeMade)
{
    QStringList log;
    const LogCapture capture([&](const QString& line) { log.append(line); });
    SaverSession other(desk.desktop, [](const Rect&) { return nullptr; });
    EXPECT_FALSE(other.start());
    EXPECT_EQ(log.size(), 2);
}

TEST_F(SaverSessionTest, start_goesOnWithTheOthers_whenOneViewCannotBeMade)
{
    const LogCapture quiet([](const QString&) {});
    const auto make = desk.factory();
    SaverSession other(desk.desktop, [&](const Rect& frame) -> std::shared_ptr<ScreenSaverView> {
        return frame.size == FakeDesk::left.size ? nullptr : make(frame);
    });
    EXPECT_TRUE(other.start());
    EXPECT_EQ(desk.count(QStringLiteral("a start")), 1);
}

TEST_F(SaverSessionTest, person_wakesOnce_whenPressingKeyOrButtonOrClosing)
{
    for (const auto kind :
         {InputEvent::Kind::Key, InputEvent::Kind::Button, InputEvent::Kind::CloseRequest}) {
        SaverSession other(desk.desktop, desk.factory());
        wakes = 0;
        other.setWakeHandler([this] { ++wakes; });
        other.start();
        send(1, event(kind));
        send(0, event(kind));
        EXPECT_EQ(wakes, 1) << static_cast<int>(kind);
    }
}

TEST_F(SaverSessionTest, person_stopsNothing_whenNobodyAsksForIt)
{
    session.start();
    send(0, event(InputEvent::Kind::Key));
    desk.timers.advance(0.11);
    EXPECT_EQ(desk.count(QStringLiteral("a tick")), 1);
}

TEST_F(SaverSessionTest, motion_wakes_whenFurtherThanTenPoints)
{
    countWakes();
    send(0, event(InputEvent::Kind::Motion, {20, 20}));
    send(0, event(InputEvent::Kind::Motion, {30, 20}));
    EXPECT_EQ(wakes, 0);
    send(0, event(InputEvent::Kind::Motion, {30.5, 20}));
    EXPECT_EQ(wakes, 1);
}

TEST_F(SaverSessionTest, motion_isOneMovement_whenItCrossesFromScreenToScreen)
{
    countWakes();
    send(0, event(InputEvent::Kind::Motion, {62, 20}));
    send(1, event(InputEvent::Kind::Motion, {2, 20}));
    EXPECT_EQ(wakes, 0);
    send(1, event(InputEvent::Kind::Motion, {9, 20}));
    EXPECT_EQ(wakes, 1);
}

TEST_F(SaverSessionTest, motion_isOneMovement_whenItCrossesToAScreenThatStandsHigher)
{
    Screen& higher = desk.desktop.addScreen({{96, 20}, {16, 20}});
    countWakes();
    send(1, event(InputEvent::Kind::Motion, {31, 10}));
    ImageDesktop::surfaceOf(higher).sendInput(event(InputEvent::Kind::Motion, {1, 3}));
    EXPECT_EQ(wakes, 0);
    ImageDesktop::surfaceOf(higher).sendInput(event(InputEvent::Kind::Motion, {1, 15}));
    EXPECT_EQ(wakes, 1);
}

TEST_F(SaverSessionTest, rest_isToldOfEachSaver)
{
    std::vector<const HostedSaver*> told;
    session.setRestHandler([&told](const HostedSaver& saver) { told.push_back(&saver); });
    session.start();
    EXPECT_TRUE(told.empty());
    session.rest(Rest::Off);
    ASSERT_EQ(told.size(), session.savers().size());
    EXPECT_EQ(told.front(), session.savers().front().get());
}

TEST_F(SaverSessionTest, rest_isThatOfEverySaver_andOfThoseThatComeLater)
{
    session.start();
    session.rest(Rest::Off);
    EXPECT_EQ(desk.count(QStringLiteral("a rest 3")), 1);
    EXPECT_EQ(desk.count(QStringLiteral("b rest 3")), 1);
    desk.desktop.addScreen({{96, 0}, {20, 20}});
    EXPECT_EQ(desk.count(QStringLiteral("c start")), 1);
    EXPECT_EQ(desk.count(QStringLiteral("c rest 3")), 1);
}

TEST_F(SaverSessionTest, saver_isHeld_whileItsOwnScreenIsNotSeen)
{
    session.start();
    ImageDesktop::surfaceOf(desk.screen(1)).setSeen(false);
    EXPECT_EQ(desk.count(QStringLiteral("b rest 1")), 1);
    EXPECT_EQ(desk.count(QStringLiteral("a rest 1")), 0);
    ImageDesktop::surfaceOf(desk.screen(1)).setSeen(true);
    EXPECT_EQ(desk.count(QStringLiteral("b rest 0")), 1);
}

TEST_F(SaverSessionTest, everyKeyWakes_whileTheSaversRest)
{
    session.setKeyHandler([](const InputEvent&) { return true; });
    countWakes();
    session.rest(Rest::Off);
    send(0, {InputEvent::Kind::Key, {}, InputEvent::Key::I});
    EXPECT_EQ(wakes, 1);
}

TEST_F(SaverSessionTest, keyThatIsMeantForSomethingElse_wakesNobody)
{
    QList<InputEvent::Key> asked;
    session.setKeyHandler([&asked](const InputEvent& input) {
        asked.append(input.key);
        return input.key == InputEvent::Key::I;
    });
    countWakes();
    send(1, {InputEvent::Kind::Key, {}, InputEvent::Key::I});
    EXPECT_EQ(wakes, 0);
    send(1, {InputEvent::Kind::Key, {}, InputEvent::Key::Other});
    EXPECT_EQ(wakes, 1);
    send(1, {InputEvent::Kind::Key, {}, InputEvent::Key::I});
    EXPECT_EQ(asked, (QList{InputEvent::Key::I, InputEvent::Key::Other})); // none once it ends
}

} // namespace kestro
