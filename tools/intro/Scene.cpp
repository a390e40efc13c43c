#include "Scene.h"

#include "Maths.h"

namespace kestro::intro {

namespace {

std::vector<Mist> makeMists()
{
    std::vector<Mist> mists;
    mists.emplace_back(Mist::Look{690, 90, 150, lightOf(250, 178, 148), 0.30f, 31});
    mists.emplace_back(Mist::Look{730, 76, -190, lightOf(216, 146, 146), 0.42f, 32});
    mists.emplace_back(Mist::Look{760, 64, 230, lightOf(178, 122, 142), 0.50f, 33});
    mists.emplace_back(Mist::Look{785, 46, -270, lightOf(138, 102, 136), 0.55f, 34});
    mists.emplace_back(Mist::Look{800, 34, 320, lightOf(120, 96, 134), 0.45f, 35});
    return mists;
}

} // namespace

Scene::Scene()
    : m_ridges(makeRidges())
    , m_mists(makeMists())
{
}

const std::vector<std::uint8_t>& Scene::frame(int number)
{
    const float phase = tau * static_cast<float>(number) / frameCount;
    m_sky.draw(m_canvas, phase);
    m_ribbons.draw(m_canvas, phase);
    for (std::size_t i = 0; i < m_ridges.size(); ++i) {
        m_ridges[i].draw(m_canvas, phase);
        m_mists[i].draw(m_canvas, phase);
    }
    m_lake.draw(m_canvas, phase);
    m_kestrel.draw(m_canvas, phase);
    m_yuv.take(m_canvas, number);
    return m_yuv.bytes();
}

} // namespace kestro::intro
