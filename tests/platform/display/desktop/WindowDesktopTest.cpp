#include "platform/display/XvfbServer.h"

#include <QProcess>
#include <QStringList>

#include <gtest/gtest.h>

namespace kestro {

namespace {

/// What the probe tells of a window at (100, 80), 300 by 200 pixels, that moves to (1000, 50), 400 by 250,
/// and is destroyed.
QStringList toldBy(const XvfbServer& server)
{
    QProcess probe;
    probe.setProcessEnvironment(server.environment());
    probe.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    probe.start(QStringLiteral(KESTRO_WINDOW_PROBE), QStringList());
    EXPECT_TRUE(probe.waitForFinished());
    return QString::fromLatin1(probe.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
}

} // namespace

TEST(WindowDesktop, screen_followsTheWindowOverTheDesk_untilItIsGone)
{
    XvfbServer server(QStringLiteral("1400x600x24"));
    ASSERT_TRUE(server.isRunning());
    const auto set = QStringLiteral("--setmonitor");
    const auto xrandr = QStringLiteral("xrandr");
    ASSERT_TRUE(server.run(xrandr, {set, QStringLiteral("LEFT"), QStringLiteral("800/200x600/150+0+0"),
                                    QStringLiteral("screen")}));
    ASSERT_TRUE(server.run(xrandr, {set, QStringLiteral("RIGHT"), QStringLiteral("600/150x400/100+800+0"),
                                    QStringLiteral("none")}));
    const QStringList expected{QStringLiteral("screen 100 320 300 200 pixels 300 200 first"),
                               QStringLiteral("resized 1000 300 400 250 pixels 400 250 other"),
                               QStringLiteral("gone"), QStringLiteral("refused")};
    EXPECT_EQ(toldBy(server).join(u'\n').toStdString(), expected.join(u'\n').toStdString());
}

} // namespace kestro
