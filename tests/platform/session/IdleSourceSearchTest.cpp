#include "platform/session/IdleSourceSearch.h"

#include "platform/display/XvfbServer.h"
#include "platform/session/FakeCompositor.h"
#include "platform/session/FakeIdleMonitor.h"
#include "platform/session/ListeningSocket.h"
#include "platform/session/MutterIdleSource.h"
#include "platform/session/PrivateBus.h"
#include "platform/session/SwaySession.h"
#include "platform/session/Told.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <optional>
#include <unistd.h>

namespace kestro {

namespace {

class IdleSourceSearchTest : public testing::Test {
protected:
    /// The name of what is found; "none" for nothing.
    QString found()
    {
        QString name;
        const IdleSourceSearch search(m_places, [&](std::unique_ptr<IdleSource> source) {
            m_source = std::move(source);
            name = m_source ? m_source->name() : QStringLiteral("none");
        });
        EXPECT_EQ(name, QString()); // from the event loop alone
        EXPECT_TRUE(waitUntil([&] { return !name.isEmpty(); }));
        return name;
    }
    void serveX()
    {
        m_server.emplace(QStringLiteral("64x64x24"));
        m_places.xDisplay = m_server->environment().value(QStringLiteral("DISPLAY")).toUtf8();
    }
    void serveWayland(int version)
    {
        m_compositor.emplace(version);
        m_places.waylandDisplay = m_compositor->display();
    }
    /// Has a socket there that takes whoever comes and says nothing.
    void standDeafAt(const QByteArray& path)
    {
        m_deafPath = path;
        m_deaf = listenAt(path);
    }
    void TearDown() override
    {
        if (m_deaf < 0) return;
        close(m_deaf);
        QFile::remove(QString::fromUtf8(m_deafPath));
    }

    PrivateBus m_bus;
    SessionPlaces m_places{m_bus.connect(), {}, {}};
    QTemporaryDir m_folder;
    QByteArray m_deafPath;
    int m_deaf = -1;
    std::optional<XvfbServer> m_server;
    std::optional<FakeCompositor> m_compositor;
    std::unique_ptr<IdleSource> m_source;
};

const QString mutterName = MutterIdleSource::mutter().service;

} // namespace

TEST_F(IdleSourceSearchTest, search_findsNone_whenThereIsNothing)
{
    EXPECT_EQ(found(), QStringLiteral("none"));
}

TEST_F(IdleSourceSearchTest, search_findsTheCounter_whenThereIsX)
{
    serveX();
    EXPECT_EQ(found(), QStringLiteral("XSync"));
}

TEST_F(IdleSourceSearchTest, search_findsTheMonitorFirst_whenThereIsX)
{
    serveX();
    const FakeIdleMonitor fake(m_bus, MutterIdleSource::muffin());
    EXPECT_EQ(found(), MutterIdleSource::muffin().service);
}

TEST_F(IdleSourceSearchTest, search_findsTheMonitorFirst_whenThereIsWayland)
{
    serveWayland(2);
    const FakeIdleMonitor fake(m_bus, MutterIdleSource::mutter());
    EXPECT_EQ(found(), mutterName);
}

TEST_F(IdleSourceSearchTest, search_findsTheProtocol_whenThereIsWaylandWithXwayland)
{
    serveX();
    serveWayland(1);
    EXPECT_EQ(found(), QStringLiteral("ext-idle-notify-v1"));
}

TEST_F(IdleSourceSearchTest, search_findsNone_whenWaylandHasNoProtocolButXwayland)
{
    serveX();
    serveWayland(0);
    EXPECT_EQ(found(), QStringLiteral("none"));
}

TEST_F(IdleSourceSearchTest, search_findsTheCounter_whenTheNamedCompositorIsGone)
{
    serveX();
    serveWayland(1);
    m_compositor.reset();
    EXPECT_EQ(found(), QStringLiteral("XSync"));
}

TEST_F(IdleSourceSearchTest, search_findsNone_whenTheCompositorHangs)
{
    serveX();
    m_places.waylandDisplay = m_folder.filePath(QStringLiteral("deaf")).toUtf8();
    standDeafAt(m_places.waylandDisplay);
    EXPECT_EQ(found(), QStringLiteral("none"));
}

TEST_F(IdleSourceSearchTest, search_findsNone_whenTheServerHangs)
{
    const QByteArray number = QByteArray::number(QRandomGenerator::global()->bounded(50000, 60000));
    QDir(QStringLiteral("/tmp")).mkpath(QStringLiteral(".X11-unix"));
    m_places.xDisplay = ":" + number;
    standDeafAt("/tmp/.X11-unix/X" + number);
    EXPECT_EQ(found(), QStringLiteral("none"));
}

TEST_F(IdleSourceSearchTest, search_goesOn_whenThereIsNoBus)
{
    m_places.bus = QDBusConnection(QStringLiteral("none"));
    serveX();
    EXPECT_EQ(found(), QStringLiteral("XSync"));
}

TEST_F(IdleSourceSearchTest, search_tellsNobody_whenDestroyedBefore)
{
    serveX();
    bool isTold = false;
    {
        const IdleSourceSearch search(m_places, [&](const auto&) { isTold = true; });
    }
    EXPECT_EQ(found(), QStringLiteral("XSync")); // a later one is through
    EXPECT_FALSE(isTold);
}

TEST_F(IdleSourceSearchTest, source_tells_whenItWasFound)
{
    serveX();
    ASSERT_EQ(found(), QStringLiteral("XSync"));
    Told told;
    m_source->watch(std::chrono::milliseconds(50), told.handlers());
    EXPECT_TRUE(waitUntil([&] { return told.isLast("idle"); }));
}

TEST_F(IdleSourceSearchTest, search_findsTheCompositor_whenItIsSway)
{
    const SwaySession sway;
    m_places.waylandDisplay = sway.display();
    ASSERT_NE(sway.idleProtocol(), QString());
    EXPECT_EQ(found(), sway.idleProtocol());
}

TEST(SessionPlaces, trueXDisplay_isNone_whenThereIsWayland)
{
    const QDBusConnection none(QStringLiteral("none"));
    EXPECT_EQ((SessionPlaces{none, "wayland-0", ":0"}.trueXDisplay()), QByteArray());
    EXPECT_EQ((SessionPlaces{none, {}, ":0"}.trueXDisplay()), QByteArray(":0"));
}

} // namespace kestro
