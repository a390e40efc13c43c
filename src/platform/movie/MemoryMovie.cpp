#include "platform/movie/MemoryMovie.h"

#include "platform/base/Clock.h"
#include "platform/movie/StillMovie.h"

#include <algorithm>
#include <atomic>
#include <cmath>

namespace kestro {

/// Shows the movie's colour once it is loaded.
class MemoryMovie::ColourLayer final : public Layer {
public:
    explicit ColourLayer(MemoryMovie& movie)
        : m_movie(movie)
    {
    }

    void willShow() override { m_movie.takeInHand(); }

    [[nodiscard]] bool hasFrame() const override
    {
        return m_movie.state() == State::Loaded && !m_movie.m_wasLetGo;
    }

    bool render(const PixelTarget& target) override
    {
        if (!hasFrame()) return false;
        QImage image(target.pixels, target.width, target.height, target.stride, QImage::Format_RGB32);
        image.fill(m_movie.m_description.colour);
        return true;
    }

    void announceOnce()
    {
        if (m_announced) return;
        m_announced = true;
        announceFrame();
    }

private:
    MemoryMovie& m_movie;
    bool m_announced = false;
};

/// Stills of one colour.
class MemoryMovie::ColourStills final : public StillMovie {
public:
    explicit ColourStills(const MemoryMovieDescription& description)
        : m_description(description)
    {
    }

    void setStillSize(int width, int height) override { m_size = QSize(width, height); }

    [[nodiscard]] Picture still(MovieTime time, std::stop_token stop) override
    {
        if (m_description.takesStill) return m_description.takesStill(time, std::move(stop));
        const QSize size = pictureSize();
        if (size.isEmpty() || m_description.failsLoading) return {};
        QImage image(size, QImage::Format_RGB32);
        image.fill(m_description.colour);
        return {image, {static_cast<float>(size.width()), static_cast<float>(size.height())}};
    }

private:
    [[nodiscard]] QSize pictureSize() const
    {
        const QSize size = m_size;
        if (!size.isEmpty()) return size;
        const Size natural = m_description.naturalSize;
        return {static_cast<int>(std::lround(natural.width)), static_cast<int>(std::lround(natural.height))};
    }

    const MemoryMovieDescription m_description;
    std::atomic<QSize> m_size{QSize()};
};

MemoryMovie::MemoryMovie(const QUrl& url, const MemoryMovieDescription& description, const Clock& clock)
    : m_url(url)
    , m_description(description)
    , m_clock(clock)
    , m_layer(std::make_unique<ColourLayer>(*this))
    , m_openedAt(clock.now())
    , m_touchedAt(clock.now())
{
}

MemoryMovie::~MemoryMovie() = default;

double MemoryMovie::loadedAt() const
{
    return m_openedAt + m_description.loadsAfter;
}

QTMovie::State MemoryMovie::state() const
{
    if (m_clock.now() < loadedAt()) return State::Loading;
    const bool isBroken = m_clock.now() >= m_openedAt + m_description.breaksOffAfter;
    if (m_description.failsLoading || isBroken) return State::Failed;
    m_layer->announceOnce();
    return State::Loaded;
}

Size MemoryMovie::naturalSize() const
{
    return state() == State::Loaded ? m_description.naturalSize : Size{};
}

double MemoryMovie::knownSeconds() const
{
    return state() == State::Loaded ? m_description.seconds : 0;
}

MovieTime MemoryMovie::duration() const
{
    return movieTimeFromSeconds(knownSeconds());
}

EndMode MemoryMovie::endMode() const
{
    if (m_backAndForth) return EndMode::Turn;
    return m_loops ? EndMode::Loop : EndMode::Stop;
}

Playhead MemoryMovie::playhead() const
{
    if (state() != State::Loaded) return m_touched;
    Playhead start = m_touched;
    start.position = std::min(start.position, m_description.seconds); // may have been set while loading
    const double since = std::max(m_touchedAt, loadedAt());
    return start.after(m_clock.now() - since, m_description.seconds, endMode());
}

void MemoryMovie::settleAt(const Playhead& playhead)
{
    m_touched = playhead;
    m_touchedAt = m_clock.now();
}

void MemoryMovie::settle()
{
    settleAt(playhead());
}

MovieTime MemoryMovie::currentTime() const
{
    const MovieTime time = movieTimeFromSeconds(playhead().position);
    return state() == State::Loaded
               ? std::min(time, duration(),
                          [](MovieTime a, MovieTime b) { return a.timeValue < b.timeValue; })
               : time;
}

void MemoryMovie::setCurrentTime(MovieTime time)
{
    Playhead moved = playhead();
    moved.position = std::max(0.0, secondsFromMovieTime(time));
    if (state() == State::Loaded) moved.position = std::min(moved.position, m_description.seconds);
    moved.atEnd = !moved.running && state() == State::Loaded && moved.position >= m_description.seconds;
    settleAt(moved);
}

float MemoryMovie::rate() const
{
    if (state() != State::Loaded) return 0;
    const Playhead now = playhead();
    if (!now.running) return 0;
    return now.backwards ? -1.0F : 1.0F;
}

void MemoryMovie::play()
{
    Playhead started = playhead();
    if (started.running || state() == State::Failed) return;
    takeInHand();
    started.running = true;
    if (started.atEnd) {
        const bool turns = m_backAndForth && started.position > 0;
        started.backwards = turns;
        if (!turns) started.position = 0;
        started.atEnd = false;
    }
    settleAt(started);
}

void MemoryMovie::stop()
{
    Playhead stopped = playhead();
    stopped.running = false;
    settleAt(stopped);
}

void MemoryMovie::takeInHand()
{
    m_isAtHand = true;
    m_wasLetGo = false;
}

void MemoryMovie::letGo()
{
    stop();
    m_isAtHand = false;
    m_wasLetGo = true;
}

void MemoryMovie::setAttribute(MovieAttribute attribute, bool on)
{
    settle();
    (attribute == MovieAttribute::Loops ? m_loops : m_backAndForth) = on;
}

bool MemoryMovie::attribute(MovieAttribute attribute) const
{
    return attribute == MovieAttribute::Loops ? m_loops : m_backAndForth;
}

Layer& MemoryMovie::layer()
{
    return *m_layer;
}

std::shared_ptr<StillMovie> MemoryMovie::copyForStills() const
{
    return std::make_shared<ColourStills>(m_description);
}

void MemoryMovieLibrary::describe(const QString& absoluteUrl, const MemoryMovieDescription& description)
{
    m_described.insert(absoluteUrl, description);
}

std::shared_ptr<QTMovie> MemoryMovieLibrary::movieWithURL(const QUrl& url)
{
    const QString name = url.toString();
    m_tried.push_back(name);
    const auto found = m_described.constFind(name);
    if (found == m_described.constEnd() || !found->opens) return nullptr;
    auto movie = std::make_shared<MemoryMovie>(url, *found, m_clock);
    m_opened.push_back(movie);
    return movie;
}

std::vector<std::shared_ptr<MemoryMovie>> MemoryMovieLibrary::alive() const
{
    std::vector<std::shared_ptr<MemoryMovie>> alive;
    for (const auto& opened : m_opened) {
        if (auto movie = opened.lock()) alive.push_back(std::move(movie));
    }
    return alive;
}

} // namespace kestro
