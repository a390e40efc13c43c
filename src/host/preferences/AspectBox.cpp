#include "host/preferences/AspectBox.h"

#include <QPainter>

namespace kestro {

namespace {

constexpr int usualSide = 560; // points
constexpr int leastSide = 160; // points

} // namespace

AspectBox::AspectBox(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void AspectBox::setContent(QWidget& content)
{
    m_content = &content;
    content.setParent(this);
    placeContent();
    content.show();
}

void AspectBox::setShape(QSize shape)
{
    if (shape.isEmpty() || shape == m_shape) return;
    m_shape = shape;
    updateGeometry();
    placeContent();
    update();
}

QSize AspectBox::sizeHint() const
{
    return m_shape.scaled(usualSide, usualSide, Qt::KeepAspectRatio);
}

QSize AspectBox::minimumSizeHint() const
{
    return m_shape.scaled(leastSide, leastSide, Qt::KeepAspectRatio);
}

void AspectBox::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(place(), Qt::black);
}

void AspectBox::resizeEvent(QResizeEvent*)
{
    placeContent();
}

QRect AspectBox::place() const
{
    QRect place(QPoint(0, 0), m_shape.scaled(size(), Qt::KeepAspectRatio));
    place.moveCenter(rect().center());
    return place;
}

void AspectBox::placeContent()
{
    if (m_content) m_content->setGeometry(place());
}

} // namespace kestro
