#include "host/preferences/ScreensPanel.h"

#include "host/preferences/PreferencesTest.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QSignalSpy>

namespace kestro {

namespace {

class ScreensPanelTest : public PreferencesTest {
protected:
    [[nodiscard]] QString configuration() const { return folder.filePath(QStringLiteral("kestro.conf")); }
    [[nodiscard]] static ScreensPanel::Names monitors()
    {
        return [] { return QStringList{QStringLiteral("DP-1"), QStringLiteral("HDMI-1")}; };
    }
    [[nodiscard]] QByteArray stored() const
    {
        QFile file(configuration());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void write(const QByteArray& text) const
    {
        QFile file(configuration());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
};

} // namespace

TEST_F(ScreensPanelTest, showsTheUsual_andStoresNothing_untilSomethingIsChosen)
{
    ScreensPanel panel(configuration(), monitors());
    EXPECT_EQ(panel.mode().currentText(), QStringLiteral("A movie on each"));
    EXPECT_EQ(panel.monitors().currentText(), QStringLiteral("All monitors"));
    EXPECT_FALSE(QFile::exists(configuration()));
}

TEST_F(ScreensPanelTest, storesWhatIsChosen_besideWhatElseIsThere)
{
    write("[idle]\nafter=7\n");
    ScreensPanel panel(configuration(), monitors());
    panel.mode().setCurrentIndex(1);
    EXPECT_EQ(stored(), "[idle]\nafter=7\n\n[screens]\nmode=mirror\nmonitors=all\n");
    panel.mode().setCurrentIndex(2);
    panel.monitors().setCurrentIndex(1);
    EXPECT_EQ(stored(), "[idle]\nafter=7\n\n[screens]\nmode=span\nmonitors=first\n");
    EXPECT_EQ(ScreensPanel(configuration(), monitors()).mode().currentText(),
              QStringLiteral("One movie across all"));
}

TEST_F(ScreensPanelTest, offersEveryMonitorByItsName)
{
    ScreensPanel panel(configuration(), monitors());
    panel.monitors().setCurrentIndex(panel.monitors().findText(QStringLiteral("HDMI-1 alone")));
    EXPECT_EQ(stored(), "[screens]\nmode=each\nmonitors=HDMI-1\n");
}

TEST_F(ScreensPanelTest, keepsNamesThatNoMonitorHasNow)
{
    write("[screens]\nmonitors=DP-7,DP-8\n");
    ScreensPanel panel(configuration(), monitors());
    EXPECT_EQ(panel.monitors().currentText(), QStringLiteral("DP-7,DP-8 alone"));
    panel.mode().setCurrentIndex(1);
    EXPECT_TRUE(stored().contains("monitors=DP-7,DP-8\n"));
}

TEST_F(ScreensPanelTest, refresh_showsWhatAnotherProgramChose)
{
    ScreensPanel panel(configuration(), monitors());
    write("[screens]\nmode=span\n");
    panel.refresh();
    EXPECT_EQ(panel.mode().currentText(), QStringLiteral("One movie across all"));
    EXPECT_EQ(stored(), "[screens]\nmode=span\n");
}

TEST_F(ScreensPanelTest, goesBack_andTells_whenItCannotStore)
{
    ASSERT_TRUE(QDir().mkpath(configuration()));
    ScreensPanel panel(configuration(), monitors());
    QSignalSpy failures(&panel, &ScreensPanel::failed);
    panel.mode().setCurrentIndex(1);
    ASSERT_EQ(failures.count(), 1);
    EXPECT_TRUE(failures[0][0].toString().contains(QStringLiteral("cannot be read")));
    EXPECT_EQ(panel.mode().currentIndex(), 0);
}

} // namespace kestro
