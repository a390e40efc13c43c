#include "trailers/TrailerSite.h"

#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

class TrailerSiteTest : public testing::Test {
protected:
    TrailerSiteTest()
    {
        for (const char* name : {"KESTRO_HOME", "XDG_CONFIG_HOME", "HOME"})
            m_before.append(qgetenv(name));
        qputenv("KESTRO_HOME", m_home.path().toUtf8());
    }
    ~TrailerSiteTest() override
    {
        qsizetype at = 0;
        for (const char* name : {"KESTRO_HOME", "XDG_CONFIG_HOME", "HOME"})
            if (const QByteArray value = m_before[at++]; value.isNull())
                qunsetenv(name);
            else
                qputenv(name, value);
    }

    static void write(const QByteArray& text)
    {
        QDir().mkpath(QFileInfo(configurationFile()).path());
        QFile file(configurationFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    TrailerSite siteOf(const QByteArray& text)
    {
        m_log.clear();
        write(text);
        return configuredTrailerSite();
    }

    QTemporaryDir m_home;
    QList<QByteArray> m_before;
    QStringList m_log;
    LogCapture m_capture{[this](const QString& line) { m_log.append(line); }};
};

TEST_F(TrailerSiteTest, configurationFile_isInTheHomeOfKestro_whenThatIsSet)
{
    qputenv("XDG_CONFIG_HOME", "/elsewhere");
    EXPECT_EQ(configurationFile(), m_home.path() + QStringLiteral("/.config/kestro/kestro.conf"));
}

TEST_F(TrailerSiteTest, configurationFile_isInTheConfigurationFolder_whenTheHomeIsTheUsers)
{
    qunsetenv("KESTRO_HOME");
    qputenv("HOME", "/home/ada");
    qputenv("XDG_CONFIG_HOME", "/elsewhere/");
    EXPECT_EQ(configurationFile(), QStringLiteral("/elsewhere/kestro/kestro.conf"));
    for (const char* unusable : {"", "relative"}) {
        qputenv("XDG_CONFIG_HOME", unusable);
        EXPECT_EQ(configurationFile(), QStringLiteral("/home/ada/.config/kestro/kestro.conf"));
    }
}

TEST_F(TrailerSiteTest, configuredTrailerSite_isEmpty_whenThereIsNoFile)
{
    EXPECT_TRUE(configuredTrailerSite().start.isEmpty());
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(TrailerSiteTest, configuredTrailerSite_readsItsSection_amongOthers)
{
    const TrailerSite site = siteOf("# a comment\n; another\n\n[other]\nstart=no\n[ trailers ]\r\n"
                                    " start = \"http://h/trailers/?a=b#c\" \nhost=h:8080\n[more]\nhost=no\n");
    EXPECT_EQ(site.start, QStringLiteral("http://h/trailers/?a=b#c"));
    EXPECT_EQ(site.host, QStringLiteral("h:8080"));
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(TrailerSiteTest, configuredTrailerSite_saysWhichLine_whenItIsNotUnderstood)
{
    const TrailerSite site = siteOf("[trailers]\nnonsense\nstrat=x\n=y\nstart=http://h/\n[broken\n");
    EXPECT_EQ(site.start, QStringLiteral("http://h/"));
    const QString file = configurationFile();
    EXPECT_EQ(m_log, (QStringList{file + QStringLiteral(", line 2: no \"key=value\"."),
                                  file + QStringLiteral(", line 4: no \"key=value\"."),
                                  file + QStringLiteral(", line 6: no \"key=value\"."),
                                  file + QStringLiteral(", line 3: unknown key \"strat\".")}));
}

TEST_F(TrailerSiteTest, configuredTrailerSite_saysSo_whenTheFileCannotBeRead)
{
    ASSERT_TRUE(QDir().mkpath(configurationFile()));
    EXPECT_TRUE(configuredTrailerSite().start.isEmpty());
    EXPECT_EQ(m_log, QStringList(QStringLiteral("Cannot read %1.").arg(configurationFile())));
}

TEST_F(TrailerSiteTest, hostFor_isTheStartsOwn_whenNoneIsSet)
{
    EXPECT_EQ((TrailerSite{{}, {}}).hostFor("http://user@h:8080/trailers/"), "h:8080");
    EXPECT_EQ((TrailerSite{{}, {}}).hostFor("http://h/"), "h");
    EXPECT_EQ((TrailerSite{{}, QStringLiteral("other")}).hostFor("http://h/"), "other");
}

} // namespace kestro
