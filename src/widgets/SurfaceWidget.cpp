#include "widgets/SurfaceWidget.h"

#include "platform/display/desktop/Screen.h"
#include "widgets/WidgetSurface.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>

namespace kestro {

SurfaceWidget::SurfaceWidget(QWidget* parent, const SurfaceServices& services)
    : QWidget(parent)
    , m_desktop(*this, services)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

SurfaceWidget::~SurfaceWidget() = default;

bool SurfaceWidget::event(QEvent* event)
{
    const auto type = event->type();
    const bool isDone = QWidget::event(event);
    // Another monitor may be of another density.
    if (type == QEvent::ScreenChangeInternal || type == QEvent::Show) follow();
    return isDone;
}

void SurfaceWidget::paintEvent(QPaintEvent* event)
{
    follow();
    QPainter painter(this);
    m_desktop.surface().paint(painter, event->region());
}

void SurfaceWidget::resizeEvent(QResizeEvent*)
{
    follow();
}

void SurfaceWidget::follow()
{
    // At once: what is painted next must not be black.
    if (m_desktop.follow()) m_desktop.screen().update();
}

} // namespace kestro
