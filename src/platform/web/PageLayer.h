#pragma once

#include "platform/display/view/Layer.h"

#include <QRect>
#include <QSize>

#include <memory>

namespace kestro {

class SharedFrames;

/// The newest picture of a web page, drawn from the memory that the web helper writes it to. It keeps the
/// memory of the picture it shows until one in newer memory comes. Owned by the view that shows it. Main
/// thread.
class PageLayer final : public Layer {
public:
    ~PageLayer() override;

    /// Shows a slot of that memory from now on.
    void showFrame(std::shared_ptr<SharedFrames> frames, int slot);
    /// Shows black from now on.
    void showBlack();

    [[nodiscard]] bool hasFrame() const override { return m_isBlack || m_frames; }
    bool render(const PixelTarget& target) override;

private:
    /// Shared with the view, which lends out its slots.
    std::shared_ptr<SharedFrames> m_frames;
    int m_slot = 0;
    bool m_isBlack = false;
};

} // namespace kestro
