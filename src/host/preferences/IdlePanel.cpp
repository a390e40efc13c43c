#include "host/preferences/IdlePanel.h"

#include "host/preferences/IdleWords.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

int minutesOf(std::chrono::seconds span)
{
    return int(std::max<qint64>(1, std::chrono::duration_cast<std::chrono::minutes>(span).count()));
}

} // namespace

IdlePanel::IdlePanel(IdleSwitch::Places places, QWidget* parent)
    : QWidget(parent)
    , m_switch(std::move(places))
    , m_isOn(new QCheckBox(tr("&Start by itself when you have been away for"), this))
    , m_minutes(new QSpinBox(this))
    , m_state(new QLabel(this))
{
    m_minutes->setRange(1, int(std::chrono::minutes(IdleOptions::longestSpan).count()));
    m_minutes->setSuffix(tr(" min", "minutes, after their number"));
    m_minutes->setAccessibleName(tr("Minutes until the saver starts"));
    m_minutes->setKeyboardTracking(false);
    m_state->setWordWrap(true);
    m_state->setTextFormat(Qt::PlainText);
    layOut();
    refresh();
    connect(m_isOn, &QCheckBox::toggled, this, &IdlePanel::store);
    connect(m_minutes, &QSpinBox::valueChanged, this, &IdlePanel::store);
    m_switch.watchStatus([this](const std::optional<IdleStatus>& status) { showStatus(status); });
}

void IdlePanel::layOut()
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* row = new QHBoxLayout;
    row->addWidget(m_isOn);
    row->addWidget(m_minutes);
    row->addStretch(1);
    column->addLayout(row);
    column->addWidget(m_state);
}

void IdlePanel::refresh()
{
    const QSignalBlocker quietSwitch(m_isOn);
    const QSignalBlocker quietMinutes(m_minutes);
    const IdleOptions options = m_switch.options();
    m_isOn->setChecked(options.isEnabled);
    m_minutes->setValue(minutesOf(options.after));
    m_minutes->setEnabled(options.isEnabled);
}

void IdlePanel::store()
{
    const IdleOptions options{m_isOn->isChecked(), std::chrono::minutes(m_minutes->value())};
    const auto stored = m_switch.set(options);
    refresh();
    if (!stored) Q_EMIT failed(stored.error());
}

void IdlePanel::showStatus(const std::optional<IdleStatus>& status)
{
    m_state->setText(status ? IdleWords::of(*status) : tr("Nothing starts the saver by itself now."));
}

} // namespace kestro
