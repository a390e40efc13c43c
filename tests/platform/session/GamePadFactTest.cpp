#include "platform/session/GamePadFact.h"

#include "platform/session/FactTest.h"

#include <QFile>

#include <fcntl.h>
#include <linux/input.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace kestro;

namespace {

/// Pipes in a folder stand for the kernel's devices: what is written at one end are their events.
class GamePads : public FactTest {
protected:
    void TearDown() override
    {
        for (const int descriptor : m_plugged)
            ::close(descriptor);
    }
    /// Answers the end to write to.
    int plugIn(const QString& name)
    {
        const QByteArray path = QFile::encodeName(m_folder.filePath(name));
        EXPECT_EQ(::mkfifo(path.constData(), 0600), 0);
        m_plugged.push_back(::open(path.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
        return m_plugged.back();
    }
    static void send(int pad, int type, int code, double seconds)
    {
        input_event event{};
        event.input_event_sec = static_cast<decltype(event.input_event_sec)>(seconds);
        event.type = static_cast<decltype(event.type)>(type);
        event.code = static_cast<decltype(event.code)>(code);
        event.value = 1;
        ASSERT_EQ(::write(pad, &event, sizeof event), static_cast<ssize_t>(sizeof event));
    }
    [[nodiscard]] GamePadFact::Machine machine()
    {
        const auto open = [this](const QString& path) {
            ++m_opened;
            const int end = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
            return std::make_unique<GamePad>(end, QStringLiteral("Pad"));
        };
        return {m_folder.path(), open, [this] { return m_now; }};
    }

    QTemporaryDir m_folder;
    std::vector<int> m_plugged;
    double m_now = 10'000;
    int m_opened = 0;
    static constexpr auto span = std::chrono::seconds(300);
};

const QList<Hindrance> played = {{HindranceKind::GamePad, QStringLiteral("Pad"), {}}};

} // namespace

TEST_F(GamePads, game_isPlayed_untilTheLastPressIsLongAgo)
{
    const int pad = plugIn(QStringLiteral("event3"));
    GamePadFact fact(span, machine());
    EXPECT_TRUE(asked(fact).isEmpty());
    send(pad, EV_KEY, BTN_SOUTH, m_now - 600);
    EXPECT_TRUE(asked(fact).isEmpty());
    send(pad, EV_KEY, BTN_SOUTH, m_now - 299);
    EXPECT_EQ(asked(fact), played);
    m_now += 2;
    EXPECT_TRUE(asked(fact).isEmpty());
}

TEST_F(GamePads, game_isPlayed_whenAHatIsPressed)
{
    const int pad = plugIn(QStringLiteral("event3"));
    GamePadFact fact(span, machine());
    send(pad, EV_ABS, ABS_HAT0X, m_now - 1);
    EXPECT_EQ(asked(fact), played);
}

TEST_F(GamePads, game_isNotPlayed_whenAStickTrembles)
{
    const int pad = plugIn(QStringLiteral("event3"));
    GamePadFact fact(span, machine());
    send(pad, EV_ABS, ABS_X, m_now - 1);
    send(pad, EV_SYN, SYN_REPORT, m_now - 1);
    EXPECT_TRUE(asked(fact).isEmpty());
}

TEST_F(GamePads, pad_isOpened_whenItIsPluggedIn)
{
    const GamePadFact fact(span, machine());
    EXPECT_EQ(m_opened, 0);
    plugIn(QStringLiteral("event4"));
    EXPECT_TRUE(waitUntil([this] { return m_opened == 1; }));
}

TEST_F(GamePads, pad_isOpenedAgain_whenAnotherTookItsPlace)
{
    const int pad = plugIn(QStringLiteral("event3"));
    GamePadFact fact(span, machine());
    ASSERT_EQ(m_opened, 1);
    ASSERT_TRUE(asked(fact).isEmpty());
    EXPECT_EQ(m_opened, 1); // it is kept open
    ::close(pad);
    m_plugged.clear();
    ASSERT_TRUE(asked(fact).isEmpty());
    EXPECT_EQ(m_opened, 2);
}

TEST_F(GamePads, facts_areNone_whereThereAreNoDevices)
{
    auto none = machine();
    none.folder = m_folder.filePath(QStringLiteral("nothing"));
    GamePadFact fact(span, none);
    EXPECT_TRUE(asked(fact).isEmpty());
}

TEST_F(GamePads, pad_isNone_whenTheKernelCallsItNone)
{
    EXPECT_EQ(GamePad::open(QStringLiteral("/dev/null")), nullptr);
    EXPECT_EQ(GamePad::open(m_folder.filePath(QStringLiteral("nothing"))), nullptr);
}
