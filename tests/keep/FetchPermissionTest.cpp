#include "keep/FetchPermission.h"

#include "platform/base/Log.h"
#include "platform/session/FactTest.h"

using namespace kestro;

namespace {

const QString upower = QStringLiteral("org.freedesktop.UPower");
const QString upowerPath = QStringLiteral("/org/freedesktop/UPower");
const QString manager = QStringLiteral("org.freedesktop.NetworkManager");
const QString managerPath = QStringLiteral("/org/freedesktop/NetworkManager");
const QString metered = QStringLiteral("Metered");

class FetchPermissionTest : public FactTest {
protected:
    void SetUp() override { m_upower.setValue(QStringLiteral("OnBattery"), false); }
    void make()
    {
        m_permission.emplace(m_ours, [this](bool isGiven) { m_told.push_back(isGiven); });
    }
    void setMetered(FakeService& service, uint number)
    {
        service.setValue(metered, number);
        service.signalChange(managerPath, manager);
    }
    void setBattery(bool isOn)
    {
        m_upower.setValue(QStringLiteral("OnBattery"), isOn);
        m_upower.signalChange(upowerPath, upower);
    }
    [[nodiscard]] bool comesToSay(const char* words)
    {
        return waitUntil([this, words] { return m_log.join(u'\n').contains(QLatin1String(words)); });
    }

    QStringList m_log;
    LogCapture m_capture{[this](const QString& line) { m_log.append(line); }};
    FakeService m_upower{m_bus, upower};
    std::vector<bool> m_told;
    std::optional<FetchPermission> m_permission;
};

struct MeteredCase {
    uint number;
    bool isGiven;
};

class MeteredBy : public FetchPermissionTest, public testing::WithParamInterface<MeteredCase> {};

} // namespace

INSTANTIATE_TEST_SUITE_P(Numbers, MeteredBy,
                         testing::Values(MeteredCase{0, false}, MeteredCase{1, false}, MeteredCase{2, true},
                                         MeteredCase{3, false}, MeteredCase{4, true}, MeteredCase{9, false}));

TEST_P(MeteredBy, permission_goesByNetworkManager)
{
    FakeService service(m_bus, manager);
    service.setValue(metered, GetParam().number);
    make();
    EXPECT_FALSE(m_permission->isGiven());
    ASSERT_TRUE(waitUntil([this] { return !m_told.empty() || !m_log.isEmpty(); }));
    EXPECT_EQ(m_permission->isGiven(), GetParam().isGiven);
    EXPECT_EQ(m_log.isEmpty(), GetParam().isGiven);
}

TEST_F(FetchPermissionTest, isGiven_whereNobodyKnowsOfNetworks)
{
    make();
    EXPECT_TRUE(waitUntil([this] { return m_permission->isGiven(); }));
}

TEST_F(FetchPermissionTest, isTakenBack_whenTheConnectionBecomesMetered)
{
    FakeService service(m_bus, manager);
    service.setValue(metered, 4U);
    make();
    ASSERT_TRUE(waitUntil([this] { return m_permission->isGiven(); }));
    setMetered(service, 3);
    ASSERT_TRUE(waitUntil([this] { return !m_permission->isGiven(); }));
    EXPECT_TRUE(comesToSay("metered"));
    setMetered(service, 2);
    ASSERT_TRUE(waitUntil([this] { return m_permission->isGiven(); }));
    EXPECT_EQ(m_told, (std::vector{true, false, true}));
}

TEST_F(FetchPermissionTest, isTakenBack_onBattery)
{
    make();
    ASSERT_TRUE(waitUntil([this] { return m_permission->isGiven(); }));
    setBattery(true);
    ASSERT_TRUE(waitUntil([this] { return !m_permission->isGiven(); }));
    EXPECT_TRUE(comesToSay("battery"));
}

TEST_F(FetchPermissionTest, isNotGiven_onBatteryFromTheStart)
{
    m_upower.setValue(QStringLiteral("OnBattery"), true);
    make();
    EXPECT_TRUE(comesToSay("battery"));
    EXPECT_TRUE(m_told.empty());
}

TEST_F(FetchPermissionTest, isNotGiven_whenNetworkManagerDoesNotAnswer)
{
    FakeService service(m_bus, manager);
    service.hang();
    make();
    EXPECT_TRUE(comesToSay("does not know"));
    EXPECT_TRUE(m_told.empty());
}
