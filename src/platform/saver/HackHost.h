#pragma once

#include "platform/base/Result.h"
#include "platform/display/surface/x11/HiddenWindow.h"
#include "platform/saver/Hack.h"
#include "platform/saver/HackGuardStatus.h"
#include "platform/saver/HackLayer.h"
#include "platform/saver/ScreenSaverView.h"

#include <QSize>

#include <memory>

namespace kestro {

class Desktop;
class HackProcess;

/// The screen saver that shows an xscreensaver hack: the program runs from start to stop, on a window off
/// screen that has the size of this view in pixels, and this view shows its picture. One that ends by itself
/// is started anew, three times at most; then, as without the program, the view is black. Main thread.
class HackHost final : public ScreenSaverView {
public:
    /// The error is one line: what this display lacks for it. `bundle` names the saver in the log.
    [[nodiscard]] static Result<std::shared_ptr<HackHost>>
    create(const Rect& frame, bool isPreview, const Hack& hack, const QString& bundle, Desktop& desktop);
    ~HackHost() override;

    void startAnimation() override;
    void stopAnimation() override;
    /// Follows the screen, should its pixels have become denser.
    void animateOneFrame() override { fitWindow(); }
    void setFrame(const Rect& frame) override;
    void setFrameSize(Size size) override;

private:
    HackHost(const Rect& frame, bool isPreview, Hack hack, QString bundle, Desktop& desktop);

    [[nodiscard]] Result<void> openWindow();
    void launch();
    void hackEnded(HackGuardStatus status);
    void giveUp(const QString& reason);
    [[nodiscard]] QSize pixelSize() const;
    void fitWindow();

    const Hack m_hack;
    const QString m_bundle;
    HackLayer m_layer;
    std::unique_ptr<HiddenWindow> m_window;
    std::unique_ptr<HackProcess> m_process; ///< goes before its window
    bool m_isFresh = false;                 ///< no hack has drawn in the window yet
    int m_restarts = 0;                     ///< since the animation was started
};

} // namespace kestro
