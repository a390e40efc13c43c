#pragma once

#include "platform/display/surface/Surface.h"

#include <vector>

namespace kestro {

/// One picture that several surfaces show, or parts of it: composed once, and copied to each. Where the first
/// of them shows just that picture its canvas is the one that is composed into. It draws into those surfaces
/// and presents them; their handlers are left to their owners. Owned by its screen; they must outlive their
/// being parts. Main thread.
class SharedSurface final : public Surface {
public:
    struct Part {
        Surface* surface = nullptr;
        QRect place; ///< of the whole picture, in the surface's pixels from its top left
    };

    /// From now on the picture has that size and goes there. It is to be composed as a whole next.
    void setParts(std::vector<Part> parts, QSize pixels, double pixelRatio);

    [[nodiscard]] QImage& canvas() override;
    [[nodiscard]] QSize pixelSize() override { return m_pixels; }
    void present(const QRegion& changed) override;
    [[nodiscard]] double pixelRatio() const override { return m_pixelRatio; }
    void setCursorHidden(bool hidden) override;
    [[nodiscard]] QWindow* openGLWindow() override;
    [[nodiscard]] std::vector<OpenGLOutput> openGLOutputs() override;
    void leaveOpenGL() override;
    void setWatched(bool isWatched) override;

    /// A person did that; the position is from the picture's top left corner.
    void tell(const InputEvent& event) const
    {
        if (m_onInput) m_onInput(event);
    }
    /// One of the surfaces has none of its picture left.
    void repair() const
    {
        if (m_onRepair) m_onRepair();
    }
    /// Whether anybody can see any of the surfaces.
    void setSeen(bool isSeen) { tellSeen(isSeen); }

private:
    [[nodiscard]] bool isWhole(const Part& part) const;
    static void copyTo(const Part& part, const QImage& picture, const QRegion& changed, bool hasNewBars);

    std::vector<Part> m_parts;
    QSize m_pixels;
    double m_pixelRatio = 1;
    QImage m_canvas;         ///< null while that of the first part is composed into
    bool m_isNew = true;     ///< nothing was presented since the parts were set
    bool m_isWatched = true; ///< as the screen wants it
};

} // namespace kestro
