#pragma once

#include "platform/display/view/Layer.h"
#include "platform/movie/MovieLibrary.h"
#include "platform/movie/Playhead.h"
#include "platform/movie/QTMovie.h"

#include <QColor>
#include <QHash>
#include <QSize>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace kestro {

class Clock;

/// What a made-up movie is like.
struct MemoryMovieDescription {
    Size naturalSize{640, 360};
    double seconds = 10;
    QColor colour = Qt::red;     ///< every frame of it
    bool opens = true;           ///< false: refused when opened
    double loadsAfter = 0;       ///< seconds until size, duration and frame are there; 0 for a local file
    bool failsLoading = false;   ///< ends in State::Failed instead, after that span
    double breaksOffAfter = 1e9; ///< seconds after it was opened until it ends in State::Failed
    /// Takes its stills, on whatever thread asks for them; empty: they come at once.
    std::function<Picture(MovieTime, std::stop_token)> takesStill = {};
};

/// A movie without a file: it plays by a clock that is handed in, shows one colour, and keeps all rules of
/// QTMovie. Its position is worked out when asked for. Main thread.
class MemoryMovie final : public QTMovie {
public:
    MemoryMovie(const QUrl& url, const MemoryMovieDescription& description, const Clock& clock);
    ~MemoryMovie() override;

    [[nodiscard]] State state() const override;
    void whenSettled(std::function<void()> settled) override { m_settled = std::move(settled); }
    [[nodiscard]] QUrl url() const override { return m_url; }
    [[nodiscard]] Size naturalSize() const override;
    [[nodiscard]] MovieTime duration() const override;
    [[nodiscard]] MovieTime currentTime() const override;
    void setCurrentTime(MovieTime time) override;
    [[nodiscard]] float rate() const override;
    void play() override;
    void stop() override;
    void letGo() override;
    /// Whether it was played or shown, and not let go of since.
    [[nodiscard]] bool isAtHand() const { return m_isAtHand; }
    void setAttribute(MovieAttribute attribute, bool on) override;
    [[nodiscard]] bool attribute(MovieAttribute attribute) const override;
    void setMuted(bool muted) override { m_muted = muted; }
    [[nodiscard]] bool isMuted() const override { return m_muted; }
    void setVolume(float volume) override { m_volume = volume; }
    [[nodiscard]] float volume() const override { return m_volume; }
    [[nodiscard]] Layer& layer() override;
    [[nodiscard]] std::shared_ptr<StillMovie> copyForStills() const override;

private:
    class ColourLayer;
    class ColourStills;

    [[nodiscard]] EndMode endMode() const;
    [[nodiscard]] double loadedAt() const;
    [[nodiscard]] double knownSeconds() const;
    [[nodiscard]] Playhead playhead() const;
    void takeInHand();
    void settle();
    void settleAt(const Playhead& playhead);

    QUrl m_url;
    MemoryMovieDescription m_description;
    const Clock& m_clock;
    std::unique_ptr<ColourLayer> m_layer;
    double m_openedAt = 0;
    Playhead m_touched;     ///< where it stood or ran when last touched
    double m_touchedAt = 0; ///< clock time of that
    bool m_loops = false;
    bool m_backAndForth = false;
    bool m_muted = false;
    bool m_isAtHand = false;
    bool m_wasLetGo = false; ///< and has not been at hand since
    float m_volume = 1;
    std::function<void()> m_settled; ///< never called: nobody tells it that the clock was turned
};

/// Opens movies that tests described beforehand, by their absolute URL string; any other URL is refused.
/// Remembers what was opened, in order.
class MemoryMovieLibrary final : public MovieLibrary {
public:
    explicit MemoryMovieLibrary(const Clock& clock)
        : m_clock(clock)
    {
    }

    void describe(const QString& absoluteUrl, const MemoryMovieDescription& description);
    [[nodiscard]] std::shared_ptr<QTMovie> movieWithURL(const QUrl& url) override;

    /// Absolute URL strings of every try, refused ones included.
    [[nodiscard]] const std::vector<QString>& tried() const { return m_tried; }
    /// The movies that are still alive, oldest first.
    [[nodiscard]] std::vector<std::shared_ptr<MemoryMovie>> alive() const;

private:
    const Clock& m_clock;
    QHash<QString, MemoryMovieDescription> m_described;
    std::vector<QString> m_tried;
    std::vector<std::weak_ptr<MemoryMovie>> m_opened;
};

} // namespace kestro
