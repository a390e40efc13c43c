#pragma once

#include <QImage>
#include <QObject>
#include <QSize>

#include <functional>
#include <memory>

class QQuickItem;
class QQuickRenderControl;
class QQuickWindow;

namespace kestro {

/// Draws one Qt Quick item into an image, without a window on any screen. Black where there is no item. Owned
/// by its page; main thread; pixels. Tested by test_web.
class PagePicture final {
public:
    /// `onChange` is told that the picture is no longer what render() made.
    explicit PagePicture(std::function<void()> onChange);
    ~PagePicture();
    PagePicture(const PagePicture&) = delete;
    PagePicture& operator=(const PagePicture&) = delete;

    /// The item fills the picture from now on; null for none. Borrowed; the one before is taken out.
    void setItem(QQuickItem* item);
    void resize(QSize size);
    /// The picture as it is now; a null one before there is a size.
    [[nodiscard]] const QImage& render();

private:
    std::unique_ptr<QQuickRenderControl> m_control;
    std::unique_ptr<QQuickWindow> m_window;
    QImage m_image;
    QQuickItem* m_item = nullptr;
};

} // namespace kestro
