#include "platform/display/view/LayerCapture.h"

#include "platform/display/scene/ScreenMapping.h"
#include "platform/display/view/AlignedImage.h"
#include "platform/display/view/Layer.h"
#include "platform/display/view/ViewGeometry.h"
#include "platform/display/view/Window.h"

#include <QPainter>

#include <vector>

namespace kestro {

namespace {

struct Shown {
    QImage image;
    Rect rect;
    Rect clip;
};

void collectShown(const View& view, const ScreenMapping& mapping, std::vector<Shown>& shown)
{
    const Rect clip = visibleGlobalRect(view);
    if (view.layer() && view.layer()->hasFrame() && !clip.isEmpty()) {
        const Rect rect = globalRect(view);
        QImage image = renderLayer(*view.layer(), mapping.pixelRect(rect).size());
        if (!image.isNull()) shown.push_back({std::move(image), rect, clip});
    }
    for (const View* inside : view.subviews())
        collectShown(*inside, mapping, shown);
}

View::HeldPicture merged(const std::vector<Shown>& shown, const ScreenMapping& mapping)
{
    View::HeldPicture picture;
    for (const Shown& each : shown) {
        picture.screenRect = unionRect(picture.screenRect, each.rect);
        picture.clip = unionRect(picture.clip, each.clip);
    }
    const QRect whole = mapping.pixelRect(picture.screenRect);
    picture.image = alignedImage(whole.size(), QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&picture.image);
    for (const Shown& each : shown)
        painter.drawImage(mapping.pixelRect(each.rect).topLeft() - whole.topLeft(), each.image);
    return picture;
}

} // namespace

QImage renderLayer(Layer& layer, QSize size, QImage reuse)
{
    // Content is rendered at even widths only: the last column of an odd one falls between the rows.
    const int evenWidth = (size.width() + 1) / 2 * 2;
    const bool fits = reuse.size() == size && reuse.isDetached() && reuse.bytesPerLine() >= evenWidth * 4;
    QImage image = fits ? std::move(reuse) : alignedImage(size, QImage::Format_RGB32);
    if (image.isNull()) return {};
    const PixelTarget target{image.bits(), evenWidth, size.height(), static_cast<int>(image.bytesPerLine())};
    if (!layer.render(target)) return {};
    return image;
}

std::optional<View::HeldPicture> captureLayers(const View& view)
{
    const Window* window = view.window();
    if (!window || !window->isVisible() || !window->screen()) return {};
    const ScreenMapping mapping = mappingOf(*window->screen());
    std::vector<Shown> shown;
    collectShown(view, mapping, shown);
    if (shown.empty()) return {};
    auto picture = shown.size() == 1
                       ? View::HeldPicture{shown.front().image, shown.front().rect, shown.front().clip, 0}
                       : merged(shown, mapping);
    picture.identity = makeIdentity();
    return picture;
}

} // namespace kestro
