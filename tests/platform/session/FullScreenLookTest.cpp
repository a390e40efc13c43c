#include "platform/session/FullScreenLook.h"

#include "platform/session/FactTest.h"

using namespace kestro;

namespace {

const QString activeWindow = QStringLiteral("_NET_ACTIVE_WINDOW");
const QString state = QStringLiteral("_NET_WM_STATE");
const QString fullScreen = QStringLiteral("_NET_WM_STATE_FULLSCREEN");

/// An X server where the test writes what a window manager would.
class FullScreenLook : public FactTest {
protected:
    void write(const QString& property, const QString& format, const QString& value) const
    {
        ASSERT_TRUE(
            m_server.run(QStringLiteral("xprop"), {QStringLiteral("-root"), QStringLiteral("-f"), property,
                                                   format, QStringLiteral("-set"), property, value}));
    }
    /// The root window serves as the one in use.
    void useRoot() const { write(activeWindow, QStringLiteral("32x"), root()); }
    [[nodiscard]] QString root() const
    {
        QProcess process;
        process.setProcessEnvironment(m_server.environment());
        process.start(QStringLiteral("xwininfo"), {QStringLiteral("-root"), QStringLiteral("-int")});
        process.waitForFinished();
        const QString told = QString::fromUtf8(process.readAllStandardOutput());
        return told.section(QStringLiteral("Window id: "), 1).section(u' ', 0, 0);
    }

    const XvfbServer m_server{QStringLiteral("64x64x24")};
    const QByteArray m_display = m_server.environment().value(QStringLiteral("DISPLAY")).toUtf8();
};

} // namespace

TEST_F(FullScreenLook, window_coversNothing_whenNoWindowManagerTells)
{
    EXPECT_FALSE(isFullScreenOnX11(m_display));
}

TEST_F(FullScreenLook, window_coversItsScreen_whenItsStateSaysSo)
{
    useRoot();
    write(state, QStringLiteral("32a"), fullScreen);
    EXPECT_TRUE(isFullScreenOnX11(m_display));
}

TEST_F(FullScreenLook, window_coversNothing_whenItsStateIsAnother)
{
    useRoot();
    write(QStringLiteral("SOMETHING"), QStringLiteral("32a"), fullScreen); // the server knows the word
    write(state, QStringLiteral("32a"), QStringLiteral("_NET_WM_STATE_ABOVE"));
    EXPECT_FALSE(isFullScreenOnX11(m_display));
}

TEST_F(FullScreenLook, window_coversNothing_whenItIsNotInUse)
{
    write(activeWindow, QStringLiteral("32x"), QStringLiteral("0"));
    write(state, QStringLiteral("32a"), fullScreen);
    EXPECT_FALSE(isFullScreenOnX11(m_display));
}

TEST_F(FullScreenLook, window_coversNothing_whenItsStateIsNoListOfWords)
{
    useRoot();
    write(state, QStringLiteral("8s"), fullScreen);
    EXPECT_FALSE(isFullScreenOnX11(m_display));
}

TEST_F(FullScreenLook, window_coversNothing_whereThereIsNoDisplay)
{
    EXPECT_FALSE(isFullScreenOnX11(":12345"));
    EXPECT_FALSE(isFullScreenOnWayland("/nowhere"));
}

TEST_F(FullScreenLook, sound_isAReason_forEachProgramThatIsHeard)
{
    EXPECT_TRUE(soundOfFullScreen({}).isEmpty());
    const QList<Hindrance> expected = {{HindranceKind::FullScreen, QStringLiteral("Player"), {}},
                                       {HindranceKind::FullScreen, {}, {}}};
    EXPECT_EQ(soundOfFullScreen({QStringLiteral("Player"), QString()}), expected);
}
