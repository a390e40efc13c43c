// Where a run stops is where the next one begins.

#include "engine/EngineTest.h"
#include "engine/OtherMonitorsDesktop.h"
#include "platform/base/StoredValue.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

#include <QDir>

#include <sys/inotify.h>
#include <unistd.h>

namespace kestro {

namespace {

/// Tells which files of a folder were put there, new or in another's place, since it was made.
class ReplacedFiles final {
public:
    explicit ReplacedFiles(const QString& folder)
        : m_events(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        inotify_add_watch(m_events, QFile::encodeName(folder).constData(), IN_MOVED_TO);
    }
    ~ReplacedFiles() { close(m_events); }
    ReplacedFiles(const ReplacedFiles&) = delete;
    ReplacedFiles& operator=(const ReplacedFiles&) = delete;

    /// Once for each time.
    [[nodiscard]] QStringList names() const
    {
        alignas(inotify_event) char bytes[8192];
        const ssize_t length = read(m_events, bytes, sizeof bytes);
        QStringList found;
        for (ssize_t at = 0; at < length;) {
            const auto* event = reinterpret_cast<const inotify_event*>(bytes + at);
            found.append(QFile::decodeName(event->name));
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
        return found;
    }

private:
    int m_events;
};

class MySaverResumeTest : public EngineTest {
protected:
    void setBounce()
    {
        set("FullScreenMode", "0");
        set("PartialMode", "1");
    }
    int windowsOfKind(const QString& kind)
    {
        int count = 0;
        for (const auto* window : desktop.mainScreen()->windows())
            count += window->kind() == kind;
        return count;
    }
};

} // namespace

TEST_F(MySaverResumeTest, stopAnimation_storesTheResumePoint)
{
    setGoodPlaylist({"a.mov"});
    set("Continue", "1");
    auto& saver = makeSaver();
    saver.startAnimation();
    tickFor(saver, 3);
    saver.stopAnimation();
    EXPECT_EQ(logged("URL = http://m/a.mov"), 1);
    EXPECT_EQ(store.defaultsForKey("LastMovie"), "a.mov");
    EXPECT_NEAR(intValue(*store.defaultsForKey("LastPos")), 1800, 1);
    SettingsStore written(home.path());
    EXPECT_EQ(written.defaultsForKey("LastMovie"), "a.mov");
}

TEST_F(MySaverResumeTest, stopAnimation_writesTheResumePointOnce)
{
    setGoodPlaylist({"a.mov"});
    set("Continue", "1");
    const QString folder = home.path() + QStringLiteral("/Library/Preferences");
    ASSERT_TRUE(QDir().mkpath(folder));
    auto& saver = makeSaver();
    saver.startAnimation();
    const ReplacedFiles replaced(folder);
    saver.stopAnimation();
    EXPECT_EQ(replaced.names(), QStringList{QStringLiteral("Kestro.def.plist")});
}

TEST_F(MySaverResumeTest, stopAnimation_storesTheResumePoint_ofTheFirstScreenAlone)
{
    desktop.addScreen({{1920, 0}, {800, 600}});
    setGoodPlaylist({"a.mov", "b.mov"});
    set("Continue", "1");
    auto& first = makeSaver();
    auto& second = makeSaver(false, 1, {800, 600});
    first.startAnimation();
    second.startAnimation();
    tickFor(first, 3);
    first.stopAnimation();
    ASSERT_NEAR(intValue(*store.defaultsForKey("LastPos")), 1800, 1);
    tickFor(second, 9);
    ASSERT_EQ(playing(second), "b.mov");
    second.stopAnimation();
    EXPECT_EQ(store.defaultsForKey("LastMovie"), "a.mov");
    EXPECT_NEAR(intValue(*store.defaultsForKey("LastPos")), 1800, 1);
}

// A process that has but one of the monitors, as under xscreensaver.
TEST_F(MySaverResumeTest, stopAnimation_storesNothing_whenTheOnlyScreenIsNotTheFirstMonitor)
{
    setGoodPlaylist({"a.mov"});
    set("Continue", "1");
    OtherMonitorsDesktop elsewhere(desktop);
    Window window({{{0, 0}, {1920, 1080}}, desktop.mainScreen(), QStringLiteral("host")});
    MySaver saver({{0, 0}, {1920, 1080}}, false, {elsewhere, movies, store, trailers, signs, backSavers});
    window.setContentView(&saver);
    saver.startAnimation();
    saver.stopAnimation();
    EXPECT_FALSE(store.defaultsForKey("LastMovie"));
    window.setContentView(nullptr);
}

TEST_F(MySaverResumeTest, stopAnimation_storesTheResumePoint_inWindowModeToo)
{
    setGoodPlaylist({"a.mov"});
    setBounce();
    set("Continue", "1");
    auto& saver = makeSaver();
    saver.startAnimation();
    saver.stopAnimation();
    EXPECT_EQ(store.defaultsForKey("LastMovie"), "a.mov");
    EXPECT_EQ(windowsOfKind("movie"), 0);
    EXPECT_FALSE(saver.movieView()->movie());
}

TEST_F(MySaverResumeTest, stopAnimation_storesNothing_unlessContinuingWithAMovie)
{
    setGoodPlaylist({"a.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    saver.stopAnimation();
    EXPECT_FALSE(store.defaultsForKey("LastMovie"));

    set("Continue", "1");
    auto& preview = makeSaver(true);
    preview.startAnimation();
    preview.stopAnimation();
    EXPECT_FALSE(store.defaultsForKey("LastMovie"));

    setPlaylist({});
    auto& sign = makeSaver();
    sign.startAnimation();
    sign.stopAnimation();
    EXPECT_FALSE(store.defaultsForKey("LastMovie"));
}

TEST_F(MySaverResumeTest, resume_beginsTheNextRunWhereTheLastStopped)
{
    setGoodPlaylist({"a.mov", "b.mov", "c.mov"}, 10);
    set("Continue", "1");
    auto& first = makeSaver();
    first.startAnimation();
    tickFor(first, 12);
    EXPECT_EQ(playing(first), "b.mov");
    first.stopAnimation();
    auto& second = makeSaver();
    second.startAnimation();
    EXPECT_EQ(playing(second), "b.mov");
    EXPECT_NEAR(static_cast<double>(second.snapshot().movie->time), 1200, 70);
}

} // namespace kestro
