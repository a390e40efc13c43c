#include "platform/display/XvfbServer.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStringList>

#include <gtest/gtest.h>

namespace kestro {

namespace {

const QColor first = Qt::blue;
const QColor other = Qt::green;
const QColor square = Qt::white;

/// The probe on the screens of a server, watched from outside.
class X11DesktopTest : public testing::Test {
protected:
    void start(const XvfbServer& server)
    {
        m_probe.setProcessEnvironment(server.environment());
        m_probe.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_probe.start(QStringLiteral(KESTRO_DISPLAY_PROBE), QStringList());
    }
    void TearDown() override
    {
        m_probe.terminate();
        m_probe.waitForFinished();
    }

    /// Whether the probe tells a line that starts so.
    [[nodiscard]] bool tells(const QString& start)
    {
        return waitUntil([&] {
            while (m_probe.canReadLine())
                m_told += QString::fromLatin1(m_probe.readLine().trimmed());
            return !m_told.filter(QRegularExpression(QLatin1Char('^') + start)).isEmpty();
        });
    }
    [[nodiscard]] static bool shows(const XvfbServer& server, int x, int y, const QColor& colour)
    {
        return waitUntil([&] { return server.pixel(x, y) == colour; });
    }
    [[nodiscard]] static bool type(const XvfbServer& server)
    {
        return server.run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("a")});
    }

    QProcess m_probe;
    QStringList m_told;
};

/// Two monitors side by side, 1920 by 1080 and 800 by 600, the smaller one at the top.
void plugTwoMonitors(const XvfbServer& server)
{
    const auto set = QStringLiteral("--setmonitor");
    ASSERT_TRUE(server.run(
        QStringLiteral("xrandr"),
        {set, QStringLiteral("LEFT"), QStringLiteral("1920/508x1080/286+0+0"), QStringLiteral("screen")}));
    ASSERT_TRUE(server.run(
        QStringLiteral("xrandr"),
        {set, QStringLiteral("RIGHT"), QStringLiteral("800/211x600/158+1920+0"), QStringLiteral("none")}));
}

} // namespace

TEST_F(X11DesktopTest, surface_coversTheScreenAndPutsWhatChanges)
{
    for (const bool isShared : {true, false}) {
        const QStringList without{QStringLiteral("-extension"), QStringLiteral("MIT-SHM")};
        const XvfbServer server(QStringLiteral("1001x701x24"), isShared ? QStringList() : without);
        ASSERT_TRUE(server.isRunning());
        start(server);
        EXPECT_TRUE(shows(server, 0, 0, first)) << isShared;
        EXPECT_TRUE(shows(server, 1000, 700, first));
        EXPECT_TRUE(shows(server, 0, 700, square));
        EXPECT_EQ(server.pixel(39, 661), square);
        EXPECT_EQ(server.pixel(40, 661), first);
        EXPECT_EQ(server.pixel(39, 660), first);

        EXPECT_TRUE(type(server));
        EXPECT_TRUE(shows(server, 100, 700, square));
        EXPECT_EQ(server.pixel(20, 690), first);
        TearDown();
    }
}

TEST_F(X11DesktopTest, input_reachesTheHandlerInPointsFromTheTopLeft)
{
    const XvfbServer server(QStringLiteral("1000x700x24"));
    ASSERT_TRUE(server.isRunning());
    start(server);
    ASSERT_TRUE(tells(QStringLiteral("screen 0 0 1000 700$")));
    ASSERT_TRUE(shows(server, 0, 0, first));
    EXPECT_TRUE(server.run(QStringLiteral("xdotool"),
                           {QStringLiteral("mousemove"), QStringLiteral("300"), QStringLiteral("200"),
                            QStringLiteral("click"), QStringLiteral("1")}));
    EXPECT_TRUE(tells(QStringLiteral("motion 300 200$")));
    EXPECT_TRUE(tells(QStringLiteral("button 300 200$")));
    EXPECT_TRUE(type(server));
    EXPECT_TRUE(tells(QStringLiteral("key ")));
}

TEST_F(X11DesktopTest, keyboard_isTakenFromAWindowThatHadIt)
{
    const XvfbServer server(QStringLiteral("1000x700x24"));
    ASSERT_TRUE(server.isRunning());
    QProcess other;
    other.setProcessEnvironment(server.environment());
    other.start(QStringLiteral("xev"), {QStringLiteral("-event"), QStringLiteral("keyboard")});
    ASSERT_TRUE(waitUntil([&] {
        return server.run(QStringLiteral("xdotool"),
                          {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                           QStringLiteral("--name"), QStringLiteral("Event Tester"),
                           QStringLiteral("windowfocus")});
    }));
    start(server);
    ASSERT_TRUE(shows(server, 0, 0, first));
    EXPECT_TRUE(type(server));
    EXPECT_TRUE(tells(QStringLiteral("key ")));
    other.kill();
    other.waitForFinished();
}

TEST_F(X11DesktopTest, monitors_haveAScreenEach_asTheyComeAndGo)
{
    const XvfbServer server(QStringLiteral("2720x1080x24"));
    ASSERT_TRUE(server.isRunning());
    plugTwoMonitors(server);
    start(server);
    ASSERT_TRUE(tells(QStringLiteral("screen 1920 480 800 600$")));
    EXPECT_TRUE(shows(server, 0, 0, first));
    EXPECT_TRUE(shows(server, 20, 1060, square));
    EXPECT_TRUE(shows(server, 2719, 0, other));
    EXPECT_TRUE(shows(server, 1940, 580, square));
    EXPECT_EQ(server.pixel(2000, 700), QColor(Qt::black));

    EXPECT_TRUE(type(server));
    EXPECT_TRUE(shows(server, 2040, 580, square));

    const auto xrandr = QStringLiteral("xrandr");
    EXPECT_TRUE(server.run(xrandr, {QStringLiteral("--delmonitor"), QStringLiteral("RIGHT")}));
    EXPECT_TRUE(tells(QStringLiteral("removed 1920 480 800 600$")));
    EXPECT_TRUE(shows(server, 2719, 0, Qt::black));
    EXPECT_EQ(server.pixel(0, 0), first);

    EXPECT_TRUE(server.run(xrandr, {QStringLiteral("--setmonitor"), QStringLiteral("RIGHT"),
                                    QStringLiteral("700/211x500/158+2000+580"), QStringLiteral("none")}));
    EXPECT_TRUE(tells(QStringLiteral("added 2000 0 700 500$")));
    EXPECT_TRUE(shows(server, 2000, 580, other));
    EXPECT_TRUE(shows(server, 2020, 1060, square));
    EXPECT_EQ(server.pixel(1919, 0), first);
}

} // namespace kestro
