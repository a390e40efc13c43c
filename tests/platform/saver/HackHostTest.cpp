#include "platform/saver/HackHost.h"

#include "platform/base/Clock.h"
#include "platform/base/Log.h"
#include "platform/base/Random.h"
#include "platform/display/XvfbServer.h"
#include "platform/display/desktop/ImageDesktop.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/image/ImageSurface.h"
#include "platform/display/view/Window.h"
#include "platform/saver/BuiltInSavers.h"
#include "platform/saver/SaverBundle.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>

namespace kestro {

namespace {

const QString fakeHack = QStringLiteral(FAKE_HACK);
const QColor red = Qt::red;

/// Whether a process of that number runs; one that only waits to be taken leave of does not.
bool isRunning(int process)
{
    QFile status(QStringLiteral("/proc/%1/stat").arg(process));
    if (!status.open(QIODevice::ReadOnly)) return false;
    const QByteArray text = status.readAll();
    return text.mid(text.lastIndexOf(')') + 2, 1) != "Z";
}

/// A hack on an X server of the test's own, its view on a screen that is an image.
class HackHostTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_server.isRunning());
        m_displayBefore = qgetenv("DISPLAY");
        qputenv("DISPLAY", m_server.environment().value(QStringLiteral("DISPLAY")).toLatin1());
    }
    void TearDown() override
    {
        if (m_view) m_view->stopAnimation();
        EXPECT_TRUE(waitUntil([&] { return running().isEmpty(); })) << "nothing may be left";
        m_window.setContentView(nullptr);
        m_view.reset();
        qputenv("DISPLAY", m_displayBefore);
    }

    void make(const QStringList& options = {}, const QString& program = fakeHack)
    {
        Hack hack{program, options, false};
        hack.arguments += {QStringLiteral("--log"), logFile()};
        const auto host =
            HackHost::create(m_window.frame(), false, hack, QStringLiteral("the bundle"), m_desktop);
        ASSERT_TRUE(host.isOk()) << host.error().toStdString();
        m_view = host.value();
        m_window.setContentView(m_view.get());
        m_window.orderFront();
    }
    void start(const QStringList& options = {}, const QString& program = fakeHack)
    {
        make(options, program);
        m_view->startAnimation();
    }

    [[nodiscard]] QString logFile() const { return m_folder.filePath(QStringLiteral("log")); }
    /// The lines of the hacks that ran, and of their children.
    [[nodiscard]] QStringList lines() const
    {
        QFile file(logFile());
        if (!file.open(QIODevice::ReadOnly)) return {};
        return QString::fromLatin1(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }
    [[nodiscard]] QList<int> running() const
    {
        QList<int> found;
        for (const QString& line : lines())
            if (const int process = line.section(u' ', 0, 0).toInt(); isRunning(process))
                found.append(process);
        return found;
    }
    [[nodiscard]] QColor pixel(int x, int y)
    {
        m_timers.advance(0.05);
        screen().update();
        return ImageDesktop::surfaceOf(screen()).canvas().pixelColor(x, y);
    }
    [[nodiscard]] bool shows(int x, int y, const QColor& colour)
    {
        return waitUntil([&] { return pixel(x, y) == colour; });
    }
    [[nodiscard]] Screen& screen() const { return *m_desktop.screens().front(); }

    QTemporaryDir m_folder;
    XvfbServer m_server{QStringLiteral("640x480x24")};
    QByteArray m_displayBefore;
    QStringList m_log;
    LogCapture m_capture{[this](const QString& line) { m_log.append(line); }};
    ManualClock m_clock;
    SeededRandom m_random{1};
    ManualTimerSource m_timers{m_clock};
    ImageDesktop m_desktop{{{{0, 0}, {200, 100}}}, 1.0, m_timers, m_clock, m_random};
    Window m_window{{{{0, 0}, {200, 100}}, &screen(), QStringLiteral("test")}};
    std::shared_ptr<HackHost> m_view;
};

} // namespace

TEST_F(HackHostTest, view_showsWhatTheHackDraws_andWhatItDrawsLater)
{
    start();
    EXPECT_TRUE(shows(0, 0, red));
    EXPECT_EQ(pixel(199, 99), red);
    kill(running().value(0), SIGUSR1);
    EXPECT_TRUE(shows(0, 0, Qt::white));
    EXPECT_EQ(pixel(9, 9), QColor(Qt::white));
    EXPECT_EQ(pixel(10, 10), red);
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(HackHostTest, hack_runsAtLowPriorityInAGroupAndOnAWindowOfItsOwn)
{
    qputenv("XSCREENSAVER_WINDOW", "0x77");
    start();
    qunsetenv("XSCREENSAVER_WINDOW");
    ASSERT_TRUE(shows(0, 0, red));
    const QStringList words = lines().value(0).split(u' ');
    ASSERT_EQ(words.size(), 4);
    EXPECT_EQ(words[1], words[0]);
    EXPECT_EQ(words[2], QStringLiteral("10"));
    EXPECT_NE(words[3], QStringLiteral("0x77"));
    EXPECT_TRUE(words[3].startsWith(u"0x"));
}

TEST_F(HackHostTest, view_tellsOfNoPicture_whileTheHackDrawsNothing)
{
    start();
    ASSERT_TRUE(shows(199, 99, red));
    int pictures = 0;
    m_view->layer()->setPictureHandler([&] { ++pictures; });
    ASSERT_TRUE(m_server.run(QStringLiteral("xdpyinfo"), {})) << "events have come through by then";
    m_timers.advance(1);
    EXPECT_EQ(pictures, 0);
    kill(running().value(0), SIGUSR1);
    EXPECT_TRUE(waitUntil([&] {
        m_timers.advance(0.05);
        return pictures == 1;
    }));
}

TEST_F(HackHostTest, hack_isToldTheNewSize_whenTheViewIsResized)
{
    start();
    ASSERT_TRUE(shows(199, 99, red));
    m_desktop.resizeScreen(screen(), {{0, 0}, {301, 151}});
    m_window.setFrameDisplay({{0, 0}, {301, 151}}, true);
    EXPECT_TRUE(shows(300, 150, red));
}

TEST_F(HackHostTest, stopAnimation_endsTheHackAndItsChildren_whoeverIgnoresItAndFled)
{
    for (const QStringList& options :
         {QStringList(), QStringList{QStringLiteral("--stubborn")}, QStringList{QStringLiteral("--flee")}}) {
        start(options);
        ASSERT_TRUE(shows(0, 0, red));
        EXPECT_FALSE(running().isEmpty());
        m_view->stopAnimation();
        EXPECT_TRUE(waitUntil([&] { return running().isEmpty(); }));
        EXPECT_EQ(pixel(0, 0), red) << "what was seen stays";
        QFile::remove(logFile());
    }
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(HackHostTest, hack_runsAnew_whenStartedAgain)
{
    start();
    ASSERT_TRUE(shows(0, 0, red));
    m_view->stopAnimation();
    ASSERT_TRUE(waitUntil([&] { return running().isEmpty(); }));
    m_view->startAnimation();
    EXPECT_TRUE(waitUntil([&] { return running().size() == 1; }));
    EXPECT_TRUE(shows(0, 0, red));
    EXPECT_EQ(lines().size(), 2);
}

TEST_F(HackHostTest, hack_isRestartedThreeTimes_thenTheViewIsBlackWithOneLine)
{
    for (const QString& end : {QStringLiteral("exit"), QStringLiteral("crash")}) {
        start({QStringLiteral("--then"), end});
        EXPECT_TRUE(waitUntil([&] { return !m_log.isEmpty(); }));
        EXPECT_EQ(lines().size(), 4);
        EXPECT_TRUE(shows(0, 0, Qt::black));
        EXPECT_EQ(m_log.size(), 1);
        EXPECT_TRUE(m_log.front().contains(QStringLiteral("the bundle"))) << m_log.front().toStdString();
        EXPECT_EQ(m_log.front().contains(QStringLiteral("crashed")), end == u"crash");
        m_view->stopAnimation();
        m_log.clear();
        QFile::remove(logFile());
    }
}

TEST_F(HackHostTest, hack_isRestartedOnAFreshWindow_whenItIsKilled)
{
    start();
    ASSERT_TRUE(shows(0, 0, red));
    kill(running().value(0), SIGKILL);
    EXPECT_TRUE(waitUntil([&] { return lines().size() == 2; }));
    EXPECT_TRUE(shows(0, 0, red));
    kill(running().value(0), SIGUSR1);
    EXPECT_TRUE(shows(0, 0, Qt::white));
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(HackHostTest, view_isBlackWithOneLine_whenThereIsNoProgram)
{
    const QString text = m_folder.filePath(QStringLiteral("text"));
    QFile file(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no program");
    file.close();
    const QString folder = m_folder.path();
    for (const QString& program :
         {QStringLiteral("/nowhere/hack"), QStringLiteral("no-such-hack"), text, folder}) {
        start({}, program);
        EXPECT_EQ(m_log.size(), 1) << program.toStdString();
        EXPECT_TRUE(m_log.value(0).contains(program));
        EXPECT_TRUE(shows(0, 0, Qt::black));
        m_log.clear();
    }
    file.setPermissions(file.permissions() | QFile::ExeOwner);
    start({}, text);
    EXPECT_TRUE(waitUntil([&] { return !m_log.isEmpty(); }));
    EXPECT_EQ(m_log.size(), 1) << "started once";
    EXPECT_TRUE(m_log.value(0).contains(QStringLiteral("cannot be run")));
}

TEST_F(HackHostTest, view_isBlackWithOneLine_whenTheXServerGoesAway)
{
    m_window.setContentView(nullptr);
    auto server = std::make_unique<XvfbServer>(QStringLiteral("640x480x24"));
    qputenv("DISPLAY", server->environment().value(QStringLiteral("DISPLAY")).toLatin1());
    start();
    ASSERT_TRUE(shows(0, 0, red));
    server.reset();
    EXPECT_TRUE(waitUntil([&] { return !m_log.isEmpty(); }));
    EXPECT_TRUE(shows(0, 0, Qt::black));
    EXPECT_EQ(m_log.size(), 1) << m_log.join(u'\n').toStdString();
}

TEST_F(HackHostTest, bundle_makesNoViewWithALine_whenThereIsNoXDisplay)
{
    BuiltInSavers savers(QStringLiteral("the bundle"), Hack{fakeHack, {}, false}.toInfo());
    for (const char* display : {"", ":49999"}) {
        qputenv("DISPLAY", display);
        m_log.clear();
        EXPECT_EQ(savers.initWithFrameIsPreview(hackHostName, m_window.frame(), false, m_desktop), nullptr);
        ASSERT_EQ(m_log.size(), 1);
        EXPECT_TRUE(m_log.front().contains(QStringLiteral("X display"))) << m_log.front().toStdString();
        EXPECT_TRUE(m_log.front().contains(QStringLiteral("the bundle")));
    }
}

TEST_F(HackHostTest, pixels_areTheSame_whereTheServerSharesNoMemory)
{
    const XvfbServer server(QStringLiteral("640x480x24"),
                            {QStringLiteral("-extension"), QStringLiteral("MIT-SHM")});
    ASSERT_TRUE(server.isRunning());
    qputenv("DISPLAY", server.environment().value(QStringLiteral("DISPLAY")).toLatin1());
    start();
    EXPECT_TRUE(shows(199, 99, red));
    kill(running().value(0), SIGUSR1);
    EXPECT_TRUE(shows(9, 9, Qt::white));
    EXPECT_EQ(pixel(10, 10), red);
    m_view->stopAnimation();
    EXPECT_TRUE(waitUntil([&] { return running().isEmpty(); }));
    m_window.setContentView(nullptr);
    m_view.reset();
}

TEST_F(HackHostTest, create_failsWithAReason_whenTheServerLacksAnExtension)
{
    const XvfbServer server(QStringLiteral("640x480x24"),
                            {QStringLiteral("-extension"), QStringLiteral("Composite")});
    ASSERT_TRUE(server.isRunning());
    qputenv("DISPLAY", server.environment().value(QStringLiteral("DISPLAY")).toLatin1());
    const auto host = HackHost::create(m_window.frame(), false, {fakeHack, {}, false}, QString(), m_desktop);
    ASSERT_FALSE(host.isOk());
    EXPECT_TRUE(host.error().contains(QStringLiteral("Composite")));
}

} // namespace kestro
