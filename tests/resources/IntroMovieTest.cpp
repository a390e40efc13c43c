#include "resources/Command.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace kestro {

namespace {

const QString movie =
    QStringLiteral(KESTRO_ROOT_FOLDER "/System/Library/CoreServices/Setup Assistant.app/Contents"
                                      "/Resources/TransitionSection.bundle/Contents/Resources/"
                                      "intro.mov");

QJsonObject probe()
{
    const QByteArray report = test::outputOf(
        QStringLiteral("ffprobe"),
        {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-print_format"),
         QStringLiteral("json"), QStringLiteral("-show_format"), QStringLiteral("-show_streams"), movie});
    return QJsonDocument::fromJson(report).object();
}

std::string text(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toString().toStdString();
}

constexpr int frameCount = 420;
constexpr int pictureBytes = 320 * 180;

constexpr int rate = 30;

/// Two frames from one on, small and grey, one after the other.
QByteArray twoPictures(int frame)
{
    return test::outputOf(QStringLiteral("ffmpeg"),
                          {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-ss"),
                           QString::number((frame - 0.5) / rate), QStringLiteral("-i"), movie,
                           QStringLiteral("-frames:v"), QStringLiteral("2"), QStringLiteral("-vf"),
                           QStringLiteral("scale=320:180,format=gray"), QStringLiteral("-f"),
                           QStringLiteral("rawvideo"), QStringLiteral("-")});
}

/// The mean difference of two of `pictures`, in steps of 255.
double difference(const QByteArray& pictures, int a, int b)
{
    qint64 sum = 0;
    for (int i = 0; i < pictureBytes; ++i)
        sum += std::abs(static_cast<uchar>(pictures[a * pictureBytes + i]) -
                        static_cast<uchar>(pictures[b * pictureBytes + i]));
    return static_cast<double>(sum) / pictureBytes;
}

} // namespace

TEST(IntroMovie, picture_isFullHdH264At30Frames_whenProbed)
{
    const QJsonArray streams = probe().value(QLatin1String("streams")).toArray();
    ASSERT_EQ(streams.size(), 1);
    const QJsonObject video = streams.at(0).toObject();
    EXPECT_EQ(text(video, "codec_name"), "h264");
    EXPECT_EQ(text(video, "pix_fmt"), "yuv420p");
    EXPECT_EQ(video.value(QLatin1String("width")).toInt(), 1920);
    EXPECT_EQ(video.value(QLatin1String("height")).toInt(), 1080);
    EXPECT_EQ(text(video, "r_frame_rate"), "30/1");
    EXPECT_EQ(text(video, "nb_frames"), std::to_string(frameCount));
    EXPECT_EQ(text(video, "color_space"), "bt709");
    EXPECT_EQ(text(video, "color_primaries"), "bt709");
    EXPECT_EQ(text(video, "color_transfer"), "bt709");
}

TEST(IntroMovie, container_isQuickTimeOf14Seconds_whenProbed)
{
    const QJsonObject format = probe().value(QLatin1String("format")).toObject();
    EXPECT_EQ(format.value(QLatin1String("tags")).toObject().value(QLatin1String("major_brand")).toString(),
              QStringLiteral("qt  "));
    EXPECT_NEAR(format.value(QLatin1String("duration")).toString().toDouble(), 14.0, 0.01);
    EXPECT_LT(QFileInfo(movie).size(), 10'000'000);
}

TEST(IntroMovie, index_standsBeforeTheFrames_whenRead)
{
    QFile file(movie);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray start = file.read(256 * 1024);
    const auto index = start.indexOf("moov");
    const auto frames = start.indexOf("mdat");
    ASSERT_GE(index, 0);
    EXPECT_LT(index, frames);
}

TEST(IntroMovie, keyframes_standEverySecond_whenListed)
{
    const QByteArray packets =
        test::outputOf(QStringLiteral("ffprobe"),
                       {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-select_streams"),
                        QStringLiteral("v"), QStringLiteral("-show_entries"), QStringLiteral("packet=flags"),
                        QStringLiteral("-of"), QStringLiteral("csv=p=0"), movie});
    const QList<QByteArray> flags = packets.trimmed().split('\n');
    ASSERT_EQ(flags.size(), frameCount);
    for (int i = 0; i < frameCount; ++i)
        EXPECT_EQ(flags[i].startsWith('K'), i % rate == 0) << "packet " << i;
}

TEST(IntroMovie, lastFrame_runsIntoTheFirst_whenLooped)
{
    const QByteArray frames = twoPictures(0) + twoPictures(frameCount / 4) + twoPictures(frameCount - 2);
    ASSERT_EQ(frames.size(), 6 * pictureBytes);
    const double firstStep = difference(frames, 0, 1);
    const double lastStep = difference(frames, 4, 5);
    EXPECT_GT(firstStep, 0.05); // it moves
    EXPECT_LT(difference(frames, 5, 0), 1.5 * std::max(firstStep, lastStep));
    EXPECT_GT(difference(frames, 2, 0), 5 * std::max(firstStep, lastStep));
}

} // namespace kestro
