#include "platform/session/CameraLook.h"
#include "platform/session/FactTest.h"
#include "platform/session/MicrophoneLook.h"
#include "platform/session/SoundLook.h"
#include "platform/session/ThreadedLook.h"

#include <QDir>
#include <QFile>

#include <future>

using namespace kestro;

namespace {

/// Folders that stand for those of the kernel.
class Capture : public testing::Test {
protected:
    void write(const QString& path, const QByteArray& bytes)
    {
        const QString whole = m_folder.filePath(path);
        ASSERT_TRUE(QDir().mkpath(QFileInfo(whole).path()));
        QFile file(whole);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    /// A process that holds `held` open, besides a file.
    void addProcess(const QString& number, const QByteArray& name, const QString& held)
    {
        write(QStringLiteral("proc/%1/comm").arg(number), name + '\n');
        const QString fd = QStringLiteral("proc/%1/fd").arg(number);
        ASSERT_TRUE(QDir(m_folder.path()).mkpath(fd));
        ASSERT_TRUE(QFile::link(QStringLiteral("/tmp/file"), m_folder.filePath(fd + QStringLiteral("/3"))));
        ASSERT_TRUE(QFile::link(m_folder.filePath(held), m_folder.filePath(fd + QStringLiteral("/4"))));
    }
    [[nodiscard]] QList<Hindrance> cameras() const
    {
        return camerasInUse(m_folder.filePath(QStringLiteral("proc")),
                            m_folder.filePath(QStringLiteral("dev")));
    }
    /// A program that answers `told` as pactl does.
    [[nodiscard]] QString fakePactl(const QByteArray& script)
    {
        const QString path = m_folder.filePath(QStringLiteral("pactl"));
        write(QStringLiteral("pactl"), "#!/bin/sh\n" + script);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    }
    [[nodiscard]] QString sound() const { return m_folder.filePath(QStringLiteral("asound")); }

    QTemporaryDir m_folder;
};

/// What pactl 16.1 tells of a sink, its monitor, a microphone and one stream that records, shortened.
QByteArray streamOf(int source, const QByteArray& rest = {}, const QByteArray& media = "Recording")
{
    return R"({"sources":[
        {"index":0,"name":"null.monitor","monitor_source":"null","properties":{"device.class":"monitor"}},
        {"index":1,"name":"alsa_input.usb","monitor_source":"","properties":{"device.class":"sound"}}],
        "source_outputs":[{"index":7,"source":)" +
           QByteArray::number(source) + rest + R"(,"properties":{"application.name":"Call","media.name":")" +
           media + "\"}}]}";
}

/// What it tells of one stream that plays, likewise.
QByteArray playing(const QByteArray& rest = {}, const QByteArray& role = "video")
{
    return R"({"sink_inputs":[{"index":3,"sink":0)" + rest +
           R"(,"properties":{"application.name":"Player","media.role":")" + role + "\"}}]}";
}

const Hindrance call = {HindranceKind::Microphone, QStringLiteral("Call"), {}};

class ThreadedLookTest : public FactTest {};

} // namespace

TEST_F(Capture, camera_isInUse_whenAProcessHoldsItOpen)
{
    write(QStringLiteral("dev/video0"), {});
    addProcess(QStringLiteral("12"), "editor", QStringLiteral("dev/null"));
    addProcess(QStringLiteral("34"), "meeting", QStringLiteral("dev/video0"));
    const QList<Hindrance> expected = {{HindranceKind::Camera, QStringLiteral("meeting"), {}}};
    EXPECT_EQ(cameras(), expected);
}

TEST_F(Capture, camera_isNotInUse_whenAnotherDeviceIsHeldOpen)
{
    write(QStringLiteral("dev/video0"), {});
    addProcess(QStringLiteral("12"), "editor", QStringLiteral("dev/videos"));
    addProcess(QStringLiteral("34"), "editor", QStringLiteral("home/video0"));
    EXPECT_TRUE(cameras().isEmpty());
}

TEST_F(Capture, streams_areMicrophones_whenTheyRecordOne)
{
    const auto streams = recordingStreams(streamOf(1));
    ASSERT_TRUE(streams.has_value());
    EXPECT_EQ(*streams, QList<Hindrance>{call});
}

TEST_F(Capture, streams_areNoMicrophones_whenTheyRecordWhatIsPlayed)
{
    EXPECT_EQ(recordingStreams(streamOf(0)), QList<Hindrance>());
}

TEST_F(Capture, streams_areNoMicrophones_whenTheyStandStill)
{
    EXPECT_EQ(recordingStreams(streamOf(1, R"(,"corked":true)")), QList<Hindrance>());
}

TEST_F(Capture, streams_areNoMicrophones_whenTheyOnlyShowHowLoudItIs)
{
    EXPECT_EQ(recordingStreams(streamOf(1, R"(,"resample_method":"peaks")")), QList<Hindrance>());
    EXPECT_EQ(recordingStreams(streamOf(1, {}, "Peak detect")), QList<Hindrance>());
}

TEST_F(Capture, streams_areNotKnown_whenItIsNoAnswer)
{
    for (const char* told : {"", "{", "[]", "{\"sources\":[]}", "Connection refused"})
        EXPECT_FALSE(recordingStreams(told).has_value()) << told;
}

TEST_F(Capture, program_isHeard_whenItsStreamPlays)
{
    EXPECT_EQ(playingPrograms(playing()), QStringList{QStringLiteral("Player")});
    EXPECT_EQ(playingPrograms(R"({"sink_inputs":[]})"), QStringList());
}

TEST_F(Capture, program_isNotHeard_whenItsStreamStandsStillOrIsMutedOrOfAButton)
{
    EXPECT_EQ(playingPrograms(playing(R"(,"corked":true)")), QStringList());
    EXPECT_EQ(playingPrograms(playing(R"(,"mute":true)")), QStringList());
    EXPECT_EQ(playingPrograms(playing({}, "event")), QStringList());
}

TEST_F(Capture, programs_areNotKnown_whenItIsNoAnswer)
{
    for (const char* told : {"", "{", "[]", "{\"sinks\":[]}", "Connection refused"})
        EXPECT_FALSE(playingPrograms(told).has_value()) << told;
}

TEST_F(Capture, sound_isAskedOfTheSoundServer_whereThereIsOne)
{
    write(QStringLiteral("asound/card0/pcm0p/sub0/status"), "state: RUNNING\n");
    qputenv("PULSE_SERVER", "unix:/nowhere");
    const auto heard = soundPlayed(fakePactl("cat <<'END'\n" + playing() + "\nEND\n"), sound());
    const auto silent = soundPlayed(fakePactl("echo '{\"sink_inputs\":[]}'\n"), sound());
    qunsetenv("PULSE_SERVER");
    EXPECT_EQ(heard, QStringList{QStringLiteral("Player")});
    EXPECT_EQ(silent, QStringList());
}

TEST_F(Capture, sound_isAskedOfTheKernel_whenTheSoundServerFails)
{
    qputenv("PULSE_SERVER", "unix:/nowhere");
    EXPECT_EQ(soundPlayed(fakePactl("exit 1\n"), sound()), QStringList());
    write(QStringLiteral("asound/card0/pcm0p/sub0/status"), "state: RUNNING\n");
    EXPECT_EQ(soundPlayed(fakePactl("exit 1\n"), sound()), QStringList{QString()});
    qunsetenv("PULSE_SERVER");
}

TEST_F(Capture, soundCard_records_whenOneOfItsCaptureStreamsRuns)
{
    write(QStringLiteral("asound/card0/pcm0p/sub0/status"), "state: RUNNING\n");
    write(QStringLiteral("asound/card1/pcm0c/sub0/status"), "closed\n");
    EXPECT_FALSE(isSoundCardRecording(sound()));
    EXPECT_TRUE(isSoundCardPlaying(sound()));
    write(QStringLiteral("asound/card1/pcm0c/sub0/status"), "state: RUNNING\nowner_pid : 9\n");
    EXPECT_TRUE(isSoundCardRecording(sound()));
}

TEST_F(Capture, microphone_isAskedOfTheSoundServer_whereThereIsOne)
{
    qputenv("PULSE_SERVER", "unix:/nowhere");
    const auto found = microphonesInUse(fakePactl("cat <<'END'\n" + streamOf(1) + "\nEND\n"), sound());
    qunsetenv("PULSE_SERVER");
    EXPECT_EQ(found, QList<Hindrance>{call});
}

TEST_F(Capture, microphone_isAskedOfTheKernel_whenTheSoundServerHangsOrFails)
{
    write(QStringLiteral("asound/card1/pcm0c/sub0/status"), "state: RUNNING\n");
    const QList<Hindrance> nameless = {{HindranceKind::Microphone, {}, {}}};
    qputenv("PULSE_SERVER", "unix:/nowhere");
    EXPECT_EQ(microphonesInUse(fakePactl("exit 1\n"), sound()), nameless);
    EXPECT_EQ(microphonesInUse(fakePactl("exec cat /dev/zero >/dev/null\n"), sound()), nameless);
    EXPECT_EQ(microphonesInUse(m_folder.filePath(QStringLiteral("nothing")), sound()), nameless);
    qunsetenv("PULSE_SERVER");
}

TEST_F(Capture, soundServer_isNotStarted_whereThereIsNone)
{
    qunsetenv("PULSE_SERVER");
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", m_folder.path().toUtf8());
    const QString mark = m_folder.filePath(QStringLiteral("started"));
    static_cast<void>(microphonesInUse(fakePactl("touch '" + mark.toUtf8() + "'\n"), sound()));
    qputenv("XDG_RUNTIME_DIR", runtime);
    EXPECT_FALSE(QFile::exists(mark));
}

TEST_F(ThreadedLookTest, fact_hasWhatTheWorkFound_whenAsked)
{
    ThreadedLook fact(QStringLiteral("test 1"), [] { return QList<Hindrance>{call}; });
    EXPECT_TRUE(fact.hindrances().isEmpty());
    EXPECT_EQ(asked(fact), QList<Hindrance>{call});
}

TEST_F(ThreadedLookTest, fact_isNotKnown_whenTheWorkHangs)
{
    std::promise<void> release;
    const std::shared_future<void> held = release.get_future().share();
    ThreadedLook fact(QStringLiteral("test 2"), [held] {
        held.wait();
        return QList<Hindrance>{call};
    });
    EXPECT_TRUE(asked(fact).isEmpty());
    EXPECT_TRUE(asked(fact).isEmpty()); // at once now: no second thread waits
    release.set_value();
}
