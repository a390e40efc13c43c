#include "platform/display/desktop/Notifications.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

constexpr auto terminate = Notice::ApplicationWillTerminate;

} // namespace

TEST(NotificationCenter, post_reachesThoseWhoAskedForThatNoticeAndObject)
{
    NotificationCenter center;
    const int one = 0;
    const int other = 0;
    int about = 0;
    int all = 0;
    center.addObserver(&about, Notice::WindowWillClose, &one, [&] { ++about; });
    center.addObserver(&all, Notice::WindowWillClose, nullptr, [&] { ++all; });
    center.post(Notice::WindowWillClose, &one);
    center.post(Notice::WindowWillClose, &other);
    center.post(terminate, &one);
    EXPECT_EQ(about, 1);
    EXPECT_EQ(all, 2);
}

TEST(NotificationCenter, removeObserver_takesAwayAllItAskedFor)
{
    NotificationCenter center;
    int calls = 0;
    const int kept = 0;
    center.addObserver(&calls, terminate, nullptr, [&] { calls += 10; });
    center.addObserver(&calls, Notice::WindowWillClose, nullptr, [&] { calls += 10; });
    center.addObserver(&kept, terminate, nullptr, [&] { ++calls; });
    center.removeObserver(&calls);
    center.post(terminate, nullptr);
    center.post(Notice::WindowWillClose, nullptr);
    EXPECT_EQ(calls, 1);
}

TEST(NotificationCenter, observer_mayRemoveItselfAndOthersInsideItsHandler)
{
    NotificationCenter center;
    const int first = 0;
    const int second = 0;
    int calls = 0;
    center.addObserver(&first, terminate, nullptr, [&] {
        ++calls;
        center.removeObserver(&first);
        center.removeObserver(&second);
    });
    center.addObserver(&second, terminate, nullptr, [&] { calls += 10; });
    center.post(terminate, nullptr);
    center.post(terminate, nullptr);
    EXPECT_EQ(calls, 1);
}

TEST(NotificationCenter, observerAddedInsideAHandler_isCalledFromTheNextPostOn)
{
    NotificationCenter center;
    const int first = 0;
    int calls = 0;
    center.addObserver(&first, terminate, nullptr, [&] {
        if (calls == 0) center.addObserver(&calls, terminate, nullptr, [&] { ++calls; });
    });
    center.post(terminate, nullptr);
    EXPECT_EQ(calls, 0);
    center.post(terminate, nullptr);
    EXPECT_EQ(calls, 1);
}

} // namespace kestro
