#include "host/preferences/PreferencesWindow.h"

#include "host/preferences/AspectBox.h"
#include "host/preferences/DoctorWindow.h"
#include "host/preferences/IdlePanel.h"
#include "host/preferences/MoreWindow.h"
#include "host/preferences/ScreensPanel.h"
#include "host/preferences/XscreensaverPanel.h"

#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

namespace kestro {

namespace {

const QString placeKey = QStringLiteral("WindowPlace");

QFrame* line(QWidget* parent)
{
    auto* made = new QFrame(parent);
    made->setFrameShape(QFrame::HLine);
    made->setFrameShadow(QFrame::Sunken);
    return made;
}

} // namespace

PreferencesWindow::PreferencesWindow(const Parts& parts)
    : m_parts(parts)
    , m_box(new AspectBox(this))
    , m_screens(new ScreensPanel(parts.idle.configuration, ScreensPanel::namesInSession, this))
    , m_idle(new IdlePanel(parts.idle, this))
    , m_xscreensaver(new XscreensaverPanel(parts.xscreensaver, this))
    , m_more(new QPushButton(tr("&More…"), this))
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Close, this))
    , m_options(m_buttons->addButton(tr("&Options…"), QDialogButtonBox::ActionRole))
    , m_tryIt(m_buttons->addButton(tr("&Try It"), QDialogButtonBox::ActionRole))
    , m_trial(parts.program)
{
    setWindowTitle(tr("Kestro Settings"));
    layOut();
    addKeys();
    takeShapeOfScreen();
    restorePlace();
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &PreferencesWindow::takeShapeOfScreen);
    connect(m_more, &QPushButton::clicked, this, &PreferencesWindow::openMore);
    connect(m_options, &QPushButton::clicked, this, &PreferencesWindow::openOptions);
    connect(m_tryIt, &QPushButton::clicked, this, &PreferencesWindow::tryIt);
    connect(m_buttons, &QDialogButtonBox::helpRequested, this, &PreferencesWindow::askDoctor);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QWidget::close);
    connect(&m_trial, &SaverRun::ended, this, &PreferencesWindow::trialEnded);
    connect(m_screens, &ScreensPanel::failed, this, &PreferencesWindow::alert);
    connect(m_idle, &IdlePanel::failed, this, &PreferencesWindow::alert);
    connect(m_xscreensaver, &XscreensaverPanel::failed, this, &PreferencesWindow::alert);
}

PreferencesWindow::~PreferencesWindow() = default;

void PreferencesWindow::layOut()
{
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_box, 1);
    column->addWidget(m_screens);
    column->addWidget(m_idle);
    auto* last = new QHBoxLayout;
    last->addWidget(m_xscreensaver, 1);
    last->addWidget(m_more);
    column->addLayout(last);
    column->addWidget(line(this));
    column->addWidget(m_buttons);
    m_buttons->button(QDialogButtonBox::Close)->setText(tr("&Close"));
    m_buttons->addButton(tr("Something &Wrong?"), QDialogButtonBox::HelpRole);
    m_options->setFocus();
}

void PreferencesWindow::addKeys()
{
    for (const auto key : {QKeySequence::Close, QKeySequence::Quit, QKeySequence::Cancel})
        connect(new QShortcut(key, this), &QShortcut::activated, this, &QWidget::close);
}

void PreferencesWindow::restorePlace()
{
    const QByteArray place = m_parts.state.value(placeKey).toByteArray();
    if (!place.isEmpty() && restoreGeometry(place)) return;
    // A small screen has room for less than the window would like.
    const QScreen* first = QGuiApplication::primaryScreen();
    const QSize room = first ? first->availableSize() * 9 / 10 : sizeHint();
    resize(sizeHint().boundedTo(room));
}

void PreferencesWindow::takeShapeOfScreen()
{
    const QScreen* first = QGuiApplication::primaryScreen();
    if (!first) return;
    m_box->setShape(first->size());
    connect(first, &QScreen::geometryChanged, this, &PreferencesWindow::takeShapeOfScreen,
            Qt::UniqueConnection);
}

void PreferencesWindow::paintEvent(QPaintEvent*)
{
    // The window comes first, what plays movies takes a while.
    if (!std::exchange(m_wasPainted, true))
        QMetaObject::invokeMethod(this, &PreferencesWindow::startPreview, Qt::QueuedConnection);
}

void PreferencesWindow::startPreview()
{
    QGuiApplication::sync(); // until then what was painted is not on the screen
    if (m_isOver) return;
    m_preview = m_parts.preview();
    if (!m_preview) return saverIsMissing();
    m_box->setContent(m_preview->widget());
    m_preview->setPaused(Preview::Unseen, isMinimized());
    m_preview->setPaused(Preview::OtherRuns, m_trial.isRunning());
    if (!m_preview->start([this] { saverIsMade(); })) saverIsMissing();
}

void PreferencesWindow::saverIsMade()
{
    m_isMade = true;
    m_options->setEnabled(m_preview->hasOptions());
    if (m_wantsOptions)
        QMetaObject::invokeMethod(this, &PreferencesWindow::openOptions, Qt::QueuedConnection);
}

void PreferencesWindow::saverIsMissing()
{
    m_options->setEnabled(false);
    alert(tr("The screen saver cannot be loaded."));
}

void PreferencesWindow::pausePreview(Preview::Pause reason, bool paused)
{
    if (m_preview) m_preview->setPaused(reason, paused);
}

void PreferencesWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) pausePreview(Preview::Unseen, isMinimized());
    // Another program may have changed any of them meanwhile.
    if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
    m_screens->refresh();
    m_idle->refresh();
    m_xscreensaver->refresh();
}

void PreferencesWindow::openOptions()
{
    m_wantsOptions = !m_isMade;
    if (m_isMade) m_preview->openOptions(*this);
}

void PreferencesWindow::tryIt()
{
    if (m_trial.isRunning()) return;
    pausePreview(Preview::OtherRuns, true);
    m_tryIt->setEnabled(false);
    m_trial.start();
}

void PreferencesWindow::openMore()
{
    auto* more = new MoreWindow(m_parts.idle.configuration, this);
    connect(more, &MoreWindow::failed, this, &PreferencesWindow::alert);
    more->open();
}

void PreferencesWindow::askDoctor()
{
    (new DoctorWindow(m_parts.program, this))->open();
}

void PreferencesWindow::trialEnded(const QString& error)
{
    m_tryIt->setEnabled(true);
    m_tryIt->setFocus();
    pausePreview(Preview::OtherRuns, false);
    if (!error.isEmpty()) alert(error);
}

void PreferencesWindow::alert(const QString& message)
{
    auto* box = new QMessageBox(QMessageBox::Warning, windowTitle(), message, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void PreferencesWindow::closeEvent(QCloseEvent* event)
{
    end();
    event->accept();
    Q_EMIT closed();
}

void PreferencesWindow::end()
{
    if (std::exchange(m_isOver, true)) return;
    m_parts.state.setValue(placeKey, saveGeometry());
    m_parts.state.sync();
    hide();
    disconnect(&m_trial, nullptr, this, nullptr);
    if (m_preview) m_preview->end(); // it has something to store, and a saver that is tried may take its time
    m_trial.stop();
}

} // namespace kestro
