#include "host/session/SessionKeys.h"

#include "host/FakeDesk.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

using Key = InputEvent::Key;

class SessionKeysTest : public testing::Test {
protected:
    SessionKeysTest()
    {
        session.setWakeHandler([this] { ++wakes; });
        session.start();
        desk.journal.clear();
    }
    void press(Key key, bool isRepeat = false)
    {
        ImageDesktop::surfaceOf(desk.screen(0)).sendInput({InputEvent::Kind::Key, {5, 5}, key, isRepeat});
    }

    FakeDesk desk;
    SaverSession session{desk.desktop, desk.factory()};
    SessionKeys keys{session};
    int wakes = 0;
};

} // namespace

TEST_F(SessionKeysTest, keys_areDoneByTheSaverOfEveryScreen_andEndNone)
{
    for (const auto key : {Key::Right, Key::Left, Key::Up, Key::Down, Key::I, Key::D, Key::U})
        press(key);
    EXPECT_EQ(desk.journal, (QStringList{"a next", "b next", "a previous", "b previous", "a louder",
                                         "b louder", "a quieter", "b quieter", "a title", "b title",
                                         "a never", "b never", "a back", "b back"}));
    EXPECT_EQ(wakes, 0);
}

TEST_F(SessionKeysTest, keyThatIsHeld_isPressedOnce)
{
    press(Key::Right);
    press(Key::Right, true);
    press(Key::Right, true);
    EXPECT_EQ(desk.count(QStringLiteral("a next")), 1);
    EXPECT_EQ(wakes, 0);
}

TEST_F(SessionKeysTest, otherKeys_endIt)
{
    press(Key::Other);
    EXPECT_EQ(wakes, 1);
    EXPECT_TRUE(desk.journal.isEmpty());
}

TEST_F(SessionKeysTest, keys_doNothing_onceItEnds)
{
    press(Key::Other);
    press(Key::Right);
    EXPECT_TRUE(desk.journal.isEmpty());
}

} // namespace kestro
