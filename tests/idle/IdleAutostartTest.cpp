#include "idle/IdleAutostart.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

class IdleAutostartTest : public testing::Test {
protected:
    [[nodiscard]] QByteArray exec(const char* program) const
    {
        EXPECT_TRUE(IdleAutostart(m_path, QString::fromUtf8(program)).set(true).isOk());
        QFile file(m_path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        for (const QByteArray& line : file.readAll().split('\n'))
            if (line.startsWith("Exec=")) return line.mid(5);
        return {};
    }

    QTemporaryDir m_home;
    QString m_path = m_home.path() + QStringLiteral("/.config/autostart/kestro-idle.desktop");
};

TEST_F(IdleAutostartTest, set_makesAFileThatSessionsStart_andTakesItAway)
{
    EXPECT_EQ(exec("/usr/bin/kestro"), "\"/usr/bin/kestro\" idle");
    const IdleAutostart autostart(m_path, QStringLiteral("/usr/bin/kestro"));
    EXPECT_TRUE(autostart.set(false).isOk());
    EXPECT_FALSE(QFile::exists(m_path));
    EXPECT_TRUE(autostart.set(false).isOk());
}

TEST_F(IdleAutostartTest, set_writesAPathSoThatItIsReadBack)
{
    EXPECT_EQ(exec("/home/ada/my 100%/$x`y\"z/kestro"), R"("/home/ada/my 100%%/\\$x\\`y\\"z/kestro" idle)");
    EXPECT_EQ(exec(R"(/a\b)"), R"("/a\\\\b" idle)");
}

TEST_F(IdleAutostartTest, set_saysWhy_whenItCannot)
{
    QFile inTheWay(m_home.path() + QStringLiteral("/.config"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    const auto made = IdleAutostart(m_path, QStringLiteral("/usr/bin/kestro")).set(true);
    ASSERT_FALSE(made.isOk());
    EXPECT_EQ(made.error(), QStringLiteral("Cannot make %1/.config/autostart").arg(m_home.path()));
}

} // namespace kestro
