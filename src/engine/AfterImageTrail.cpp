#include "engine/AfterImageTrail.h"

#include "platform/base/Log.h"
#include "platform/display/Painter.h"
#include "platform/movie/QTMovie.h"

#include <QMetaObject>

namespace kestro {

namespace {

constexpr std::size_t fullTrail = 5;
constexpr double shadeStep = 0.02; ///< opacity lost at each drawing

} // namespace

Picture movieImage(QTMovie* copy, std::int32_t time)
{
    Picture still = copy ? GetMoviePict(*copy, time) : Picture{};
    if (still.isNull()) logLine(QStringLiteral("movie doesn't have a image."));
    return still;
}

AfterImageTrail::AfterImageTrail(std::function<void()> changed)
    : m_changed(std::move(changed))
{
}

AfterImageTrail::~AfterImageTrail()
{
    if (m_thread.joinable()) m_thread.join();
}

void AfterImageTrail::queueImageThread(const Capture& capture)
{
    waitForCapture();
    if (m_thread.joinable()) m_thread.join();
    m_onThread = true;
    // The thread lets go of the movie before it reports the end, so that a movie is never destroyed on it.
    m_thread = std::thread([this, held = std::make_unique<Capture>(capture)]() mutable {
        queueImage(*held);
        held.reset();
        m_onThread = false;
        m_onThread.notify_all();
    });
}

void AfterImageTrail::queueImage(const Capture& capture)
{
    const Picture image = movieImage(capture.copy.get(), capture.time);
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

void AfterImageTrail::waitForCapture() const
{
    m_onThread.wait(true);
}

void AfterImageTrail::draw(Painter& painter, bool overBackground)
{
    const std::lock_guard lock(m_dictLock);
    for (auto record = m_imgList.rbegin(); record != m_imgList.rend(); ++record) {
        const Rect place{record->pos, record->image.size};
        if (!overBackground) painter.fill(place, Qt::black);
        if (record->shade > 0.0F) painter.draw(record->image, place, Compositing::SourceOver, record->shade);
        record->shade = static_cast<float>(record->shade - shadeStep);
    }
}

int AfterImageTrail::count() const
{
    const std::lock_guard lock(m_dictLock);
    return static_cast<int>(m_imgList.size());
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
