#include "host/preferences/PreferencesWindow.h"

#include "host/preferences/AspectBox.h"
#include "host/preferences/XscreensaverPanel.h"

#include <QCloseEvent>
#include <QDialog>
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
    , m_preview(new SaverPreview(parts.views))
    , m_box(new AspectBox(*m_preview, this))
    , m_options(new QPushButton(tr("&Options…"), this))
    , m_tryIt(new QPushButton(tr("&Try it"), this))
    , m_close(new QPushButton(tr("&Close"), this))
    , m_xscreensaver(new XscreensaverPanel(parts.xscreensaver, this))
    , m_trial(parts.program)
{
    setWindowTitle(tr("Kestro Settings"));
    m_options->setEnabled(false); // until there is a saver
    layOut();
    addKeys();
    takeShapeOfScreen();
    restorePlace();
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &PreferencesWindow::takeShapeOfScreen);
    connect(m_preview, &SaverPreview::made, this,
            [this] { m_options->setEnabled(m_preview->saver() != nullptr); });
    connect(m_options, &QPushButton::clicked, this, &PreferencesWindow::openOptions);
    connect(m_tryIt, &QPushButton::clicked, this, &PreferencesWindow::tryIt);
    connect(m_close, &QPushButton::clicked, this, &QWidget::close);
    connect(&m_trial, &SaverRun::ended, this, &PreferencesWindow::trialEnded);
    connect(m_xscreensaver, &XscreensaverPanel::failed, this, &PreferencesWindow::alert);
}

PreferencesWindow::~PreferencesWindow()
{
    delete m_sheet; // it refers to the saver, which the preview owns
}

void PreferencesWindow::layOut()
{
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_box, 1);
    auto* row = new QHBoxLayout;
    row->addWidget(m_options);
    row->addWidget(m_tryIt);
    row->addStretch(1);
    row->addWidget(m_close);
    column->addLayout(row);
    column->addWidget(line(this));
    column->addWidget(m_xscreensaver);
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

void PreferencesWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // The window comes first, the movie takes a while.
    if (!std::exchange(m_wasShown, true))
        QMetaObject::invokeMethod(this, &PreferencesWindow::startPreview, Qt::QueuedConnection);
}

void PreferencesWindow::startPreview()
{
    if (m_isOver) return;
    if (!m_preview->start()) return alert(tr("The screen saver cannot be loaded."));
}

void PreferencesWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) m_preview->setPaused(SaverPreview::Unseen, isMinimized());
    // Another program may have changed the list meanwhile.
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) m_xscreensaver->refresh();
}

void PreferencesWindow::openOptions()
{
    ConfigurableSaver* const saver = m_preview->saver();
    if (!saver) return;
    if (!m_sheet) m_sheet = m_parts.sheet(*saver, this);
    m_sheet->open();
}

void PreferencesWindow::tryIt()
{
    if (m_trial.isRunning()) return;
    m_preview->setPaused(SaverPreview::OtherRuns, true);
    m_tryIt->setEnabled(false);
    m_trial.start();
}

void PreferencesWindow::trialEnded(const QString& error)
{
    m_tryIt->setEnabled(true);
    m_tryIt->setFocus();
    m_preview->setPaused(SaverPreview::OtherRuns, false);
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
    m_trial.stop();
    m_preview->end();
}

} // namespace kestro
