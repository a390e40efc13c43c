#include "keep/MovieCheck.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace kestro;

namespace {

QString pathOf(const char* name)
{
    return QStringLiteral(KESTRO_TEST_MOVIES "/") + QLatin1String(name);
}

} // namespace

TEST(MovieCheck, wholeMovie_passes)
{
    for (const char* name :
         {"plain.mp4", "plain.mov", "plain.mkv", "plain.webm", "sound.mp4", "noduration.webm", "plain.ts",
          "delayed.mkv", "variable.mp4", "opengop.mkv", "rotated90.mp4", "animated.gif", "large.mp4"}) {
        const auto checked = checkMovie(pathOf(name));
        EXPECT_TRUE(checked) << name << (checked ? "" : qPrintable(checked.error()));
    }
}

TEST(MovieCheck, whatIsNoMovie_isRefused)
{
    for (const char* name : {"audio.mp3", "picture.png", "text.mov", "empty.mov", "random.mov", "list.m3u",
                             "edl.mov", "concat.mov", "hls.m3u8", "none.mov", "."}) {
        ASSERT_EQ(QFile::exists(pathOf(name)), QLatin1String(name) != QLatin1String("none.mov"));
        const auto checked = checkMovie(pathOf(name));
        ASSERT_FALSE(checked) << name;
        EXPECT_FALSE(checked.error().isEmpty()) << name;
    }
}

TEST(MovieCheck, cutMovie_isRefused)
{
    const QTemporaryDir folder;
    for (const char* name : {"large.mp4", "plain.mkv", "plain.webm"}) {
        for (const int percent : {30, 60, 80}) {
            const QString path = folder.filePath(QString::number(percent) + QLatin1String(name));
            ASSERT_TRUE(QFile::copy(pathOf(name), path)) << name;
            QFile file(path);
            ASSERT_TRUE(file.resize(file.size() * percent / 100));
            EXPECT_FALSE(checkMovie(path)) << name << percent;
        }
    }
}
