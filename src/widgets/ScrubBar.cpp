#include "widgets/ScrubBar.h"

#include "platform/movie/MovieTime.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionSlider>

namespace kestro {

namespace {

/// "1:02:03", without hours where there are none.
QString clockText(int units)
{
    const int seconds = units / movieTimeScale;
    const QString rest =
        QStringLiteral("%1:%2").arg(seconds / 60 % 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
    if (seconds < 3600) return rest;
    return QStringLiteral("%1:%2:%3")
        .arg(seconds / 3600)
        .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

ScrubBar::ScrubBar(QWidget* parent)
    : QSlider(Qt::Horizontal, parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSingleStep(movieTimeScale);
    setPageStep(10 * movieTimeScale);
    setAccessibleName(tr("Position"));
    showTime(0, 0);
    connect(this, &QSlider::valueChanged, this, &ScrubBar::sought);
}

void ScrubBar::showTime(int position, int duration)
{
    if (isSliderDown()) return;
    const QSignalBlocker quiet(this);
    setRange(0, duration);
    setValue(position);
    const QString text = QStringLiteral("%1 / %2").arg(clockText(value()), clockText(duration));
    if (text == toolTip()) return;
    setToolTip(text);
    setAccessibleDescription(text);
}

void ScrubBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) setValue(valueAt(event->position().toPoint().x()));
    QSlider::mousePressEvent(event);
}

int ScrubBar::valueAt(int x) const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect groove = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
    const QRect handle = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    const int span = groove.width() - handle.width();
    return QStyle::sliderValueFromPosition(minimum(), maximum(), x - groove.x() - handle.width() / 2, span,
                                           option.upsideDown);
}

} // namespace kestro
