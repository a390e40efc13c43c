#include "platform/session/IdleRivals.h"

#include "platform/display/XvfbServer.h"
#include "platform/session/PrivateBus.h"
#include "support/WaitUntil.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <optional>
#include <unistd.h>

namespace kestro {

namespace {

/// The real daemon, as "nobody" where the tests run as root: it has no rights to give up then. Ends with
/// this.
class Daemon final {
public:
    explicit Daemon(const XvfbServer& server)
    {
        QStringList command{QStringLiteral("xscreensaver"), QStringLiteral("--no-splash")};
        if (getuid() == 0) {
            constexpr uid_t nobody = 65534;
            if (chown(m_home.path().toUtf8().constData(), nobody, nobody) != 0) ADD_FAILURE() << "no home";
            command = QStringList{QStringLiteral("setpriv"), QStringLiteral("--reuid=65534"),
                                  QStringLiteral("--regid=65534"), QStringLiteral("--clear-groups"),
                                  QStringLiteral("--")} +
                      command;
        }
        auto environment = server.environment();
        environment.insert(QStringLiteral("HOME"), m_home.path());
        m_process.setProcessEnvironment(environment);
        m_process.setStandardOutputFile(QProcess::nullDevice());
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.start(command.first(), command.mid(1));
        EXPECT_TRUE(m_process.waitForStarted());
    }
    ~Daemon()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    Daemon(const Daemon&) = delete;
    Daemon& operator=(const Daemon&) = delete;

private:
    QTemporaryDir m_home;
    QProcess m_process;
};

class IdleRivalsTest : public testing::Test {
protected:
    void serve()
    {
        m_server.emplace(QStringLiteral("64x64x24"));
        m_rivals.emplace(m_client, m_server->environment().value(QStringLiteral("DISPLAY")).toUtf8());
        m_rivals->setChangeHandler([this] { ++m_changes; });
    }
    /// What is there after a look; "" for nothing.
    QString seen()
    {
        int answers = 0;
        m_rivals->look([&] { ++answers; });
        EXPECT_TRUE(waitUntil([&] { return answers > 0; }));
        return name();
    }
    [[nodiscard]] QString name() const { return m_rivals->rival().value_or(IdleRival()).name; }
    /// Looks until the daemon has come up.
    [[nodiscard]] bool comesToSee(const QString& rival)
    {
        return waitUntil([&] { return seen() == rival; });
    }

    PrivateBus m_bus;
    QDBusConnection m_client = m_bus.connect();
    std::optional<XvfbServer> m_server;
    std::optional<IdleRivals> m_rivals{std::in_place, m_client, QByteArray()};
    int m_changes = 0;
};

const QString xscreensaver = QStringLiteral("xscreensaver");

} // namespace

TEST_F(IdleRivalsTest, look_seesNone_whenNoneRuns)
{
    serve();
    EXPECT_EQ(seen(), QString());
}

TEST_F(IdleRivalsTest, look_seesXscreensaver_whenItsDaemonRuns)
{
    serve();
    const Daemon daemon(*m_server);
    ASSERT_TRUE(comesToSee(xscreensaver));
    EXPECT_EQ(m_rivals->rival()->remedy, QStringLiteral("kestro install-xscreensaver"));
}

TEST_F(IdleRivalsTest, rivals_tellByThemselves_whenXscreensaverEnds)
{
    serve();
    std::optional<Daemon> daemon(std::in_place, *m_server);
    ASSERT_TRUE(comesToSee(xscreensaver));
    daemon.reset();
    EXPECT_TRUE(waitUntil([this] { return m_changes == 1; }));
    EXPECT_EQ(name(), QString());
    EXPECT_EQ(seen(), QString()); // although its status still stands at the root window
}

TEST_F(IdleRivalsTest, look_seesXscreensaverAgain_whenItWasRestarted)
{
    serve();
    std::optional<Daemon> daemon(std::in_place, *m_server);
    ASSERT_TRUE(comesToSee(xscreensaver));
    daemon.reset();
    daemon.emplace(*m_server);
    EXPECT_TRUE(comesToSee(xscreensaver));
}

TEST_F(IdleRivalsTest, rivals_areNone_whenTheServerEnds)
{
    serve();
    const Daemon daemon(*m_server);
    ASSERT_TRUE(comesToSee(xscreensaver));
    m_server.reset();
    EXPECT_TRUE(waitUntil([this] { return m_changes == 1; }));
    EXPECT_EQ(name(), QString());
}

TEST_F(IdleRivalsTest, look_answersAll_whenAskedTwiceAtOnce)
{
    int answers = 0;
    m_rivals->look([&] { ++answers; });
    m_rivals->look([&] { ++answers; });
    EXPECT_EQ(answers, 0); // from the event loop alone
    EXPECT_TRUE(waitUntil([&] { return answers == 2; }));
}

TEST_F(IdleRivalsTest, look_answers_whenThereIsNoBus)
{
    m_rivals.emplace(QDBusConnection(QStringLiteral("none")), QByteArray());
    EXPECT_EQ(seen(), QString());
}

TEST_F(IdleRivalsTest, look_seesMatesScreensaver_whenItIsOnTheBus)
{
    const FakeService fake(m_bus, QStringLiteral("org.mate.ScreenSaver"));
    m_rivals.emplace(m_client, QByteArray());
    EXPECT_EQ(seen(), QStringLiteral("mate-screensaver"));
}

TEST_F(IdleRivalsTest, rivals_tellByThemselves_whenAServiceComesAndGoes)
{
    m_rivals->setChangeHandler([this] { ++m_changes; });
    std::optional<FakeService> fake(std::in_place, m_bus, QStringLiteral("org.xfce.ScreenSaver"));
    EXPECT_TRUE(waitUntil([this] { return m_changes == 1; }));
    EXPECT_EQ(name(), QStringLiteral("xfce4-screensaver"));
    fake.reset();
    EXPECT_TRUE(waitUntil([this] { return m_changes == 2; }));
    EXPECT_EQ(name(), QString());
}

TEST_F(IdleRivalsTest, look_seesNone_whenAServiceOnlyLocks)
{
    const FakeService gnome(m_bus, QStringLiteral("org.gnome.ScreenSaver"));
    const FakeService cinnamon(m_bus, QStringLiteral("org.cinnamon.ScreenSaver"));
    const FakeService kde(m_bus, QStringLiteral("org.kde.screensaver"));
    EXPECT_EQ(seen(), QString());
}

TEST_F(IdleRivalsTest, remedy_makesATheme_whenAShellRunsIt)
{
    const FakeService fake(m_bus, QStringLiteral("org.mate.ScreenSaver"));
    ASSERT_EQ(seen(), QStringLiteral("mate-screensaver"));
    const QTemporaryDir home;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), home.path());
    QProcess shell;
    shell.setProcessEnvironment(environment);
    shell.start(QStringLiteral("sh"), {QStringLiteral("-c"), m_rivals->rival()->remedy});
    ASSERT_TRUE(shell.waitForFinished());
    QFile theme(home.filePath(QStringLiteral("applications/screensavers/kestro.desktop")));
    ASSERT_TRUE(theme.open(QIODevice::ReadOnly));
    EXPECT_EQ(theme.readAll(), "[Desktop Entry]\nType=Application\nName=Kestro\nExec=kestro --root\n"
                               "TryExec=kestro\nCategories=Screensaver;\n");
}

} // namespace kestro
