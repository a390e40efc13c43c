#include "host/render/RenderRun.h"

#include "host/FakeDesk.h"
#include "host/render/PictureFolder.h"
#include "host/render/TraceFile.h"
#include "platform/base/Log.h"
#include "platform/display/desktop/QtTimerSource.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

namespace kestro {

namespace {

/// A short run in real time on two small screens in memory.
class RenderRunTest : public testing::Test {
protected:
    RenderRunTest()
    {
        options.folder = home.filePath(QStringLiteral("out"));
        options.seconds = 0.05;
        options.every = 0.02;
    }

    int run(const std::function<void(RenderRun&)>& prepare = {})
    {
        const LogCapture capture([this](const QString& line) { log.append(line); });
        const auto pictures = PictureFolder::open(options.folder);
        RenderRun rendering(desktop, desktop, session, pictures.value(), trace.get(), options);
        if (prepare) prepare(rendering);
        return rendering.exec();
    }
    QStringList pictures() const { return QDir(options.folder).entryList(QDir::Files, QDir::Name); }

    QTemporaryDir home;
    RenderOptions options;
    std::unique_ptr<TraceFile> trace;
    FakeDesk fakes; ///< its savers and journal; the desk here is in real time
    QtTimerSource timers;
    SystemClock clock;
    SeededRandom random{1};
    ImageDesktop desktop{{FakeDesk::left, FakeDesk::right}, 1, timers, clock, random};
    SaverSession session{desktop, fakes.factory()};
    QStringList log;
};

} // namespace

TEST_F(RenderRunTest, exec_takesEveryScreensLastPicture_whenTheTimeIsUp)
{
    EXPECT_EQ(run(), ExitSuccess);
    const QStringList names = pictures();
    EXPECT_TRUE(names.contains(QStringLiteral("screen0-00000.050.png")));
    EXPECT_TRUE(names.contains(QStringLiteral("screen1-00000.050.png")));
    EXPECT_EQ(QImage(options.folder + QStringLiteral("/screen1-00000.050.png")).size(), QSize(32, 48));
    EXPECT_EQ(fakes.count(QStringLiteral("a stop")), 1);
    EXPECT_EQ(fakes.count(QStringLiteral("b stop")), 1);
}

TEST_F(RenderRunTest, pictures_areAtTheirMoments_whenSeveralAreTaken)
{
    options.seconds = 0.25;
    options.every = 0.1;
    EXPECT_EQ(run(), ExitSuccess);
    EXPECT_EQ(
        pictures(),
        (QStringList{QStringLiteral("screen0-00000.100.png"), QStringLiteral("screen0-00000.200.png"),
                     QStringLiteral("screen0-00000.250.png"), QStringLiteral("screen1-00000.100.png"),
                     QStringLiteral("screen1-00000.200.png"), QStringLiteral("screen1-00000.250.png")}));
}

TEST_F(RenderRunTest, trace_hasALineForEachTickOfEachScreen_whenGiven)
{
    const QString path = home.filePath(QStringLiteral("trace"));
    trace = std::move(TraceFile::create(path).value());
    fakes.onMake = [](FakeSaver& saver) { saver.setAnimationTimeInterval(0.01); };
    EXPECT_EQ(run(), ExitSuccess);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const qsizetype lines = file.readAll().count('\n');
    EXPECT_GT(lines, 1);
    EXPECT_EQ(lines, fakes.count(QStringLiteral("a tick")) + fakes.count(QStringLiteral("b tick")));
}

TEST_F(RenderRunTest, exec_failsWithOneLine_whenThePicturesCannotBeWritten)
{
    EXPECT_EQ(run([this](RenderRun&) { QDir(options.folder).removeRecursively(); }), ExitFailure);
    EXPECT_EQ(log.size(), 1);
    EXPECT_EQ(fakes.count(QStringLiteral("a stop")), 1);
}

TEST_F(RenderRunTest, exec_failsAtOnce_whenALongRunCannotWriteItsPictures)
{
    options.seconds = 3600;
    bool isLate = false;
    const int status = run([&](RenderRun& rendering) {
        QDir(options.folder).removeRecursively();
        QTimer::singleShot(30000, qApp, [&] {
            isLate = true;
            rendering.endEarly();
        });
    });
    EXPECT_EQ(status, ExitFailure);
    EXPECT_FALSE(isLate);
}

TEST_F(RenderRunTest, exec_fails_whenNoViewCanBeMade)
{
    SaverSession none(desktop, [](const Rect&) { return nullptr; });
    const LogCapture quiet([](const QString&) {});
    const auto folder = PictureFolder::open(options.folder);
    RenderRun rendering(desktop, desktop, none, folder.value(), nullptr, options);
    EXPECT_EQ(rendering.exec(), ExitFailure);
}

TEST_F(RenderRunTest, endEarly_takesALastPictureAndStops_whenTheRunIsLong)
{
    options.seconds = options.every = 3600;
    const int status = run([this](RenderRun& rendering) {
        fakes.onMake = [&rendering](FakeSaver& saver) {
            saver.onTick = [&rendering] { rendering.endEarly(); };
        };
    });
    EXPECT_EQ(status, ExitSuccess);
    EXPECT_EQ(pictures().size(), 2);
    EXPECT_TRUE(pictures().front() < PictureFolder::pictureName(0, 60));
    EXPECT_EQ(fakes.count(QStringLiteral("b stop")), 1);
}

} // namespace kestro
