#include "widgets/MoviePreview.h"

#include "platform/display/desktop/Screen.h"
#include "platform/display/desktop/Timer.h"
#include "platform/display/view/Window.h"
#include "platform/movie/NSMovie.h"
#include "platform/movie/QTMovie.h"
#include "widgets/ControllerBar.h"
#include "widgets/SurfaceWidget.h"

#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

namespace kestro {

namespace {

constexpr double followInterval = 0.1; ///< seconds between two looks at a movie that runs or loads

int unitsOf(MovieTime time)
{
    constexpr std::int64_t most = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp<std::int64_t>(time.timeValue, 0, most));
}

/// The largest rectangle of the shape of `size` in the middle of `room`; all of it where there is no shape.
Rect fitted(Size size, const Rect& room)
{
    if (size.isEmpty()) return room;
    const float scale = std::min(room.size.width / size.width, room.size.height / size.height);
    const Size inside{size.width * scale, size.height * scale};
    return {{(room.size.width - inside.width) / 2, (room.size.height - inside.height) / 2}, inside};
}

} // namespace

MoviePreview::MoviePreview(QWidget* parent, const SurfaceServices& services)
    : QWidget(parent)
    , m_services(services)
    , m_surface(new SurfaceWidget(this, services))
    , m_bar(new ControllerBar(this))
    , m_view(Rect{})
    , m_ground(Rect{})
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_surface, 1);
    column->addWidget(m_bar);
    m_ground.addSubview(m_view);
    Screen& screen = m_surface->screen();
    m_window =
        std::make_unique<Window>(Window::Description{screen.frame(), &screen, QStringLiteral("movie")});
    m_window->setBackgroundColor(Qt::black);
    m_window->setContentView(&m_ground);
    m_window->orderFront();
    m_surface->desktop().setScreenObserver({{}, [this](Screen&) { placePicture(); }, {}});
    placePicture();
    connect(m_bar, &ControllerBar::toggled, this, &MoviePreview::toggle);
    connect(m_bar, &ControllerBar::sought, this, &MoviePreview::seek);
}

MoviePreview::~MoviePreview()
{
    m_surface->desktop().setScreenObserver({});
    m_timer.reset();
    m_window->setContentView(nullptr);
    m_window.reset(); // while there is still a screen that it is on
}

int MoviePreview::controllerHeight()
{
    return ControllerBar::barHeight;
}

void MoviePreview::setKeepsShape(bool keepsShape)
{
    m_keepsShape = keepsShape;
    placePicture();
}

void MoviePreview::setMovie(std::shared_ptr<QTMovie> movie)
{
    m_view.setMovie(std::move(movie));
    changeMovie();
}

void MoviePreview::setMovie(const NSMovie& movie)
{
    m_view.setMovie(movie);
    changeMovie();
}

void MoviePreview::changeMovie()
{
    m_isWanted = false;
    m_isLoading = movie() != nullptr;
    m_ground.setNeedsDisplay(true);
    updateGeometry();
    placePicture();
    refresh();
}

void MoviePreview::start()
{
    if (!movie()) return;
    m_isWanted = true;
    m_view.start(this);
    refresh();
}

void MoviePreview::stop()
{
    m_isWanted = false;
    m_view.stop(this);
    refresh();
}

void MoviePreview::toggle()
{
    isRunning() ? stop() : start();
}

void MoviePreview::seek(int position)
{
    if (!movie()) return;
    movie()->setCurrentTime({position, movieTimeScale});
    refresh();
}

bool MoviePreview::isRunning() const
{
    if (!movie()) return false;
    return movie()->rate() != 0 || (m_isWanted && movie()->state() == QTMovie::State::Loading);
}

void MoviePreview::refresh()
{
    if (m_isLoading) settleLoading();
    const auto shown = movie();
    if (!shown) {
        m_bar->showState({});
    } else {
        m_bar->showState({shown->state() != QTMovie::State::Failed, isRunning(),
                          unitsOf(shown->currentTime()), unitsOf(shown->duration())});
    }
    if (!m_isLoading && !isRunning())
        m_timer.reset();
    else if (!m_timer)
        m_timer = m_services.timers.repeating(followInterval, [this] { refresh(); });
}

void MoviePreview::settleLoading()
{
    const auto state = movie()->state();
    if (state == QTMovie::State::Loading) return;
    m_isLoading = false;
    placePicture();
    updateGeometry();
    if (state == QTMovie::State::Failed)
        Q_EMIT movieFailed();
    else
        Q_EMIT movieLoaded();
}

void MoviePreview::placePicture()
{
    const Rect screen = m_surface->screen().frame();
    m_window->setFrameDisplay(screen, false);
    m_view.setFrame(m_keepsShape ? fitted(naturalSize(), m_ground.bounds()) : m_ground.bounds());
}

QSize MoviePreview::sizeHint() const
{
    const Size size = naturalSize();
    if (size.isEmpty()) return {320, 180 + controllerHeight()};
    return {static_cast<int>(size.width), static_cast<int>(size.height) + controllerHeight()};
}

void MoviePreview::keyPressEvent(QKeyEvent* event)
{
    const bool isPlayKey = event->key() == Qt::Key_Space || event->key() == Qt::Key_MediaPlay ||
                           event->key() == Qt::Key_MediaTogglePlayPause;
    if (!isPlayKey) return QWidget::keyPressEvent(event);
    toggle();
}

} // namespace kestro
