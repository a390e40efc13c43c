#include "config_ui/HoursPanel.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QTimeEdit>
#include <QVBoxLayout>

namespace kestro {

namespace {

constexpr PlayTime anEvening{PlayTime::Kind::Hours, 20 * 60, 23 * 60};

QTimeEdit* fieldFor(int minute)
{
    return new QTimeEdit(QTime(minute / 60, minute % 60));
}

int minuteOf(const QTimeEdit& field)
{
    return field.time().hour() * 60 + field.time().minute();
}

} // namespace

HoursPanel::HoursPanel(const PlayTime& time, QWidget* parent)
    : QDialog(parent)
{
    const PlayTime& shown = time.kind == PlayTime::Kind::Hours ? time : anEvening;
    m_from = fieldFor(shown.from);
    m_to = fieldFor(shown.to);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    setWindowTitle(tr("Play Between"));
    auto* const layout = new QVBoxLayout(this);
    auto* const fields = new QFormLayout;
    fields->addRow(tr("&From:"), m_from);
    fields->addRow(tr("&Until:"), m_to);
    layout->addLayout(fields);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    for (const QTimeEdit* const field : {m_from, m_to})
        connect(field, &QTimeEdit::timeChanged, this, &HoursPanel::checkHours);
}

PlayTime HoursPanel::hours() const
{
    return {PlayTime::Kind::Hours, minuteOf(*m_from), minuteOf(*m_to)};
}

void HoursPanel::checkHours()
{
    m_ok->setEnabled(m_from->time() != m_to->time());
}

} // namespace kestro
