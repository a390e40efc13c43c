#include "platform/session/PowerFact.h"

#include "platform/session/FactTest.h"

using namespace kestro;

namespace {

const QString upower = QStringLiteral("org.freedesktop.UPower");
const QString upowerPath = QStringLiteral("/org/freedesktop/UPower");
const QString device = QStringLiteral("org.freedesktop.UPower.Device");
const QString devicePath = QStringLiteral("/org/freedesktop/UPower/devices/DisplayDevice");
const PowerRule offOnBattery{PowerChoice::Off, 20, PowerChoice::Off, PowerChoice::Play};

class PowerFactTest : public FactTest {
protected:
    void SetUp() override
    {
        m_upower.setValue(QStringLiteral("OnBattery"), false);
        m_upower.setValue(QStringLiteral("LidIsClosed"), false);
        m_upower.setValue(QStringLiteral("IsPresent"), true);
        m_upower.setValue(QStringLiteral("Percentage"), 80.0);
    }
    void setPower(const QString& property, const QVariant& value)
    {
        m_upower.setValue(property, value);
        m_upower.signalChange(upowerPath, upower);
    }

    FakeService m_upower{m_bus, upower};
};

struct Profiles {
    const char* name;
    const char* path;
};

class ProfilesOf : public PowerFactTest, public testing::WithParamInterface<Profiles> {};

struct RuleCase {
    PowerState state;
    PowerChoice choice;
    const char* reason;
};

class RuleOf : public testing::TestWithParam<RuleCase> {};

} // namespace

TEST_F(PowerFactTest, battery_isAReason_whenTheRuleSaysOff)
{
    PowerFact fact(m_ours, offOnBattery);
    ASSERT_TRUE(asked(fact).isEmpty());
    setPower(QStringLiteral("OnBattery"), true);
    ASSERT_TRUE(comesToHave(fact, 1));
    EXPECT_EQ(fact.hindrances().value(0).kind, HindranceKind::Battery);
    setPower(QStringLiteral("OnBattery"), false);
    EXPECT_TRUE(comesToHave(fact, 0));
}

TEST_F(PowerFactTest, battery_isNoReason_whenTheRuleSaysStill)
{
    PowerFact fact(m_ours, {PowerChoice::Still, 20, PowerChoice::Still, PowerChoice::Play});
    m_upower.setValue(QStringLiteral("OnBattery"), true);
    EXPECT_TRUE(asked(fact).isEmpty());
    EXPECT_TRUE(fact.state().onBattery);
}

TEST_F(PowerFactTest, battery_becomesAReason_whenItRunsLow)
{
    m_upower.setValue(QStringLiteral("OnBattery"), true);
    PowerFact fact(m_ours, PowerRule());
    ASSERT_TRUE(asked(fact).isEmpty());
    m_upower.setValue(QStringLiteral("Percentage"), 12.9);
    m_upower.signalChange(devicePath, device);
    ASSERT_TRUE(comesToHave(fact, 1));
    EXPECT_EQ(fact.hindrances().value(0).why, QStringLiteral("12 %"));
}

TEST_F(PowerFactTest, percent_isNotKnown_whenThereIsNoBattery)
{
    m_upower.setValue(QStringLiteral("IsPresent"), false);
    m_upower.setValue(QStringLiteral("Percentage"), 0.0);
    PowerFact fact(m_ours, PowerRule());
    static_cast<void>(asked(fact));
    EXPECT_FALSE(fact.state().percent.has_value());
}

TEST_F(PowerFactTest, lid_isAReason_whileItIsClosed)
{
    PowerFact fact(m_ours, PowerRule());
    ASSERT_TRUE(asked(fact).isEmpty());
    setPower(QStringLiteral("LidIsClosed"), true);
    ASSERT_TRUE(comesToHave(fact, 1));
    EXPECT_EQ(fact.hindrances().value(0).kind, HindranceKind::LidClosed);
    setPower(QStringLiteral("LidIsClosed"), false);
    EXPECT_TRUE(comesToHave(fact, 0));
}

TEST_F(PowerFactTest, nothingIsKnown_whenUPowerHangs)
{
    m_upower.setValue(QStringLiteral("OnBattery"), true);
    PowerFact fact(m_ours, offOnBattery);
    ASSERT_EQ(asked(fact).size(), 1);
    m_upower.hang();
    EXPECT_TRUE(asked(fact).isEmpty());
    EXPECT_EQ(fact.state(), PowerState());
}

TEST_F(PowerFactTest, nothingIsKnown_whenUPowerLeaves)
{
    m_upower.setValue(QStringLiteral("OnBattery"), true);
    PowerFact fact(m_ours, offOnBattery);
    ASSERT_EQ(asked(fact).size(), 1);
    m_upower.leave();
    EXPECT_TRUE(comesToHave(fact, 0));
}

TEST_F(PowerFactTest, battery_isAReason_whenThePersonChoosesSo)
{
    m_upower.setValue(QStringLiteral("OnBattery"), true);
    PowerFact fact(m_ours, PowerRule());
    ASSERT_TRUE(asked(fact).isEmpty());
    fact.setRule(offOnBattery);
    EXPECT_EQ(fact.hindrances().size(), 1);
}

TEST_P(ProfilesOf, powerSaver_isAReason_whenTheRuleSaysOff)
{
    const QString name = QString::fromLatin1(GetParam().name);
    FakeService profiles(m_bus, name);
    profiles.setValue(QStringLiteral("ActiveProfile"), QStringLiteral("balanced"));
    PowerFact fact(m_ours, {PowerChoice::Play, 20, PowerChoice::Off, PowerChoice::Off});
    ASSERT_TRUE(asked(fact).isEmpty());
    profiles.setValue(QStringLiteral("ActiveProfile"), QStringLiteral("power-saver"));
    profiles.signalChange(QString::fromLatin1(GetParam().path), name);
    ASSERT_TRUE(comesToHave(fact, 1));
    EXPECT_EQ(fact.hindrances().value(0).why, QStringLiteral("power-saver"));
}

INSTANTIATE_TEST_SUITE_P(names, ProfilesOf,
                         testing::Values(Profiles{"net.hadess.PowerProfiles", "/net/hadess/PowerProfiles"},
                                         Profiles{"org.freedesktop.UPower.PowerProfiles",
                                                  "/org/freedesktop/UPower/PowerProfiles"}));

TEST_P(RuleOf, choose_answersTheThriftiestOfWhatApplies)
{
    const PowerRule rule{PowerChoice::Still, 20, PowerChoice::Off, PowerChoice::Still};
    EXPECT_EQ(rule.choose(GetParam().state), GetParam().choice);
    EXPECT_EQ(rule.reason(GetParam().state), QString::fromLatin1(GetParam().reason));
}

INSTANTIATE_TEST_SUITE_P(states, RuleOf,
                         testing::Values(RuleCase{{false, {}, false, false}, PowerChoice::Play, ""},
                                         RuleCase{{false, 5, false, false}, PowerChoice::Play, ""},
                                         RuleCase{{true, {}, false, false}, PowerChoice::Still, ""},
                                         RuleCase{{true, 20, false, false}, PowerChoice::Still, ""},
                                         RuleCase{{true, 19.9, false, false}, PowerChoice::Off, "19 %"},
                                         RuleCase{{false, 5, true, false}, PowerChoice::Still, "power-saver"},
                                         RuleCase{{true, 5, true, true}, PowerChoice::Off, "5 %"}));
