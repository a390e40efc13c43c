#include "config_ui/StarterRow.h"

#include "config_ui/PlaylistDelegate.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace kestro {

StarterRow::StarterRow(const QString& name, const QString& spoken, QWidget* parent)
    : QWidget(parent)
    , m_picture(new QLabel(this))
    , m_name(new QLabel(name, this))
    , m_detail(new QLabel(this))
    , m_button(new QPushButton(tr("Add"), this))
{
    m_picture->setAlignment(Qt::AlignCenter);
    m_picture->setAutoFillBackground(true);
    m_button->setAccessibleName(spoken);
    m_button->setAutoDefault(false); // OK stays what Return does, until the keys are here

    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins({});
    grid->setVerticalSpacing(0);
    grid->addWidget(m_picture, 0, 0, 2, 1);
    grid->addWidget(m_name, 0, 1, Qt::AlignBottom);
    grid->addWidget(m_detail, 1, 1, Qt::AlignTop);
    grid->addWidget(m_button, 0, 2, 2, 1, Qt::AlignVCenter);
    grid->setColumnStretch(1, 1);
    setPicture({});
    takeSizeOfFont();
}

void StarterRow::setDetail(const QString& detail)
{
    m_detail->setText(detail);
    m_button->setAccessibleDescription(detail);
}

void StarterRow::setPicture(const QImage& picture)
{
    QPixmap shown = QPixmap::fromImage(picture);
    shown.setDevicePixelRatio(devicePixelRatio());
    m_picture->setPixmap(shown);
    QPalette colours = palette();
    colours.setColor(QPalette::Window,
                     picture.isNull() ? colours.color(QPalette::AlternateBase) : QColor(Qt::black));
    m_picture->setPalette(colours);
}

void StarterRow::takeSizeOfFont()
{
    m_picture->setFixedSize(PlaylistDelegate::pictureSize(fontMetrics()));
}

void StarterRow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange) takeSizeOfFont();
    QWidget::changeEvent(event);
}

} // namespace kestro
