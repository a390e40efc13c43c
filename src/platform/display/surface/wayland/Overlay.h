#pragma once

#include "platform/display/surface/MonitorSurface.h"
#include "platform/display/surface/wayland/LetGoWatch.h"

#include <chrono>
#include <functional>
#include <memory>

namespace kestro {

class LayerShell;

/// The layer over everything else that some Wayland compositors have: what lies below stays as it is, full
/// screen and all, and gets none of the keys and clicks. Owned by the desktop; outlives its surfaces, goes
/// before the application does. Main thread.
class Overlay final {
public:
    /// Null where the desktop is not Wayland, or its compositor has no such layer.
    [[nodiscard]] static std::unique_ptr<Overlay> create();
    ~Overlay();
    Overlay(const Overlay&) = delete;
    Overlay& operator=(const Overlay&) = delete;

    /// A surface in that layer, placed but not shown.
    [[nodiscard]] std::unique_ptr<MonitorSurface> cover(QScreen& monitor, OpenGL* openGL);

    /// Calls `done` as soon as nothing is down that a person pressed over the surfaces, at the latest after
    /// `bound`. It may be called before this returns.
    void whenLetGo(std::chrono::seconds bound, std::function<void()> done)
    {
        m_letGo.whenLetGo(bound, std::move(done));
    }

private:
    explicit Overlay(std::unique_ptr<LayerShell> shell);

    std::unique_ptr<LayerShell> m_shell;
    LetGoWatch m_letGo;
};

} // namespace kestro
