#include "platform/display/surface/x11/ForeignWindowSurface.h"

#include "platform/display/surface/x11/X11Connection.h"

namespace kestro {

std::unique_ptr<ForeignWindowSurface> ForeignWindowSurface::create(std::uint32_t window)
{
    if (!x11Connection()) return nullptr;
    std::unique_ptr<ForeignWindowSurface> surface(new ForeignWindowSurface(window));
    if (!surface->readPlace()) return nullptr;
    const std::uint32_t drawn = surface->isRoot() ? window : surface->makeCover();
    surface->m_canvas = X11Canvas::create(x11Connection(), drawn, guardRows);
    return surface->m_canvas ? std::move(surface) : nullptr;
}

// The watch comes first: what happens to the window after its size was read must not go unseen.
ForeignWindowSurface::ForeignWindowSurface(std::uint32_t window)
    : m_window(window)
    , m_watch(std::make_unique<GivenWindowWatch>(window, GivenWindowWatch::Handlers{[this] { follow(); },
                                                                                    [this] {
                                                                                        if (!m_cover)
                                                                                            presentAll();
                                                                                    },
                                                                                    [this] { gone(); }}))
{
}

ForeignWindowSurface::~ForeignWindowSurface() = default;

bool ForeignWindowSurface::isRoot() const
{
    const auto geometry = geometryOf(x11Connection(), m_window);
    return geometry && geometry->root == m_window;
}

bool ForeignWindowSurface::readPlace()
{
    const auto geometry = geometryOf(x11Connection(), m_window);
    if (!geometry) return false;
    const auto cookie = xcb_translate_coordinates(x11Connection(), m_window, geometry->root, 0, 0);
    const ReplyPtr<xcb_translate_coordinates_reply_t> corner(
        xcb_translate_coordinates_reply(x11Connection(), cookie, nullptr), &std::free);
    if (!corner) return false;
    m_place = {corner->dst_x, corner->dst_y, geometry->width, geometry->height};
    return true;
}

std::uint32_t ForeignWindowSurface::makeCover()
{
    m_parent.reset(QWindow::fromWinId(m_window));
    // Not the parent's to manage either, where it manages its children.
    m_cover = std::make_unique<SurfaceWindow>(Qt::BypassWindowManagerHint | Qt::WindowTransparentForInput |
                                              Qt::WindowDoesNotAcceptFocus);
    m_cover->setExposeHandler([this] { presentAll(); });
    m_cover->setParent(m_parent.get());
    m_cover->setGeometry(QRect({0, 0}, m_place.size()));
    m_cover->create();
    const auto id = static_cast<std::uint32_t>(m_cover->winId());
    makeBackgroundBlack(id);
    return id;
}

void ForeignWindowSurface::show()
{
    m_isShown = true;
    if (!m_cover) return presentAll();
    m_seen = std::make_unique<SeenWatch>(static_cast<std::uint32_t>(m_cover->winId()), m_window,
                                         [this](bool isSeen) { tellSeen(isSeen); });
    m_seen->setWatching(m_isWatched);
    m_cover->show();
}

void ForeignWindowSurface::setWatched(bool isWatched)
{
    m_isWatched = isWatched;
    if (m_seen) m_seen->setWatching(isWatched);
}

void ForeignWindowSurface::present(const QRegion& changed)
{
    if (m_isShown) m_canvas->put(changed);
}

void ForeignWindowSurface::presentAll()
{
    present(QRect({0, 0}, pixelSize()));
}

void ForeignWindowSurface::follow()
{
    const QRect before = m_place;
    if (!m_canvas || !readPlace() || m_place == before) return;
    if (m_cover) m_cover->setGeometry(QRect({0, 0}, m_place.size()));
    if (!m_canvas->resize()) return;
    if (m_onChange) m_onChange();
}

void ForeignWindowSurface::gone()
{
    m_isShown = false;
    if (m_onGone) m_onGone();
}

} // namespace kestro
