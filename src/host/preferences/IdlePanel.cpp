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

constexpr int mostMinutes = int(std::chrono::minutes(IdleOptions::longestSpan).count());

int minutesOf(std::chrono::seconds span)
{
    return int(std::max<qint64>(1, std::chrono::duration_cast<std::chrono::minutes>(span).count()));
}

} // namespace

IdlePanel::IdlePanel(IdleSwitch::Places places, QWidget* parent)
    : QWidget(parent)
    , m_switch(std::move(places))
    , m_isOn(new QCheckBox(tr("&Start by itself when away for"), this))
    , m_minutes(new QSpinBox(this))
    , m_end(new QSpinBox(this))
    , m_state(new QLabel(this))
{
    m_minutes->setRange(1, mostMinutes);
    m_minutes->setSuffix(tr(" min", "minutes, after their number"));
    m_minutes->setAccessibleName(tr("Minutes until the saver starts"));
    m_minutes->setKeyboardTracking(false);
    m_end->setRange(0, mostMinutes);
    m_end->setSpecialValueText(tr("never", "black after so many minutes, or never"));
    m_end->setSuffix(tr(" min", "minutes, after their number"));
    m_end->setAccessibleName(tr("Minutes until the saver is black"));
    m_end->setToolTip(tr("From then on nothing plays, and the displays can sleep"));
    m_end->setKeyboardTracking(false);
    m_state->setWordWrap(true);
    m_state->setTextFormat(Qt::PlainText);
    layOut();
    refresh();
    connect(m_isOn, &QCheckBox::toggled, this, &IdlePanel::store);
    connect(m_minutes, &QSpinBox::valueChanged, this, &IdlePanel::store);
    connect(m_end, &QSpinBox::valueChanged, this, &IdlePanel::store);
    m_switch.watchStatus([this](const std::optional<IdleStatus>& status) { showStatus(status); });
}

void IdlePanel::layOut()
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* row = new QHBoxLayout;
    row->addWidget(m_isOn);
    row->addWidget(m_minutes);
    auto* endWords = new QLabel(tr("&black after", "so many minutes, or never"), this);
    endWords->setBuddy(m_end);
    row->addWidget(endWords);
    row->addWidget(m_end);
    row->addStretch(1);
    column->addLayout(row);
    column->addWidget(m_state);
}

void IdlePanel::refresh()
{
    const QSignalBlocker quietSwitch(m_isOn);
    const QSignalBlocker quietMinutes(m_minutes);
    const QSignalBlocker quietEnd(m_end);
    const IdleOptions options = m_switch.options();
    m_isOn->setChecked(options.isEnabled);
    m_minutes->setValue(minutesOf(options.after));
    m_minutes->setEnabled(options.isEnabled);
    m_end->setValue(options.stopAfter.count() == 0 ? 0 : minutesOf(options.stopAfter));
}

void IdlePanel::store()
{
    const IdleOptions options{m_isOn->isChecked(), std::chrono::minutes(m_minutes->value()),
                              std::chrono::minutes(m_end->value())};
    const auto stored = m_switch.set(options);
    refresh();
    if (!stored) Q_EMIT failed(stored.error());
}

void IdlePanel::showStatus(const std::optional<IdleStatus>& status)
{
    m_state->setText(status ? IdleWords::of(*status) : tr("Nothing starts the saver by itself now."));
}

} // namespace kestro
