#include "platform/display/surface/wayland/LetGoWatch.h"

#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>

#include <gtest/gtest.h>

namespace kestro {

namespace {

constexpr std::chrono::seconds forGood(1000);

/// A watch over one window, which is told what a test says.
class LetGoWatchTest : public testing::Test {
protected:
    LetGoWatchTest() { m_watch.watch(m_window); }

    void tell(QEvent&& event) { QCoreApplication::sendEvent(&m_window, &event); }
    void tell(QEvent::Type type) { tell(QEvent(type)); }
    void key(QEvent::Type type, quint32 code, bool isRepeated = false)
    {
        tell(QKeyEvent(type, Qt::Key_A, Qt::NoModifier, code, 0, 0, {}, isRepeated));
    }
    void button(QEvent::Type type, Qt::MouseButton which, Qt::MouseButtons down)
    {
        tell(QMouseEvent(type, QPointF(), QPointF(), which, down, Qt::NoModifier));
    }
    /// Waits from now on; whether all is up already.
    bool isLetGo(std::chrono::seconds bound = forGood)
    {
        m_watch.whenLetGo(bound, [this] { ++m_calls; });
        return m_calls == 1;
    }

    QWindow m_window;
    LetGoWatch m_watch;
    int m_calls = 0;
};

} // namespace

TEST_F(LetGoWatchTest, watch_callsAtOnce_whenNothingIsDown)
{
    EXPECT_TRUE(isLetGo());
}

TEST_F(LetGoWatchTest, watch_waitsForTheKey_whenItIsDown)
{
    key(QEvent::KeyPress, 38);
    EXPECT_FALSE(isLetGo());
    key(QEvent::KeyRelease, 38);
    EXPECT_EQ(m_calls, 1);
}

TEST_F(LetGoWatchTest, watch_waitsForAllKeys_whenSeveralAreDown)
{
    key(QEvent::KeyPress, 38);
    key(QEvent::KeyPress, 39);
    key(QEvent::KeyRelease, 38);
    EXPECT_FALSE(isLetGo());
    key(QEvent::KeyRelease, 39);
    EXPECT_EQ(m_calls, 1);
}

TEST_F(LetGoWatchTest, watch_waitsOn_whenAKeyRepeats)
{
    key(QEvent::KeyPress, 38);
    EXPECT_FALSE(isLetGo());
    key(QEvent::KeyRelease, 38, true);
    key(QEvent::KeyPress, 38, true);
    EXPECT_EQ(m_calls, 0);
}

TEST_F(LetGoWatchTest, watch_countsNoKeyAsDown_whenItRepeatsAlone)
{
    key(QEvent::KeyPress, 38, true);
    EXPECT_TRUE(isLetGo());
}

TEST_F(LetGoWatchTest, watch_forgetsTheKeys_whenTheKeyboardIsElsewhere)
{
    key(QEvent::KeyPress, 38);
    EXPECT_FALSE(isLetGo());
    tell(QFocusEvent(QEvent::FocusOut));
    EXPECT_EQ(m_calls, 1);
}

TEST_F(LetGoWatchTest, watch_waitsForAllButtons_whenSeveralAreDown)
{
    button(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    button(QEvent::MouseButtonPress, Qt::RightButton, Qt::LeftButton | Qt::RightButton);
    EXPECT_FALSE(isLetGo());
    button(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::RightButton);
    EXPECT_EQ(m_calls, 0);
    button(QEvent::MouseButtonRelease, Qt::RightButton, Qt::NoButton);
    EXPECT_EQ(m_calls, 1);
}

TEST_F(LetGoWatchTest, watch_forgetsTheButtons_whenThePointerIsElsewhere)
{
    button(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    EXPECT_FALSE(isLetGo());
    tell(QEvent::Leave);
    EXPECT_EQ(m_calls, 1);
}

TEST_F(LetGoWatchTest, watch_waitsForTheFinger_whenItIsDown)
{
    for (const auto end : {QEvent::TouchEnd, QEvent::TouchCancel}) {
        m_calls = 0;
        tell(QTouchEvent(QEvent::TouchBegin));
        EXPECT_FALSE(isLetGo());
        tell(QTouchEvent(end));
        EXPECT_EQ(m_calls, 1);
    }
}

TEST_F(LetGoWatchTest, watch_forgetsAll_whenTheWindowGoes)
{
    key(QEvent::KeyPress, 38);
    button(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    tell(QTouchEvent(QEvent::TouchBegin));
    EXPECT_FALSE(isLetGo());
    tell(QEvent::Hide);
    EXPECT_EQ(m_calls, 1);
}

TEST_F(LetGoWatchTest, watch_callsAtTheBound_whenAKeyStaysDown)
{
    key(QEvent::KeyPress, 38);
    EXPECT_FALSE(isLetGo(std::chrono::seconds(0)));
    EXPECT_TRUE(waitUntil([this] { return m_calls == 1; }));
}

TEST_F(LetGoWatchTest, watch_callsOnce_whenTheKeyIsUpAfterTheBound)
{
    key(QEvent::KeyPress, 38);
    EXPECT_FALSE(isLetGo(std::chrono::seconds(0)));
    EXPECT_TRUE(waitUntil([this] { return m_calls == 1; }));
    key(QEvent::KeyRelease, 38);
    EXPECT_EQ(m_calls, 1);
}

} // namespace kestro
