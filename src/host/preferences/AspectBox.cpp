#include "host/preferences/AspectBox.h"

namespace kestro {

namespace {

constexpr int usualSide = 560; // points
constexpr int leastSide = 200; // points

} // namespace

AspectBox::AspectBox(QWidget& content, QWidget* parent)
    : QWidget(parent)
    , m_content(content)
{
    m_content.setParent(this);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void AspectBox::setShape(QSize shape)
{
    if (shape.isEmpty() || shape == m_shape) return;
    m_shape = shape;
    updateGeometry();
    place();
}

QSize AspectBox::sizeHint() const
{
    return m_shape.scaled(usualSide, usualSide, Qt::KeepAspectRatio);
}

QSize AspectBox::minimumSizeHint() const
{
    return m_shape.scaled(leastSide, leastSide, Qt::KeepAspectRatio);
}

void AspectBox::resizeEvent(QResizeEvent*)
{
    place();
}

void AspectBox::place()
{
    QRect place(QPoint(0, 0), m_shape.scaled(size(), Qt::KeepAspectRatio));
    place.moveCenter(rect().center());
    m_content.setGeometry(place);
}

} // namespace kestro
