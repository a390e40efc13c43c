#pragma once

#include "platform/display/surface/BackingStoreSurface.h"

#include <memory>

namespace kestro {

class ClearBuffer;
class LayerRole;
class LayerShell;
class LetGoWatch;
class OutputPower;
class SyncCall;

/// A monitor's surface in the overlay layer of a Wayland compositor. Its size is what the compositor says,
/// and before it has said so nothing is drawn. Hidden, it is clear and still there, so that what a person
/// does reaches nobody else. Owned by its screen; goes before the shell and the watch do. Main thread. Tested
/// by test_overlay.
class OverlaySurface final : public BackingStoreSurface {
public:
    OverlaySurface(const LayerShell& shell, LetGoWatch& letGo, OpenGL* openGL);
    ~OverlaySurface() override;

    [[nodiscard]] QRect placeOf(const QScreen& monitor) const override;
    void present(const QRegion& changed) override;
    void show() override;
    void hide() override;
    void setCursorHidden(bool hidden) override;
    void claimKeyboard() override;
    void insistOnKeyboard() override { m_insistsOnKeyboard = true; }
    [[nodiscard]] bool isGone() const override { return m_isGone; }
    [[nodiscard]] QWindow* openGLWindow() override;
    void leaveOpenGL() override;

private:
    void configured(QSize size);
    void closed();
    void exposed();
    void lookForKeyboard();
    void watchPower();
    void settleSeen();

    const LayerShell& m_shell;
    QSize m_size;                          ///< as the compositor says; empty for the monitor's
    std::unique_ptr<LayerRole> m_role;     ///< while it is shown, or waits for that
    std::unique_ptr<ClearBuffer> m_clear;  ///< once hidden
    std::unique_ptr<SyncCall> m_goneCall;  ///< once closed
    std::unique_ptr<OutputPower> m_power;  ///< while it is shown, where the compositor tells of it
    std::unique_ptr<SyncCall> m_shownCall; ///< once the compositor has heard what is shown
    bool m_insistsOnKeyboard = false;
    bool m_isExposed = true;
    bool m_isLit = true; ///< the output is on
    bool m_isGone = false;
};

} // namespace kestro
