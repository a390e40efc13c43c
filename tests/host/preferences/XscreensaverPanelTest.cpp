#include "host/preferences/XscreensaverPanel.h"

#include "host/preferences/PreferencesTest.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace kestro {

namespace {

/// A search path with or without xscreensaver in it.
class XscreensaverPanelTest : public PreferencesTest {
protected:
    XscreensaverPanelTest()
    {
        qputenv("PATH", QFile::encodeName(folder.path()));
        QFile::rename(program("exit 0"), folder.filePath(QStringLiteral("xscreensaver")));
    }
    ~XscreensaverPanelTest() override { qputenv("PATH", m_path); }

    [[nodiscard]] XscreensaverList list() const
    {
        return {folder.filePath(QStringLiteral("list")), QStringLiteral("/usr/bin/env")};
    }
    void writeList(const QByteArray& text) const
    {
        QFile file(list().path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

private:
    QByteArray m_path = qgetenv("PATH");
};

} // namespace

TEST_F(XscreensaverPanelTest, button_putsKestroInAndTakesItOut)
{
    XscreensaverPanel panel(list());
    panel.show();
    EXPECT_EQ(panel.state().text(), QStringLiteral("Kestro is not in your list of XScreenSaver's savers."));
    EXPECT_EQ(panel.button().text(), QStringLiteral("&Add to XScreenSaver"));
    QTest::mouseClick(&panel.button(), Qt::LeftButton);
    EXPECT_TRUE(list().isListed().value() || QFile::exists(list().path()));
    writeList("programs:\\\n  kestro --root \\n\\\n\n");
    panel.refresh();
    EXPECT_EQ(panel.state().text(), QStringLiteral("Kestro is in your list of XScreenSaver's savers."));
    EXPECT_EQ(panel.button().text(), QStringLiteral("&Remove from XScreenSaver"));
    QTest::mouseClick(&panel.button(), Qt::LeftButton);
    EXPECT_FALSE(list().isListed().value());
    EXPECT_EQ(panel.button().text(), QStringLiteral("&Add to XScreenSaver"));
}

TEST_F(XscreensaverPanelTest, sentence_standsAlone_whenXscreensaverIsNotInstalled)
{
    QFile::remove(folder.filePath(QStringLiteral("xscreensaver")));
    XscreensaverPanel panel(list());
    panel.show();
    EXPECT_TRUE(panel.button().isHidden());
    EXPECT_TRUE(panel.state().text().startsWith(QStringLiteral("XScreenSaver is not installed")));
}

TEST_F(XscreensaverPanelTest, state_saysWhy_whenTheListCannotBeRead)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("list")));
    XscreensaverPanel panel(list());
    EXPECT_TRUE(panel.button().isHidden());
    EXPECT_TRUE(panel.state().text().startsWith(QStringLiteral("Cannot read ")));
}

TEST_F(XscreensaverPanelTest, failure_isToldOf_whenTheListCannotBeChanged)
{
    XscreensaverPanel panel({QStringLiteral("/proc/no-such-file"), QStringLiteral("/usr/bin/env")});
    panel.show();
    QSignalSpy failed(&panel, &XscreensaverPanel::failed);
    QTest::mouseClick(&panel.button(), Qt::LeftButton);
    ASSERT_EQ(failed.count(), 1);
    EXPECT_TRUE(failed.front().front().toString().startsWith(QStringLiteral("Cannot write ")));
}

} // namespace kestro
