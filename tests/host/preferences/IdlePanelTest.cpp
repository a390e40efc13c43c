#include "host/preferences/IdlePanel.h"

#include "host/preferences/PreferencesTest.h"
#include "idle/IdleControl.h"
#include "platform/session/PrivateBus.h"

#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

namespace kestro {

using namespace std::chrono_literals;

namespace {

class IdlePanelTest : public PreferencesTest {
protected:
    [[nodiscard]] IdleSwitch::Places places()
    {
        return {configuration(), IdleAutostart(folder.filePath(QStringLiteral("kestro-idle.desktop")), {}),
                program("exit 0"), m_bus.connect()};
    }
    [[nodiscard]] QString configuration() const { return folder.filePath(QStringLiteral("kestro.conf")); }
    [[nodiscard]] IdleOptions stored() { return IdleSwitch(places()).options(); }

    PrivateBus m_bus;
};

} // namespace

TEST_F(IdlePanelTest, showsWhatIsStored_andStoresWhatIsChosen)
{
    IdlePanel panel(places());
    EXPECT_FALSE(panel.isOn().isChecked());
    EXPECT_EQ(panel.minutes().value(), 5);
    EXPECT_FALSE(panel.minutes().isEnabled());
    QTest::mouseClick(&panel.isOn(), Qt::LeftButton, {}, QPoint(5, panel.isOn().height() / 2));
    EXPECT_TRUE(panel.minutes().isEnabled());
    panel.minutes().setValue(12);
    EXPECT_TRUE(stored().isEnabled);
    EXPECT_EQ(stored().after, 12min);
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("kestro-idle.desktop"))));
    EXPECT_EQ(IdlePanel(places()).minutes().value(), 12);
}

TEST_F(IdlePanelTest, storesWhenItIsToBeBlack_whoeverStartsIt)
{
    IdlePanel panel(places());
    EXPECT_EQ(panel.end().text(), QStringLiteral("never"));
    EXPECT_TRUE(panel.end().isEnabled());
    panel.end().setValue(30);
    EXPECT_EQ(stored().stopAfter, 30min);
    EXPECT_EQ(IdlePanel(places()).end().value(), 30);
    panel.end().setValue(0);
    EXPECT_EQ(stored().stopAfter, 0min);
}

TEST_F(IdlePanelTest, goesBack_andTells_whenItCannotStore)
{
    ASSERT_TRUE(QDir().mkpath(configuration()));
    IdlePanel panel(places());
    QSignalSpy failures(&panel, &IdlePanel::failed);
    panel.isOn().setChecked(true);
    ASSERT_EQ(failures.count(), 1);
    EXPECT_TRUE(failures[0][0].toString().contains(QStringLiteral("cannot be read")));
    EXPECT_FALSE(panel.isOn().isChecked());
}

TEST_F(IdlePanelTest, saysWhatKeepsTheSaverFromStarting)
{
    IdleStatus status;
    IdleControl service(m_bus.connect(),
                        {.status = [&] { return status; }, .show = [] {}, .reload = [] {}, .quit = [] {}});
    IdlePanel panel(places());
    EXPECT_TRUE(
        waitUntil([&] { return panel.state().text() == u"Nothing starts the saver by itself now."; }));
    ASSERT_TRUE(service.begin());
    EXPECT_TRUE(waitUntil([&] { return panel.state().text() == u"Now: waiting until you are away."; }));
    status.hindrances = {
        {HindranceKind::Inhibited, QStringLiteral("Firefox"), QStringLiteral("playing video")},
        {HindranceKind::Battery, {}, {}}};
    service.tellChange();
    EXPECT_TRUE(waitUntil([&] {
        return panel.state().text() == u"Now kept from starting: a program asks for it (Firefox): playing "
                                       u"video; power is to be saved.";
    }));
    status = {};
    status.rival = QStringLiteral("xscreensaver");
    service.tellChange();
    EXPECT_TRUE(
        waitUntil([&] { return panel.state().text() == u"Now: xscreensaver looks after this session."; }));
}

} // namespace kestro
