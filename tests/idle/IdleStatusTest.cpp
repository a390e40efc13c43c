#include "idle/IdleStatus.h"

#include <QJsonArray>

#include <gtest/gtest.h>

namespace kestro {

namespace {

using State = IdleMachine::State;
using End = IdleMachine::End;

IdleStatus waiting()
{
    IdleStatus status;
    status.state = State::Idle;
    status.hindrances = {
        {HindranceKind::Inhibited, QStringLiteral("Firefox"), QStringLiteral("playing video")},
        {HindranceKind::Battery, {}, {}}};
    status.after = std::chrono::minutes(5);
    status.source = QStringLiteral("XSync");
    return status;
}

} // namespace

TEST(IdleStatus, text_saysWhatItWaitsFor)
{
    EXPECT_EQ(IdleStatus().text(), QStringLiteral("active"));
    EXPECT_EQ(waiting().text(), QStringLiteral("away; inhibited by Firefox: playing video; kept down by the "
                                               "rule for the battery"));
}

TEST(IdleStatus, text_saysWhyItEnded_andHowOftenItBrokeOff)
{
    IdleStatus status;
    status.state = State::Ended;
    status.lastEnd = End::Locked;
    EXPECT_EQ(status.text(),
              QStringLiteral("away; it was shown already; it ended because the session was locked"));
    status.lastEnd = End::Crashed;
    status.crashes = 4;
    EXPECT_EQ(status.text(),
              QStringLiteral("away; it was shown already; it ended because the saver broke off "
                             "(4 times in a row)"));
    status.state = State::Showing;
    status.crashes = 0;
    EXPECT_EQ(status.text(), QStringLiteral("showing the saver"));
}

TEST(IdleStatus, text_namesTheRival_whileThatLooksAfterTheSession)
{
    IdleStatus status;
    status.rival = QStringLiteral("xscreensaver");
    EXPECT_EQ(status.text(), QStringLiteral("waiting; xscreensaver looks after this session"));
}

TEST(IdleStatus, json_isReadBack)
{
    IdleStatus status = waiting();
    status.lastEnd = End::Asleep;
    status.crashes = 2;
    const IdleStatus back = IdleStatus::from(status.json());
    EXPECT_EQ(back.state, State::Idle);
    EXPECT_EQ(back.hindrances, status.hindrances);
    EXPECT_EQ(back.lastEnd, End::Asleep);
    EXPECT_EQ(back.crashes, 2);
    EXPECT_EQ(back.after, std::chrono::minutes(5));
    EXPECT_EQ(back.source, QStringLiteral("XSync"));
    EXPECT_TRUE(status.json()[QStringLiteral("rival")].isNull());
}

TEST(IdleStatus, from_takesNothingThatItDoesNotKnow)
{
    const IdleStatus status =
        IdleStatus::from({{QStringLiteral("state"), QStringLiteral("flying")},
                          {QStringLiteral("lastEnd"), 7},
                          {QStringLiteral("hindrances"), QJsonArray{1, QJsonObject()}}});
    EXPECT_EQ(status.text(), QStringLiteral("active"));
}

} // namespace kestro
