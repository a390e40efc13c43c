#include "engine/AfterImageTrail.h"

#include "platform/base/Log.h"
#include "platform/display/Painter.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillMovie.h"

#include <QMetaObject>

#include <chrono>
#include <utility>

namespace kestro {

namespace {

constexpr std::size_t fullTrail = 5;
constexpr double shadeStep = 0.02; ///< opacity lost at each drawing
/// What a still of a large local movie takes on a busy machine.
constexpr std::chrono::milliseconds longestCapture{500};

} // namespace

Picture movieImage(StillMovie* copy, std::int32_t time, std::stop_token stop)
{
    Picture still = copy ? GetMoviePict(*copy, time, std::move(stop)) : Picture{};
    if (still.isNull()) logLine(QStringLiteral("movie doesn't have a image."));
    return still;
}

AfterImageTrail::AfterImageTrail(std::function<void()> changed)
    : m_changed(std::move(changed))
{
}

AfterImageTrail::~AfterImageTrail()
{
    cancelCapture();
}

void AfterImageTrail::queueImageThread(const Capture& capture)
{
    waitForCapture();
    m_onThread = true;
    // The thread lets go of the movie before it reports the end, so that a movie is never destroyed on it.
    m_thread = std::jthread([this, held = std::make_unique<Capture>(capture)](std::stop_token stop) mutable {
        queueImage(*held, std::move(stop));
        held.reset();
        const std::lock_guard lock(m_doneMutex);
        m_onThread = false;
        m_done.notify_all();
    });
}

void AfterImageTrail::queueImage(const Capture& capture, std::stop_token stop)
{
    const Picture image = movieImage(capture.copy.get(), capture.time, std::move(stop));
    const std::lock_guard lock(m_dictLock);
    dropOldest();
    if (image.isNull()) return;
    m_imgList.push_front({image, capture.place});
    QMetaObject::invokeMethod(
        &m_mainThread, [this] { m_changed(); }, Qt::QueuedConnection);
}

bool AfterImageTrail::queueImageNoThread(const Capture& capture)
{
    dropOldest();
    const Picture image = movieImage(capture.copy.get(), capture.time);
    if (image.isNull()) return false;
    m_imgList.push_front({image, capture.place});
    return true;
}

void AfterImageTrail::dropOldest()
{
    if (m_imgList.size() >= fullTrail) m_imgList.pop_back();
}

void AfterImageTrail::waitForCapture()
{
    {
        std::unique_lock lock(m_doneMutex);
        m_done.wait_for(lock, longestCapture, [this] { return !m_onThread; });
    }
    cancelCapture();
}

void AfterImageTrail::cancelCapture()
{
    if (!m_thread.joinable()) return;
    m_thread.request_stop();
    m_thread.join();
}

void AfterImageTrail::draw(Painter& painter, const Rect& rect, bool overBackground, const Rect& hidden)
{
    const std::lock_guard lock(m_dictLock);
    if (overBackground)
        drawFaintly(painter);
    else
        drawOnBlack(painter, hidden);
    for (Record& record : m_imgList)
        record.shade = static_cast<float>(record.shade - shadeStep);
    noteDrawn(rect, hidden);
}

void AfterImageTrail::noteDrawn(const Rect& rect, const Rect& hidden)
{
    std::erase_if(m_stale, [&rect](const Rect& place) { return subtractRect({place}, rect).empty(); });
    for (const Record& record : m_imgList)
        m_stale.push_back(record.place());
    if (!hidden.isEmpty()) m_stale.push_back(hidden);
}

void AfterImageTrail::drawFaintly(Painter& painter) const
{
    for (auto record = m_imgList.rbegin(); record != m_imgList.rend(); ++record)
        if (record->shade > 0.0F)
            painter.draw(record->image, record->place(), Compositing::SourceOver, record->shade);
}

// On its black each still hides what is older, so that only the part of it is drawn that no newer one covers.
void AfterImageTrail::drawOnBlack(Painter& painter, const Rect& hidden) const
{
    std::vector<Rect> newer{hidden};
    for (const Record& record : m_imgList) {
        std::vector<Rect> seen{record.place()};
        for (const Rect& place : newer)
            seen = subtractRect(seen, place);
        for (const Rect& part : seen) {
            if (record.shade > 0.0F)
                painter.drawOnBlack(record.image, record.place(), part, record.shade);
            else
                painter.fill(part, Qt::black);
        }
        newer.push_back(record.place());
    }
}

int AfterImageTrail::count() const
{
    const std::lock_guard lock(m_dictLock);
    return static_cast<int>(m_imgList.size());
}

std::vector<Rect> AfterImageTrail::changing() const
{
    const std::lock_guard lock(m_dictLock);
    std::vector<Rect> places = m_stale;
    for (const auto& record : m_imgList)
        places.push_back(record.place());
    return places;
}

std::vector<Rect> AfterImageTrail::uncovered(const Rect& rect, const Rect& hidden) const
{
    const std::lock_guard lock(m_dictLock);
    std::vector<Rect> left = subtractRect({rect}, hidden);
    for (const auto& record : m_imgList)
        left = subtractRect(left, record.place());
    return left;
}

std::vector<float> AfterImageTrail::shades() const
{
    const std::lock_guard lock(m_dictLock);
    std::vector<float> all;
    for (const auto& record : m_imgList)
        all.push_back(record.shade);
    return all;
}

} // namespace kestro
