#include "platform/web/helper/PagePicture.h"

#include <QQuickItem>
#include <QQuickRenderControl>
#include <QQuickRenderTarget>
#include <QQuickWindow>

#include <utility>

namespace kestro {

PagePicture::PagePicture(std::function<void()> onChange)
    : m_control(std::make_unique<QQuickRenderControl>())
    , m_window(std::make_unique<QQuickWindow>(m_control.get()))
{
    m_window->setColor(Qt::black);
    QObject::connect(m_control.get(), &QQuickRenderControl::renderRequested, m_control.get(), onChange);
    QObject::connect(m_control.get(), &QQuickRenderControl::sceneChanged, m_control.get(), onChange);
}

// Whoever is told of changes may be on its way out as well, and the end of a scene is one.
PagePicture::~PagePicture()
{
    m_control->disconnect();
    setItem(nullptr);
}

void PagePicture::setItem(QQuickItem* item)
{
    if (m_item) m_item->setParentItem(nullptr);
    m_item = item;
    if (!item) return;
    item->setParentItem(m_window->contentItem());
    item->setSize(m_image.size());
}

void PagePicture::resize(QSize size)
{
    m_image = QImage(size, QImage::Format_RGB32);
    m_image.fill(Qt::black);
    m_window->setGeometry({QPoint(0, 0), size});
    m_window->contentItem()->setSize(size);
    m_window->setRenderTarget(QQuickRenderTarget::fromPaintDevice(&m_image));
    if (m_item) m_item->setSize(size);
}

const QImage& PagePicture::render()
{
    if (m_image.isNull()) return m_image;
    m_control->polishItems();
    m_control->sync();
    m_control->render();
    return m_image;
}

} // namespace kestro
