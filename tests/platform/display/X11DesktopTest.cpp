#include "platform/display/XvfbServer.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStringList>

#include <gtest/gtest.h>
#include <memory>

namespace kestro {

namespace {

const QColor first = Qt::blue;
const QColor other = Qt::green;
const QColor square = Qt::white;

/// The probe on the screens of a server, watched from outside.
class X11DesktopTest : public testing::Test {
protected:
    /// Runs the server, and answers whether it runs.
    [[nodiscard]] bool serve(const QString& screen, const QStringList& options = {})
    {
        m_server = std::make_unique<XvfbServer>(screen, options);
        return m_server->isRunning();
    }
    void start(const QString& scale = QStringLiteral("1"), const char* renderer = "software")
    {
        auto environment = m_server->environment();
        environment.insert(QStringLiteral("QT_SCALE_FACTOR"), scale);
        environment.insert(QStringLiteral("KESTRO_RENDERER"), QLatin1String(renderer));
        environment.insert(QStringLiteral("LIBGL_ALWAYS_SOFTWARE"), QStringLiteral("1"));
        m_probe.setProcessEnvironment(environment);
        m_probe.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_probe.start(QStringLiteral(KESTRO_DISPLAY_PROBE), QStringList());
    }
    void TearDown() override
    {
        m_told.clear();
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
    [[nodiscard]] bool shows(int x, int y, const QColor& colour) const
    {
        return waitUntil([&] { return pixel(x, y) == colour; });
    }
    [[nodiscard]] bool type() const
    {
        return m_server->run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("a")});
    }

    /// Another program's window, once it is open, with the keyboard if it is given any.
    [[nodiscard]] std::unique_ptr<QProcess> openWindow(const QString& name, const QString& geometry) const
    {
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(m_server->environment());
        process->setStandardOutputFile(QProcess::nullDevice());
        process->start(QStringLiteral("xev"),
                       QStringList{QStringLiteral("-name"), name, QStringLiteral("-geometry"), geometry});
        EXPECT_TRUE(waitUntil([&] {
            return m_server->run(QStringLiteral("xdotool"),
                                 {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                  QStringLiteral("--name"), name, QStringLiteral("windowfocus")});
        }));
        return process;
    }
    /// Runs a window manager until it looks after windows; before that it may lose one.
    void startManager(QProcess& manager) const
    {
        manager.setProcessEnvironment(m_server->environment());
        manager.setStandardErrorFile(QProcess::nullDevice());
        manager.start(QStringLiteral("openbox"),
                      {QStringLiteral("--sm-disable"), QStringLiteral("--startup"),
                       QStringLiteral("xprop -root -f KESTRO_READY 8s -set KESTRO_READY yes")});
        const QStringList question{QStringLiteral("-c"),
                                   QStringLiteral("xprop -root KESTRO_READY | grep -q yes")};
        ASSERT_TRUE(waitUntil([&] { return m_server->run(QStringLiteral("sh"), question); }));
    }
    [[nodiscard]] QColor pixel(int x, int y) const { return m_server->pixel(x, y); }
    /// Whether something of that name is in the probe's memory.
    [[nodiscard]] bool hasInMemory(const char* name) const
    {
        QFile maps(QStringLiteral("/proc/%1/maps").arg(m_probe.processId()));
        return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(name);
    }
    /// Whether the probe has memory in common with another program.
    [[nodiscard]] bool sharesMemory() const { return hasInMemory("/SYSV"); }
    /// Whether the probe has loaded a driver of OpenGL.
    [[nodiscard]] bool hasDriver() const { return hasInMemory("_dri.so") || hasInMemory("libgallium"); }
    [[nodiscard]] bool click() const
    {
        return m_server->run(QStringLiteral("xdotool"), {QStringLiteral("click"), QStringLiteral("1")});
    }
    void checkMonitorsComingAndGoing(const char* renderer);

    /// Two monitors side by side, 1920 by 1080 and 800 by 600, the smaller one at the top.
    void plugTwoMonitors()
    {
        const auto set = QStringLiteral("--setmonitor");
        ASSERT_TRUE(m_server->run(QStringLiteral("xrandr"),
                                  {set, QStringLiteral("LEFT"), QStringLiteral("1920/508x1080/286+0+0"),
                                   QStringLiteral("screen")}));
        ASSERT_TRUE(m_server->run(QStringLiteral("xrandr"),
                                  {set, QStringLiteral("RIGHT"), QStringLiteral("800/211x600/158+1920+0"),
                                   QStringLiteral("none")}));
    }

    std::unique_ptr<XvfbServer> m_server;
    QProcess m_probe;
    QStringList m_told;
};

} // namespace

TEST_F(X11DesktopTest, surface_coversTheScreenAndPutsWhatChanges)
{
    for (const bool isShared : {true, false}) {
        const QStringList without{QStringLiteral("-extension"), QStringLiteral("MIT-SHM")};
        ASSERT_TRUE(serve(QStringLiteral("1001x701x24"), isShared ? QStringList() : without));
        start();
        EXPECT_TRUE(shows(0, 0, first)) << isShared;
        EXPECT_TRUE(shows(1000, 700, first));
        EXPECT_TRUE(shows(0, 700, square));
        EXPECT_EQ(sharesMemory(), isShared);
        EXPECT_EQ(pixel(39, 661), square);
        EXPECT_EQ(pixel(40, 661), first);
        EXPECT_EQ(pixel(39, 660), first);

        EXPECT_TRUE(type());
        EXPECT_TRUE(shows(100, 700, square));
        EXPECT_EQ(pixel(20, 690), first);
        TearDown();
    }
}

TEST_F(X11DesktopTest, input_reachesTheHandlerInPointsFromTheTopLeft)
{
    ASSERT_TRUE(serve(QStringLiteral("1000x700x24")));
    start();
    ASSERT_TRUE(tells(QStringLiteral("screen 0 0 1000 700$")));
    ASSERT_TRUE(shows(0, 0, first));
    EXPECT_TRUE(m_server->run(QStringLiteral("xdotool"),
                              {QStringLiteral("mousemove"), QStringLiteral("300"), QStringLiteral("200"),
                               QStringLiteral("click"), QStringLiteral("1")}));
    EXPECT_TRUE(tells(QStringLiteral("motion 300 200$")));
    EXPECT_TRUE(tells(QStringLiteral("button 300 200$")));
    EXPECT_TRUE(type());
    EXPECT_TRUE(tells(QStringLiteral("key ")));
}

TEST_F(X11DesktopTest, denseScreen_isMeasuredInPointsAndCoveredToTheLastPixel)
{
    ASSERT_TRUE(serve(QStringLiteral("800x600x24")));
    start(QStringLiteral("1.5"));
    ASSERT_TRUE(tells(QStringLiteral("screen 0 0 533 400$")));
    EXPECT_TRUE(shows(0, 0, first));
    EXPECT_TRUE(shows(799, 0, first));
    EXPECT_TRUE(shows(59, 540, square));
    EXPECT_EQ(pixel(60, 540), first);
    EXPECT_EQ(pixel(59, 539), first);
    EXPECT_TRUE(m_server->run(QStringLiteral("xdotool"),
                              {QStringLiteral("mousemove"), QStringLiteral("300"), QStringLiteral("150")}));
    EXPECT_TRUE(tells(QStringLiteral("motion 200 100$")));
}

TEST_F(X11DesktopTest, surface_liesOverOtherWindowsAndTakesTheKeyboard_withAWindowManagerAndWithNone)
{
    for (const bool isManaged : {true, false}) {
        ASSERT_TRUE(serve(QStringLiteral("1000x700x24")));
        QProcess manager;
        if (isManaged) startManager(manager);
        const auto before = openWindow(QStringLiteral("before"), QStringLiteral("900x600+50+50"));
        start();
        EXPECT_TRUE(shows(0, 0, first)) << isManaged;
        EXPECT_TRUE(shows(500, 350, first));
        const auto after = openWindow(QStringLiteral("after"), QStringLiteral("400x300+300+200"));
        EXPECT_TRUE(shows(500, 350, first));
        EXPECT_TRUE(type());
        EXPECT_TRUE(tells(QStringLiteral("key "))) << isManaged;
        TearDown();
        for (QProcess* process : {before.get(), after.get(), &manager}) {
            process->kill();
            process->waitForFinished();
        }
    }
}

void X11DesktopTest::checkMonitorsComingAndGoing(const char* renderer)
{
    ASSERT_TRUE(serve(QStringLiteral("2720x1080x24")));
    plugTwoMonitors();
    start(QStringLiteral("1"), renderer);
    ASSERT_TRUE(tells(QStringLiteral("screen 1920 480 800 600$")));
    EXPECT_TRUE(shows(0, 0, first));
    EXPECT_TRUE(shows(20, 1060, square));
    EXPECT_TRUE(shows(2719, 0, other));
    EXPECT_TRUE(shows(1940, 580, square));
    EXPECT_EQ(pixel(2000, 700), QColor(Qt::black));

    EXPECT_TRUE(type());
    EXPECT_TRUE(shows(2040, 580, square));

    const auto xrandr = QStringLiteral("xrandr");
    EXPECT_TRUE(m_server->run(xrandr, {QStringLiteral("--delmonitor"), QStringLiteral("RIGHT")}));
    EXPECT_TRUE(tells(QStringLiteral("removed 1920 480 800 600$")));
    EXPECT_TRUE(shows(2719, 0, Qt::black));
    EXPECT_EQ(pixel(0, 0), first);

    EXPECT_TRUE(m_server->run(xrandr, {QStringLiteral("--setmonitor"), QStringLiteral("RIGHT"),
                                       QStringLiteral("700/211x500/158+2000+580"), QStringLiteral("none")}));
    EXPECT_TRUE(tells(QStringLiteral("added 2000 0 700 500$")));
    EXPECT_TRUE(shows(2000, 580, other));
    EXPECT_TRUE(shows(2020, 1060, square));
    EXPECT_EQ(pixel(1919, 0), first);
}

TEST_F(X11DesktopTest, monitors_haveAScreenEach_asTheyComeAndGo)
{
    checkMonitorsComingAndGoing("software");
    EXPECT_FALSE(hasDriver());
}

TEST_F(X11DesktopTest, monitors_haveAScreenEach_asTheyComeAndGo_withOpenGL)
{
    checkMonitorsComingAndGoing("opengl");
    EXPECT_TRUE(hasDriver());
}

TEST_F(X11DesktopTest, surface_showsWhatOpenGLDraws_andGoesOnInSoftwareWhenThatIsLost)
{
    ASSERT_TRUE(serve(QStringLiteral("1001x701x24")));
    start(QStringLiteral("1"), "opengl");
    EXPECT_TRUE(shows(0, 0, first));
    EXPECT_TRUE(shows(1000, 700, first));
    EXPECT_TRUE(shows(0, 700, square));
    EXPECT_TRUE(hasDriver());
    EXPECT_EQ(pixel(39, 661), square);
    EXPECT_EQ(pixel(40, 661), first);
    EXPECT_EQ(pixel(39, 660), first);

    EXPECT_TRUE(type());
    EXPECT_TRUE(shows(100, 700, square));
    EXPECT_EQ(pixel(20, 690), first);

    ASSERT_TRUE(click()); // the probe loses its context
    EXPECT_TRUE(tells(QStringLiteral("button ")));
    EXPECT_TRUE(type());
    EXPECT_TRUE(shows(200, 700, square));
    EXPECT_EQ(pixel(120, 690), first);
    EXPECT_EQ(pixel(1000, 0), first);
}

TEST_F(X11DesktopTest, denseScreen_isCoveredToTheLastPixel_withOpenGL)
{
    ASSERT_TRUE(serve(QStringLiteral("800x600x24")));
    start(QStringLiteral("1.5"), "opengl");
    EXPECT_TRUE(shows(0, 0, first));
    EXPECT_TRUE(shows(799, 0, first));
    EXPECT_TRUE(shows(59, 540, square));
    EXPECT_EQ(pixel(60, 540), first);
    EXPECT_EQ(pixel(59, 539), first);
}

} // namespace kestro
