#include "resources/Command.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <ostream>
#include <string>

namespace kestro {

namespace {

const QString themes = QStringLiteral(KESTRO_ROOT_FOLDER "/Applications/iDVD.app/Contents/Resources/");

/// Where each loop stands below `themes`.
struct Theme {
    const char* name;
    const char* path;
    int rate;
    int frames;

    [[nodiscard]] QString file() const { return themes + QLatin1String(path); }
    friend void PrintTo(const Theme& theme, std::ostream* out) { *out << theme.name; }
};

constexpr Theme all[] = {
    {"compass", "0006_Travel.theme/Contents/Resources/Travel_Loop_Compass_NTSC.mov", 30, 180},
    {"popburst", "0010_Anime_Pop.theme/Contents/Resources/AnimeBackgroundMovie.NTSC.mov", 30, 180},
    {"ripples", "0012_Droplet.theme/Contents/Resources/BackgroundMovie.PAL.mov", 25, 150},
    {"confetti", "011_Confetti.theme/Contents/Resources/BackgroundMovie.NTSC.mov", 30, 240},
    {"silk", "01_Wedding_Bronze_One.theme/Contents/Resources/BackgroundMovie.NTSC.mov", 30, 240},
    {"reef", "14_Fish_One.theme/Contents/Resources/BackgroundMovie.NTSC.mov", 30, 240},
    {"marquee", "17_Marquee.theme/Contents/Resources/autoPlayMovieMarquee.NTSC.mov", 30, 180},
    {"bokeh", "18_Night_Lights.theme/Contents/Resources/BackgroundMovie.NTSC.mov", 30, 240},
};

class ThemeMovie : public testing::TestWithParam<Theme> {};

constexpr int pictureBytes = 256 * 144;

/// Every frame: small and grey, one after another.
QByteArray pictures(const QString& movie)
{
    return test::outputOf(QStringLiteral("ffmpeg"),
                          {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-threads"),
                           QStringLiteral("1"), QStringLiteral("-i"), movie, QStringLiteral("-vf"),
                           QStringLiteral("scale=256:144:flags=fast_bilinear,format=gray"),
                           QStringLiteral("-fps_mode"), QStringLiteral("passthrough"), QStringLiteral("-f"),
                           QStringLiteral("rawvideo"), QStringLiteral("-")});
}

/// The mean difference of two of `pictures`, in steps of 255.
double difference(const QByteArray& pictures, qsizetype a, qsizetype b)
{
    qint64 sum = 0;
    for (int i = 0; i < pictureBytes; ++i)
        sum += std::abs(static_cast<uchar>(pictures[a * pictureBytes + i]) -
                        static_cast<uchar>(pictures[b * pictureBytes + i]));
    return static_cast<double>(sum) / pictureBytes;
}

} // namespace

TEST_P(ThemeMovie, file_isASmallQuickTimeMovie_whenProbed)
{
    const Theme& theme = GetParam();
    const QByteArray report =
        test::outputOf(QStringLiteral("ffprobe"),
                       {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-print_format"),
                        QStringLiteral("json"), QStringLiteral("-show_format"),
                        QStringLiteral("-show_streams"), theme.file()});
    const QJsonObject probe = QJsonDocument::fromJson(report).object();
    const QJsonArray streams = probe.value(QLatin1String("streams")).toArray();
    ASSERT_EQ(streams.size(), 1);
    const QJsonObject video = streams.at(0).toObject();
    const auto text = [&video](const char* key) {
        return video.value(QLatin1String(key)).toString().toStdString();
    };
    EXPECT_EQ(text("codec_name"), "h264");
    EXPECT_EQ(text("pix_fmt"), "yuv420p");
    EXPECT_EQ(video.value(QLatin1String("width")).toInt(), 1024);
    EXPECT_EQ(video.value(QLatin1String("height")).toInt(), 576);
    EXPECT_EQ(text("r_frame_rate"), std::to_string(theme.rate) + "/1");
    EXPECT_EQ(text("nb_frames"), std::to_string(theme.frames));
    EXPECT_EQ(text("color_space"), "bt709");
    EXPECT_LT(QFileInfo(theme.file()).size(), 2'000'000);
}

TEST_P(ThemeMovie, lastFrame_runsIntoTheFirst_whenLooped)
{
    const QByteArray frames = pictures(GetParam().file());
    const qsizetype count = GetParam().frames;
    ASSERT_EQ(frames.size(), count * pictureBytes);
    double longestStep = 0;
    for (qsizetype i = 1; i < count; ++i)
        longestStep = std::max(longestStep, difference(frames, i - 1, i));
    EXPECT_GT(longestStep, 0.1); // it moves
    EXPECT_LE(difference(frames, count - 1, 0), longestStep);
    EXPECT_GT(difference(frames, count / 4, 0), 2 * difference(frames, count - 1, 0));
}

INSTANTIATE_TEST_SUITE_P(ThemeMovies, ThemeMovie, testing::ValuesIn(all));

TEST(ThemeMovies, folder_holdsTheseAlone_whenListed)
{
    QStringList expected;
    for (const Theme& theme : all)
        expected.append(theme.file());
    QStringList found;
    QDirIterator files(themes, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext())
        found.append(files.next());
    expected.sort();
    found.sort();
    EXPECT_EQ(found, expected);
}

TEST(ThemeMovies, defaultMovie_staysTheIntro_onAFreshSystem)
{
    EXPECT_FALSE(QFileInfo::exists(
        themes + QStringLiteral("15_Fish_Two.theme/Contents/Resources/BackgroundMovie.PAL.mov")));
    EXPECT_TRUE(QFileInfo::exists(QStringLiteral(KESTRO_ROOT_FOLDER
                                                 "/System/Library/CoreServices/Setup Assistant.app/Contents"
                                                 "/Resources/TransitionSection.bundle/Contents/Resources/"
                                                 "intro.mov")));
}

} // namespace kestro
