#include "idle/IdleSwitch.h"

#include "idle/IdleControl.h"
#include "platform/session/PrivateBus.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

using namespace std::chrono_literals;

class IdleSwitchTest : public testing::Test {
protected:
    IdleSwitchTest()
    {
        QFile program(path("kestro"));
        EXPECT_TRUE(program.open(QIODevice::WriteOnly));
        program.write("#!/bin/sh\necho \"$@\" >> '" + QFile::encodeName(path("started")) + "'\n");
        program.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }

    [[nodiscard]] QString path(const char* name) const { return m_home.filePath(QString::fromUtf8(name)); }
    [[nodiscard]] QByteArray contentOf(const char* name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] IdleSwitch::Places places()
    {
        return {path("conf/kestro.conf"),
                IdleAutostart(path("autostart/kestro-idle.desktop"), path("kestro")), path("kestro"),
                m_bus.connect()};
    }
    /// A service that counts what it is told.
    void serve()
    {
        m_service = std::make_unique<IdleControl>(m_bus.connect(),
                                                  IdleControl::Handlers{.status = [this] { return m_status; },
                                                                        .show = [] {},
                                                                        .reload = [this] { ++m_reloads; },
                                                                        .quit = [this] { ++m_quits; }});
        ASSERT_TRUE(m_service->begin());
    }

    QTemporaryDir m_home;
    PrivateBus m_bus;
    IdleStatus m_status;
    int m_reloads = 0;
    int m_quits = 0;
    std::unique_ptr<IdleControl> m_service;
};

TEST_F(IdleSwitchTest, set_storesForTheNextSession_andStartsTheServiceNow)
{
    IdleSwitch subject(places());
    EXPECT_FALSE(subject.options().isEnabled);
    ASSERT_TRUE(subject.set({true, 10min}).isOk());
    EXPECT_TRUE(subject.options().isEnabled);
    EXPECT_EQ(contentOf("conf/kestro.conf"), "[idle]\nenabled=yes\nafter=10\n");
    EXPECT_TRUE(contentOf("autostart/kestro-idle.desktop").contains("/kestro\" idle\n"));
    EXPECT_TRUE(waitUntil([this] { return contentOf("started") == "idle\n"; }));
}

TEST_F(IdleSwitchTest, set_tellsTheServiceThatRuns)
{
    serve();
    IdleSwitch subject(places());
    ASSERT_TRUE(subject.set({true, 3min}).isOk());
    EXPECT_TRUE(waitUntil([this] { return m_reloads == 1; }));
    ASSERT_TRUE(subject.set({false, 3min}).isOk());
    EXPECT_TRUE(waitUntil([this] { return m_quits == 1; }));
    EXPECT_FALSE(QFile::exists(path("autostart/kestro-idle.desktop")));
    EXPECT_FALSE(QFile::exists(path("started")));
    EXPECT_FALSE(subject.options().isEnabled);
}

TEST_F(IdleSwitchTest, set_leavesAFileThatCannotBeReadAsItIs)
{
    ASSERT_TRUE(QDir().mkpath(path("conf/kestro.conf")));
    const auto stored = IdleSwitch(places()).set({true, 3min});
    ASSERT_FALSE(stored.isOk());
    EXPECT_EQ(stored.error(),
              path("conf/kestro.conf") + QStringLiteral(" cannot be read, so it is left as it is"));
    EXPECT_FALSE(QFile::exists(path("autostart/kestro-idle.desktop")));
}

TEST_F(IdleSwitchTest, watchStatus_tellsNowAndEachChange_andWhenTheServiceGoes)
{
    serve();
    IdleSwitch subject(places());
    QStringList told;
    subject.watchStatus([&](const std::optional<IdleStatus>& status) {
        told.append(status ? status->text() : QStringLiteral("none"));
    });
    EXPECT_TRUE(waitUntil([&] { return told == QStringList(QStringLiteral("active")); }));
    m_status.state = IdleMachine::State::Showing;
    m_service->tellChange();
    EXPECT_TRUE(waitUntil([&] { return told.back() == u"showing the saver"; }));
    m_service.reset();
    EXPECT_TRUE(waitUntil([&] { return told.back() == u"none"; }));
}

} // namespace kestro
