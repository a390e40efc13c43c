#include "host/preferences/ScreensPanel.h"

#include "idle/ScreensOptions.h"
#include "platform/base/ConfigurationFile.h"

#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QSignalBlocker>

#include <utility>

namespace kestro {

QStringList ScreensPanel::namesInSession()
{
    QStringList names;
    for (const QScreen* screen : QGuiApplication::screens())
        if (!screen->name().isEmpty()) names.append(screen->name());
    return names;
}

ScreensPanel::ScreensPanel(QString configuration, Names monitors, QWidget* parent)
    : QWidget(parent)
    , m_configuration(std::move(configuration))
    , m_names(std::move(monitors))
    , m_mode(new QComboBox(this))
    , m_monitors(new QComboBox(this))
{
    m_mode->addItem(tr("A movie on each"), int(ScreensMode::Each));
    m_mode->addItem(tr("The same movie on all"), int(ScreensMode::Mirror));
    m_mode->addItem(tr("One movie across all"), int(ScreensMode::Span));
    m_monitors->setAccessibleName(tr("Monitors that show the saver"));
    m_monitors->setToolTip(tr("The others are black meanwhile"));
    layOut();
    refresh();
    connect(m_mode, &QComboBox::currentIndexChanged, this, &ScreensPanel::store);
    connect(m_monitors, &QComboBox::currentIndexChanged, this, &ScreensPanel::store);
}

void ScreensPanel::layOut()
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    auto* words = new QLabel(tr("Scree&ns:", "how they share the saver"), this);
    words->setBuddy(m_mode);
    row->addWidget(words);
    row->addWidget(m_mode);
    row->addWidget(m_monitors);
    row->addStretch(1);
}

void ScreensPanel::refresh()
{
    const QSignalBlocker quietMode(m_mode);
    const QSignalBlocker quietMonitors(m_monitors);
    const ScreenChoice choice = screenChoiceFrom(ConfigurationFile::at(m_configuration));
    m_mode->setCurrentIndex(m_mode->findData(int(choice.mode)));
    offerMonitors(choice.monitors);
}

/// Those that are there, one by one, and whatever else is stored.
void ScreensPanel::offerMonitors(const MonitorChoice& chosen)
{
    m_monitors->clear();
    m_monitors->addItem(tr("All monitors"), MonitorChoice().text());
    m_monitors->addItem(tr("The first monitor alone"), MonitorChoice{MonitorChoice::Kind::First, {}}.text());
    for (const QString& name : m_names())
        m_monitors->addItem(tr("%1 alone").arg(name), name);
    const QString stored = chosen.text();
    if (m_monitors->findData(stored) < 0) m_monitors->addItem(tr("%1 alone").arg(stored), stored);
    m_monitors->setCurrentIndex(m_monitors->findData(stored));
}

void ScreensPanel::store()
{
    ScreenChoice choice{ScreensMode(m_mode->currentData().toInt()), {}};
    const auto monitors = MonitorChoice::from(m_monitors->currentData().toString());
    if (monitors) choice.monitors = monitors.value();
    const auto stored = changeConfiguration(
        m_configuration, [&choice](ConfigurationFile& file) { putScreenChoice(choice, file); });
    refresh();
    if (!stored) Q_EMIT failed(stored.error());
}

} // namespace kestro
