#include "widgets/StartFolder.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

/// A home of its own, with a folder for movies or without.
class StartFolder : public testing::Test {
protected:
    StartFolder()
    {
        qputenv("HOME", m_home.path().toUtf8());
        qputenv("XDG_CONFIG_HOME", m_home.path().toUtf8());
    }
    ~StartFolder() override
    {
        qputenv("HOME", m_homeBefore);
        m_configBefore.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", m_configBefore);
    }
    [[nodiscard]] QString made(const QString& name) const
    {
        QDir(m_home.path()).mkdir(name);
        return m_home.filePath(name);
    }

    const QByteArray m_homeBefore = qgetenv("HOME");
    const QByteArray m_configBefore = qgetenv("XDG_CONFIG_HOME");
    QTemporaryDir m_home;
};

} // namespace

TEST_F(StartFolder, isTheOneWanted_whereThatIsThere)
{
    const QString videos = made(QStringLiteral("Videos"));
    const QString wanted = made(QStringLiteral("wanted"));
    EXPECT_EQ(startFolder(wanted), wanted);
    EXPECT_EQ(startFolder(m_home.filePath(QStringLiteral("gone"))), videos);
    EXPECT_EQ(startFolder(), videos);
}

TEST_F(StartFolder, isHome_whereThereIsNoneForMovies)
{
    EXPECT_EQ(startFolder(m_home.filePath(QStringLiteral("gone"))), m_home.path());
    EXPECT_EQ(startFolder(), m_home.path());
}

} // namespace kestro
