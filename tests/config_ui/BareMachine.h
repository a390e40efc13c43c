#pragma once

#include "config_ui/ThemeBrowser.h"
#include "platform/base/ScopedEnvironment.h"
#include "settings/Playlist.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

/// A home and a platform root of a test's own: the movies that a playlist can begin with are those that the
/// test puts there, all of them empty files.
class BareMachine final {
public:
    /// Each answers the path of the file.
    QString putVideo(const QString& name) { return put(home() + QStringLiteral("/Videos/") + name); }
    QString putTheme(const QString& name) { return put(root() + dvdProgram + u'/' + name); }
    QString putIntro(const QString& place = defalutMovieURL_104) { return put(root() + place); }
    /// As the desktop names the person's folder of videos.
    void nameVideosFolder(const QString& folder)
    {
        QDir().mkpath(home() + QStringLiteral("/.config"));
        QFile names(home() + QStringLiteral("/.config/user-dirs.dirs"));
        EXPECT_TRUE(names.open(QIODevice::WriteOnly));
        names.write("XDG_VIDEOS_DIR=\"" + QFile::encodeName(folder) + "\"\n");
    }

    [[nodiscard]] QString home() const { return m_folder.filePath(QStringLiteral("home")); }
    [[nodiscard]] QString root() const { return m_folder.filePath(QStringLiteral("root")); }

private:
    static QString put(const QString& path)
    {
        QDir().mkpath(QFileInfo(path).path());
        EXPECT_TRUE(QFile(path).open(QIODevice::WriteOnly)) << qPrintable(path);
        return path;
    }

    QTemporaryDir m_folder;
    ScopedEnvironment m_home{"HOME", home()};
    ScopedEnvironment m_configuration{"XDG_CONFIG_HOME"};
    ScopedEnvironment m_root{"KESTRO_ROOT", root()};
};

} // namespace kestro
