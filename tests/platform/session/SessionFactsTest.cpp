#include "platform/session/SessionFacts.h"

#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/session/FactTest.h"
#include "platform/session/LogindInhibitors.h"
#include "platform/session/LogindSession.h"
#include "platform/session/PlasmaInhibitors.h"
#include "platform/session/PowerFact.h"
#include "platform/session/PowerManagementInhibitors.h"
#include "platform/session/X11Suspension.h"

#include <algorithm>
#include <memory>
#include <xcb/screensaver.h>

using namespace kestro;

namespace {

const QList<Hindrance> suspended = {{HindranceKind::Inhibited, QStringLiteral("X11"), {}}};

class SessionFactsTest : public FactTest {
protected:
    void TearDown() override { qunsetenv("XDG_CURRENT_DESKTOP"); }

    [[nodiscard]] SessionFacts facts() { return sessionFacts({m_ours, m_ours, m_random, m_clock, {}, {}}); }
    template <typename Fact>
    [[nodiscard]] static bool has(const SessionFacts& facts)
    {
        return std::ranges::any_of(
            facts.all, [](const auto& fact) { return dynamic_cast<const Fact*>(fact.get()) != nullptr; });
    }

    SeededRandom m_random{1};
    ManualClock m_clock;
};

struct SaverCase {
    X11SaverState state;
    bool disabledCounts;
    bool isReason;
};

class X11SuspensionTest : public FactTest {
protected:
    const XvfbServer m_server{QStringLiteral("640x480x24")};
    const QByteArray m_display = m_server.environment().value(QStringLiteral("DISPLAY")).toUtf8();
};

class SaverStateOf : public testing::TestWithParam<SaverCase> {};

} // namespace

TEST_F(SessionFactsTest, allFacts_answerOnABusWithoutServices)
{
    const SessionFacts all = facts();
    EXPECT_GE(all.all.size(), 8u);
    for (const auto& fact : all.all)
        EXPECT_TRUE(asked(*fact).isEmpty());
}

TEST_F(SessionFactsTest, plasma_isAskedInPlaceOfLogind_onPlasma)
{
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    const SessionFacts all = facts();
    EXPECT_TRUE(has<PlasmaInhibitors>(all));
    EXPECT_FALSE(has<LogindInhibitors>(all));
}

TEST_F(SessionFactsTest, powerManagement_isAsked_onXfceAlone)
{
    EXPECT_FALSE(has<PowerManagementInhibitors>(facts()));
    qputenv("XDG_CURRENT_DESKTOP", "XFCE");
    EXPECT_TRUE(has<PowerManagementInhibitors>(facts()));
}

TEST_F(SessionFactsTest, nobodyIsAnswered_afterTheFactsAreGone)
{
    FakeService upower(m_bus, QStringLiteral("org.freedesktop.UPower"));
    upower.hang();
    bool isAnswered = false;
    {
        const SessionFacts all = facts();
        all.power->ask([&isAnswered] { isAnswered = true; });
        ASSERT_TRUE(waitUntil([&upower] { return upower.calls().size() > 2; }));
    }
    bool isLater = false; // a call that is as patient, and began after theirs
    BusObject later(m_ours, {QStringLiteral("org.freedesktop.UPower"), QStringLiteral("/"), {}});
    later.call(QStringLiteral("Any"), {}, [&isLater](const BusObject::Answer&) { isLater = true; });
    ASSERT_TRUE(waitUntil([&isLater] { return isLater; }));
    EXPECT_FALSE(isAnswered);
}

TEST_P(SaverStateOf, suspension_isToldFromASaverThatIsNotDue)
{
    EXPECT_EQ(!suspensionIn(GetParam().state, GetParam().disabledCounts).isEmpty(), GetParam().isReason);
}

INSTANTIATE_TEST_SUITE_P(states, SaverStateOf,
                         testing::Values(SaverCase{{false, false, 600, 599'000}, true, false},
                                         SaverCase{{false, false, 600, 600'500}, true, false},
                                         SaverCase{{false, false, 600, 700'000}, true, true},
                                         SaverCase{{false, true, 600, 700'000}, true, false},
                                         SaverCase{{true, false, 0, 700'000}, true, true},
                                         SaverCase{{true, false, 0, 700'000}, false, false}));

TEST_F(X11SuspensionTest, server_saysThatItsSaverIsSwitchedOff)
{
    EXPECT_TRUE(x11Suspension(m_display, true).isEmpty());
    ASSERT_TRUE(m_server.run(QStringLiteral("xset"), {QStringLiteral("s"), QStringLiteral("off")}));
    EXPECT_EQ(x11Suspension(m_display, true), suspended);
    EXPECT_TRUE(x11Suspension(m_display, false).isEmpty());
}

TEST_F(X11SuspensionTest, server_hasNoReason_whenXscreensaverHasLeftItsSaverSwitchedOff)
{
    ASSERT_TRUE(m_server.run(QStringLiteral("xset"), {QStringLiteral("s"), QStringLiteral("off")}));
    const auto mark = QStringLiteral("_SCREENSAVER_STATUS");
    ASSERT_TRUE(m_server.run(QStringLiteral("xprop"),
                             {QStringLiteral("-root"), QStringLiteral("-f"), mark, QStringLiteral("32i"),
                              QStringLiteral("-set"), mark, QStringLiteral("1")}));
    EXPECT_TRUE(x11Suspension(m_display, true).isEmpty());
}

TEST_F(X11SuspensionTest, server_isFoundSuspended_whenItsSaverIsLongDue)
{
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> player(
        xcb_connect(m_display.constData(), nullptr), &xcb_disconnect);
    xcb_screensaver_suspend(player.get(), 1);
    xcb_set_screen_saver(player.get(), 1, 0, XCB_BLANKING_PREFERRED, XCB_EXPOSURES_ALLOWED);
    xcb_flush(player.get());
    EXPECT_TRUE(waitUntil([this] { return x11Suspension(m_display, true) == suspended; }));
}

TEST(x11Suspension, server_hasNoReason_whenItIsNotThere)
{
    EXPECT_TRUE(x11Suspension(":12345", true).isEmpty());
}
