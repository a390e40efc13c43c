#include "platform/display/surface/x11/PacedCall.h"

#include "support/WaitUntil.h"

#include <gtest/gtest.h>

using namespace kestro;

using std::chrono::milliseconds;

TEST(PacedCall, isDoneAtOnce_whenItIsTheFirst)
{
    int calls = 0;
    PacedCall call(std::chrono::hours(1), [&calls] { ++calls; });
    call.ask();
    EXPECT_EQ(calls, 1);
}

TEST(PacedCall, isHeldBack_whileTheSpanLasts)
{
    int calls = 0;
    PacedCall call(std::chrono::hours(1), [&calls] { ++calls; });
    for (int i = 0; i < 5; ++i)
        call.ask();
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 1);
}

TEST(PacedCall, isDoneOnce_whenTheSpanIsOver)
{
    int calls = 0;
    PacedCall call(milliseconds(200), [&calls] { ++calls; });
    for (int i = 0; i < 5; ++i)
        call.ask();
    EXPECT_EQ(calls, 1);
    ASSERT_TRUE(waitUntil([&calls] { return calls > 1; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 2);
}
