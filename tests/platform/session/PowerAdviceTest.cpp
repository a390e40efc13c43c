#include "platform/session/PowerAdvice.h"

#include "platform/session/FactTest.h"

#include <atomic>
#include <memory>
#include <mutex>

using namespace kestro;

namespace {

const QString upower = QStringLiteral("org.freedesktop.UPower");
const QString upowerPath = QStringLiteral("/org/freedesktop/UPower");
const PowerRule rule{PowerChoice::Still, 20, PowerChoice::Off, PowerChoice::Play};

class PowerAdviceTest : public FactTest {
protected:
    void SetUp() override
    {
        m_upower.setValue(QStringLiteral("OnBattery"), false);
        m_upower.setValue(QStringLiteral("IsPresent"), true);
        m_upower.setValue(QStringLiteral("Percentage"), 80.0);
    }
    PowerAdvice::Handler noted()
    {
        return [this](PowerChoice choice, const QString& reason) {
            m_choices.push_back(choice);
            m_reasons.append(reason);
        };
    }
    std::function<QDBusConnection()> bus()
    {
        return [ours = m_ours] { return ours; };
    }
    void setPower(const QString& property, const QVariant& value)
    {
        m_upower.setValue(property, value);
        m_upower.signalChange(upowerPath, upower);
    }

    FakeService m_upower{m_bus, upower};
    std::vector<PowerChoice> m_choices;
    QStringList m_reasons;
};

} // namespace

TEST_F(PowerAdviceTest, choice_followsThePower)
{
    const PowerAdvice advice(rule, bus(), noted());
    ASSERT_TRUE(waitUntil([this] { return m_upower.calls().count(QStringLiteral("Get Percentage")) > 0; }));
    EXPECT_TRUE(m_choices.empty());
    setPower(QStringLiteral("OnBattery"), true);
    ASSERT_TRUE(waitUntil([this] { return m_choices == std::vector{PowerChoice::Still}; }));
    m_upower.setValue(QStringLiteral("Percentage"), 12.0);
    m_upower.signalChange(QStringLiteral("/org/freedesktop/UPower/devices/DisplayDevice"),
                          QStringLiteral("org.freedesktop.UPower.Device"));
    ASSERT_TRUE(waitUntil([this] { return m_choices.size() == 2; }));
    EXPECT_EQ(m_choices.back(), PowerChoice::Off);
    EXPECT_EQ(m_reasons.back(), QStringLiteral("12 %"));
    setPower(QStringLiteral("OnBattery"), false);
    ASSERT_TRUE(waitUntil([this] { return m_choices.size() == 3; }));
    EXPECT_EQ(m_choices.back(), PowerChoice::Play);
}

TEST_F(PowerAdviceTest, choice_isKnownAtTheStart)
{
    m_upower.setValue(QStringLiteral("OnBattery"), true);
    const PowerAdvice advice(rule, bus(), noted());
    EXPECT_TRUE(m_choices.empty());
    EXPECT_TRUE(waitUntil([this] { return m_choices == std::vector{PowerChoice::Still}; }));
}

TEST_F(PowerAdviceTest, nothingIsTold_andNobodyWaits_whenTheBusHangs)
{
    const auto hung = std::make_shared<std::mutex>();
    const auto wasAsked = std::make_shared<std::atomic<bool>>(false);
    hung->lock();
    {
        const PowerAdvice advice(
            rule,
            [hung, wasAsked, ours = m_ours] {
                *wasAsked = true;
                const std::lock_guard waits(*hung);
                return ours;
            },
            noted());
        EXPECT_TRUE(waitUntil([&] { return wasAsked->load(); }));
    }
    hung->unlock();
    EXPECT_TRUE(m_choices.empty());
    EXPECT_TRUE(m_upower.calls().isEmpty());
}

TEST_F(PowerAdviceTest, nothingIsTold_whenThereIsNoBus)
{
    m_upower.setValue(QStringLiteral("OnBattery"), true);
    const auto wasAsked = std::make_shared<std::atomic<int>>(0);
    const PowerAdvice none(
        rule,
        [wasAsked] {
            ++*wasAsked;
            return QDBusConnection(QStringLiteral("nowhere"));
        },
        noted());
    EXPECT_TRUE(waitUntil([&] { return wasAsked->load() == 1; }));
    const PowerAdvice later(rule, bus(), noted());
    EXPECT_TRUE(waitUntil([this] { return !m_choices.empty(); }));
    EXPECT_EQ(m_choices.size(), 1U);
}
