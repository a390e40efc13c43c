#include "widgets/ScrubBar.h"

#include "platform/base/DurationText.h"
#include "platform/movie/MovieTime.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionSlider>

namespace kestro {

namespace {

QString clockText(int units)
{
    return durationText(units / movieTimeScale);
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
