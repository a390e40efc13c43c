#pragma once

#include "platform/display/view/Picture.h"

#include <optional>

namespace kestro {

class Painter;
struct SignWords;

/// The sign pictures of a saver, read from its bundle's resources when first asked for, with their words in
/// the person's language, and kept. Shared by every view of a process. Main thread.
class SignPictures final {
public:
    /// `resourcesFolder` holds select.svg, failed.svg and preview.svg.
    explicit SignPictures(QString resourcesFolder);

    /// Tells that no movie is selected.
    [[nodiscard]] const Picture& selectImage();
    /// Tells that none of the movies that are selected can be played.
    [[nodiscard]] const Picture& failedImage();
    /// Stands for the saver in a preview; on black.
    [[nodiscard]] const Picture& previewImage();

private:
    [[nodiscard]] Picture load(const QString& name) const;
    [[nodiscard]] Picture loadWith(const QString& name, const SignWords& words) const;

    QString m_resourcesFolder;
    Picture m_select;
    Picture m_failed;
    Picture m_preview;
};

/// The sign picture that wanders over a saver view while no movie can be played: which one, where, and how it
/// is drawn. Owned by the engine. Main thread.
class SignImage final {
public:
    /// Shows `image`, or nothing for a null one.
    void setSignImage(const Picture& image);
    [[nodiscard]] bool isShown() const { return !m_image.isNull(); }
    [[nodiscard]] Size size() const { return m_image.size; }

    /// Where it is drawn, in the saver view.
    [[nodiscard]] Rect imgBounds() const { return m_imgBounds; }
    void setImgBounds(const Rect& bounds) { m_imgBounds = bounds; }

    /// The ground is to be painted again at the next drawing.
    void forgetGround() { m_filled = false; }

    /// Draws the sign, at its first drawing on a ground over the whole of `viewBounds`. That is black, or,
    /// over a background saver, clear; the sign is then half opaque, and its last place is wiped clear.
    void draw(Painter& painter, const Rect& viewBounds, bool overBackground);

private:
    void drawOverBackground(Painter& painter);

    Picture m_image;
    Picture m_prevImage; ///< blank, of the same size: wipes a place clear
    Rect m_imgBounds;
    std::optional<Point> m_prevPt; ///< last place over a background; nothing before the first drawing
    bool m_filled = false;
};

} // namespace kestro
