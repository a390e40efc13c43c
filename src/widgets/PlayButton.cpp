#include "widgets/PlayButton.h"

#include <QEvent>
#include <QPainter>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace kestro {

namespace {

// Shapes in a square of one by one.
void drawTriangle(QPainter& painter)
{
    painter.drawPolygon(QPolygonF({{0.12, 0}, {1, 0.5}, {0.12, 1}}));
}

void drawBars(QPainter& painter)
{
    painter.drawRect(QRectF(0.1, 0, 0.28, 1));
    painter.drawRect(QRectF(0.62, 0, 0.28, 1));
}

} // namespace

PlayButton::PlayButton(QWidget* parent)
    : QToolButton(parent)
{
    setAutoRaise(true);
    setFocusPolicy(Qt::StrongFocus);
    nameIt();
}

void PlayButton::setPlaying(bool playing)
{
    if (playing == m_isPlaying) return;
    m_isPlaying = playing;
    nameIt();
    update();
}

void PlayButton::nameIt()
{
    const QString name = m_isPlaying ? tr("Pause") : tr("Play");
    setAccessibleName(name);
    setToolTip(name);
}

void PlayButton::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) nameIt();
    QToolButton::changeEvent(event);
}

void PlayButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.icon = {};
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
    const double side = height() * 0.5;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().brush(QPalette::ButtonText));
    painter.translate((width() - side) / 2, (height() - side) / 2);
    painter.scale(side, side);
    m_isPlaying ? drawBars(painter) : drawTriangle(painter);
}

} // namespace kestro
