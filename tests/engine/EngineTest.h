#pragma once

#include "engine/BackSaverHost.h"
#include "engine/MySaver.h"
#include "engine/NeverList.h"
#include "platform/base/Clock.h"
#include "platform/base/Log.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/ImageDesktop.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/view/Window.h"
#include "platform/movie/MemoryMovie.h"
#include "settings/EntryMarks.h"
#include "settings/FoldersDouble.h"
#include "settings/LatestTrailers.h"
#include "settings/SettingsStore.h"
#include "support/WaitUntil.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace kestro {

/// Answers trailers that a test names, and counts the crawls asked for.
class TrailersDouble final : public LatestTrailers {
public:
    QList<QUrl> lastTrailers(int, int, const QSet<QString>& excluded) override
    {
        QList<QUrl> left;
        for (const auto& url : trailers)
            if (!excluded.contains(url.toString(QUrl::FullyEncoded))) left.append(url);
        return left;
    }
    void scanLatest() override { ++scans; }
    void stopThreading() override { ++stops; }
    std::optional<int> yearOf(const QUrl& url) override
    {
        return trailers.contains(url) ? std::optional(year) : std::nullopt;
    }

    int year = 2026;
    QList<QUrl> trailers;
    int scans = 0;
    int stops = 0;
};

/// A saver on a desk of images, with movies made up by the test, a clock turned by hand, and settings in
/// memory.
class EngineTest : public testing::Test {
protected:
    EngineTest();
    ~EngineTest() override;

    /// Sets a key of the settings.
    void set(const QString& key, const QVariant& value)
    {
        QVariantMap options = store.plist();
        options[key] = value;
        store.setPlist(options);
    }
    /// Makes the playlist of these names, each a movie "http://m/<name>".
    void setPlaylist(const QStringList& names);
    /// Says what the movie of that name is like; every other one cannot be opened.
    void describe(const QString& name, const MemoryMovieDescription& description = {});
    /// Both: a playlist of movies that open, of `seconds` each.
    void setGoodPlaylist(const QStringList& names, double seconds = 10);
    static QUrl urlOf(const QString& name) { return QUrl(QStringLiteral("http://m/") + name); }

    /// Says of the movies of these names what the words say, as in "star night".
    void mark(const QString& words, const QStringList& names);

    /// A saver that fills a host window on a screen; lives until the test ends.
    MySaver& makeSaver(bool isPreview = false, int screen = 0, Size size = {1920, 1080});
    /// What the savers of the test share.
    SaverServices services();
    /// Ticks the saver at its interval, so often.
    void tick(MySaver& saver, int times = 1);
    /// Ticks until that many seconds went by.
    void tickFor(MySaver& saver, double seconds);
    /// The name of the movie that the saver shows; empty for none.
    static QString playing(const MySaver& saver);
    /// How often a line was logged.
    [[nodiscard]] int logged(const QString& line) const;
    /// The window of that kind on a screen; null where there is none.
    [[nodiscard]] const Window* windowOf(const QString& kind, int screen = 0) const;
    /// The pixel of the first screen's picture, counted from its lower left corner.
    QColor pixelAt(int x, int y);

    ManualClock clock;
    ManualTimerSource timers{clock};
    SeededRandom random{7};
    ImageDesktop desktop{{Rect{{0, 0}, {1920, 1080}}}, 1.0, timers, clock, random};
    QTemporaryDir home;
    SettingsStore store{home.path()};
    MemoryMovieLibrary movies{clock};
    TrailersDouble trailers;
    FoldersDouble folders;
    ShuffleRecord* shuffle = nullptr; ///< of the savers made from then on
    EntryMarks marks;
    SignPictures signs{QStringLiteral(KESTRO_RESOURCES)};
    BackSaverHost backSavers{home.path()};
    std::vector<QString> log;
    MovieOptions movieOptions;  ///< of the savers made from then on
    CaptionOptions caption;     ///< likewise
    NeverList* never = nullptr; ///< likewise

private:
    struct Hosted {
        std::unique_ptr<Window> window;
        std::shared_ptr<MySaver> saver;
    };
    std::vector<Hosted> m_hosted;
    LogCapture m_capture;
};

} // namespace kestro
