#include "platform/web/HelperEnvironment.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

QProcessEnvironment session()
{
    QProcessEnvironment own;
    for (const char* name : {"SSH_AUTH_SOCK",
                             "GPG_AGENT_INFO",
                             "GITHUB_TOKEN",
                             "AWS_SECRET_ACCESS_KEY",
                             "DISPLAY",
                             "WAYLAND_DISPLAY",
                             "XAUTHORITY",
                             "DBUS_SESSION_BUS_ADDRESS",
                             "SESSION_MANAGER",
                             "LD_PRELOAD",
                             "LD_LIBRARY_PATH",
                             "QTWEBENGINE_CHROMIUM_FLAGS",
                             "QTWEBENGINE_DISABLE_SANDBOX",
                             "QT_PLUGIN_PATH",
                             "QML2_IMPORT_PATH",
                             "http_proxy",
                             "BROWSER",
                             "PATH",
                             "HOME",
                             "XDG_RUNTIME_DIR",
                             "KESTRO_HOME",
                             "anything"})
        own.insert(QString::fromLatin1(name), QStringLiteral("theirs"));
    return own;
}

TEST(HelperEnvironment, nothingOfTheSessionIsInIt)
{
    for (const QString& line : helperEnvironment(session(), QStringLiteral("/h"), false))
        EXPECT_FALSE(line.contains(u"theirs")) << line.toStdString();
}

TEST(HelperEnvironment, allThatIsInItIsKnown)
{
    QStringList names;
    for (const QString& line : helperEnvironment(session(), QStringLiteral("/h"), false))
        names.append(line.section(u'=', 0, 0));
    names.sort();
    const QStringList known{QStringLiteral("DBUS_SESSION_BUS_ADDRESS"),
                            QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"),
                            QStringLiteral("HOME"),
                            QStringLiteral("PATH"),
                            QStringLiteral("QT_QPA_PLATFORM"),
                            QStringLiteral("TMPDIR"),
                            QStringLiteral("XDG_CACHE_HOME"),
                            QStringLiteral("XDG_CONFIG_HOME"),
                            QStringLiteral("XDG_DATA_HOME"),
                            QStringLiteral("XDG_RUNTIME_DIR"),
                            QStringLiteral("XDG_STATE_HOME")};
    EXPECT_EQ(names, known);
}

TEST(HelperEnvironment, languageTimeAndFontsAreKept)
{
    QProcessEnvironment own;
    const QStringList kept{QStringLiteral("LANG=ja_JP.UTF-8"), QStringLiteral("LC_TIME=C"),
                           QStringLiteral("TZ=UTC"), QStringLiteral("FONTCONFIG_FILE=/f")};
    for (const QString& line : kept)
        own.insert(line.section(u'=', 0, 0), line.section(u'=', 1));
    const QStringList lines = helperEnvironment(own, QStringLiteral("/h"), false);
    for (const QString& line : kept)
        EXPECT_TRUE(lines.contains(line)) << line.toStdString();
}

TEST(HelperEnvironment, rootAloneMayDoWithoutTheSandbox)
{
    const QString line = QStringLiteral("QTWEBENGINE_DISABLE_SANDBOX=theirs");
    EXPECT_TRUE(helperEnvironment(session(), QStringLiteral("/h"), true).contains(line));
    EXPECT_FALSE(helperEnvironment(session(), QStringLiteral("/h"), false).contains(line));
}

TEST(HelperEnvironment, theSoundServerOfTheSessionIsNamed)
{
    const QTemporaryDir runtime;
    ASSERT_TRUE(QDir(runtime.path()).mkdir(QStringLiteral("pulse")));
    const QString socket = runtime.filePath(QStringLiteral("pulse/native"));
    ASSERT_TRUE(QFile(socket).open(QIODevice::WriteOnly));
    QProcessEnvironment own;
    own.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime.path());
    EXPECT_TRUE(helperEnvironment(own, QStringLiteral("/h"), false)
                    .contains(QStringLiteral("PULSE_SERVER=unix:") + socket));
}

} // namespace

} // namespace kestro
