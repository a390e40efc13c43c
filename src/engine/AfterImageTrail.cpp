#include "engine/AfterImageTrail.h"

#include "platform/base/PostTo.h"
#include "platform/display/view/Painter.h"

#include <utility>

namespace kestro {

namespace {

constexpr std::size_t fullTrail = 5;
constexpr double shadeStep = 0.02; ///< opacity lost at each drawing

} // namespace

AfterImageTrail::AfterImageTrail(std::function<void(const Rect&)> changed)
    : m_changed(std::move(changed))
{
}

void AfterImageTrail::queueImage(const Picture& image, Point pos)
{
    if (!add(image, pos)) return;
    postTo(m_mainThread, [this, place = Rect{pos, image.size}] { m_changed(place); });
}

bool AfterImageTrail::queueImageNoThread(const Picture& image, Point pos)
{
    return add(image, pos);
}

bool AfterImageTrail::add(const Picture& image, Point pos)
{
    const std::lock_guard lock(m_dictLock);
    if (m_imgList.size() >= fullTrail) m_imgList.pop_back();
    if (image.isNull()) return false;
    m_imgList.push_front({image, pos});
    return true;
}

void AfterImageTrail::age()
{
    const std::lock_guard lock(m_dictLock);
    for (Record& record : m_imgList)
        if (std::exchange(record.isDrawn, false)) record.shade = static_cast<float>(record.shade - shadeStep);
}

void AfterImageTrail::draw(Painter& painter, const Rect& rect, bool overBackground, const Rect& hidden)
{
    const std::lock_guard lock(m_dictLock);
    if (overBackground)
        drawFaintly(painter);
    else
        drawOnBlack(painter, hidden);
    for (Record& record : m_imgList)
        record.isDrawn = true;
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
