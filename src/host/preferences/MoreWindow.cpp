#include "host/preferences/MoreWindow.h"

#include "host/preferences/MoreOptions.h"
#include "platform/base/ConfigurationFile.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace kestro {

namespace {

constexpr int usualLetters = 76; // in a line

} // namespace

MoreWindow::MoreWindow(QString configuration, QWidget* parent)
    : QDialog(parent)
    , m_configuration(std::move(configuration))
{
    setWindowTitle(tr("More"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* area = new QScrollArea(this);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // it follows the keys through what is in it
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QWidget* const groups = makeGroups();
    area->setWidget(groups);
    area->setMinimumWidth(groups->minimumSizeHint().width() + area->verticalScrollBar()->sizeHint().width());
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setText(tr("&Close"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(area, 1);
    column->addWidget(buttons);
    refresh();
    takeUsualSize(*area, *groups);
    m_rows.front().control.widget->setFocus();
}

/// As wide as most lines are, and as high as all of them are then, where the screen has room.
void MoreWindow::takeUsualSize(const QScrollArea& area, const QWidget& groups)
{
    const int width = std::max(sizeHint().width(), fontMetrics().averageCharWidth() * usualLetters);
    const QSize around = sizeHint() - area.sizeHint();
    const int lines = width - around.width() - area.verticalScrollBar()->sizeHint().width();
    const QSize wanted(width, groups.heightForWidth(lines) + around.height());
    resize(wanted.boundedTo(QGuiApplication::primaryScreen()->availableSize() * 9 / 10));
}

QWidget* MoreWindow::makeGroups()
{
    auto* groups = new QWidget(this);
    auto* column = new QVBoxLayout(groups);
    for (const MoreGroup& group : MoreOptions::all())
        column->addWidget(makeGroup(group));
    column->addStretch(1);
    return groups;
}

QWidget* MoreWindow::makeGroup(const MoreGroup& group)
{
    auto* box = new QGroupBox(group.title, this);
    auto* column = new QVBoxLayout(box);
    for (const MoreOption& option : group.options)
        addOption(option, *column, *box);
    return box;
}

void MoreWindow::addOption(const MoreOption& option, QVBoxLayout& column, QWidget& box)
{
    const OptionControl control = makeControl(
        option, [this, option](const QString& value) { store(option.section, option.key, value); }, box);
    auto* row = new QHBoxLayout;
    if (option.kind != MoreOption::Kind::Switch) {
        auto* title = new QLabel(option.title, &box);
        title->setBuddy(control.widget);
        row->addWidget(title);
    }
    row->addWidget(control.widget);
    row->addStretch(1);
    column.addLayout(row);
    auto* explanation = new QLabel(option.explanation, &box);
    explanation->setWordWrap(true);
    explanation->setForegroundRole(QPalette::PlaceholderText);
    column.addWidget(explanation);
    control.widget->setAccessibleDescription(option.explanation);
    m_rows.push_back({option.section, option.key, control});
}

QWidget* MoreWindow::control(const QString& section, const QString& key) const
{
    const auto row = std::find_if(m_rows.begin(), m_rows.end(),
                                  [&](const Row& one) { return one.section == section && one.key == key; });
    return row != m_rows.end() ? row->control.widget : nullptr;
}

void MoreWindow::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    // Another program may have changed the file meanwhile.
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) refresh();
}

void MoreWindow::refresh()
{
    const auto file = ConfigurationFile::at(m_configuration);
    for (const Row& row : m_rows)
        row.control.show(file.value(row.section, row.key));
}

void MoreWindow::store(const QString& section, const QString& key, const QString& value)
{
    const auto stored =
        changeConfiguration(m_configuration, [&](ConfigurationFile& file) { file.set(section, key, value); });
    refresh();
    if (!stored) Q_EMIT failed(stored.error());
}

} // namespace kestro
