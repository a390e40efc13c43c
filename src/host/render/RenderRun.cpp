#include "host/render/RenderRun.h"

#include "host/render/TraceFile.h"
#include "host/render/TraceLine.h"
#include "host/session/HostedSaver.h"
#include "host/session/SaverSession.h"
#include "platform/base/Clock.h"
#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/Surface.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestro {

RenderRun::RenderRun(Desktop& desktop, Desktop& monitors, SaverSession& session,
                     const PictureFolder& pictures, TraceFile* trace, const RenderOptions& options)
    : m_desktop(desktop)
    , m_monitors(monitors)
    , m_session(session)
    , m_pictures(pictures)
    , m_trace(trace)
    , m_options(options)
    , m_started(desktop.clock().now())
{
    m_next.setSingleShot(true);
    m_next.setTimerType(Qt::PreciseTimer);
    m_next.callOnTimeout([this] { momentCame(); });
    m_session.setTickHandler([this](HostedSaver& saver) { this->trace(saver); });
}

int RenderRun::exec()
{
    QTimer::singleShot(0, &m_next, [this] { begin(); });
    const int status = QCoreApplication::exec();
    m_pictures.finish();
    const auto written = m_pictures.written();
    if (written) return status;
    printError(written.error());
    return ExitFailure;
}

void RenderRun::begin()
{
    if (m_isOver) return;
    m_started = m_desktop.clock().now();
    // First, because a view may let time pass while it starts.
    scheduleNext();
    if (!m_session.start()) end(ExitFailure);
}

double RenderRun::elapsed() const
{
    return m_desktop.clock().now() - m_started;
}

void RenderRun::scheduleNext()
{
    const double now = elapsed();
    const double steps = std::floor(std::max(now, m_due) / m_options.every + 1e-6) + 1;
    m_due = std::min(steps * m_options.every, m_options.seconds);
    m_next.start(static_cast<int>(std::ceil(std::max(0.0, m_due - now) * 1000)));
}

void RenderRun::momentCame()
{
    if (m_isOver) return;
    takePictures(m_due);
    if (m_due < m_options.seconds && !m_isOver)
        scheduleNext();
    else
        end(ExitSuccess);
}

void RenderRun::endEarly()
{
    if (!m_isOver) takePictures(elapsed());
    end(ExitSuccess);
}

void RenderRun::takePictures(double seconds)
{
    for (Screen* screen : m_desktop.screens())
        screen->update();
    int index = 0;
    for (Screen* screen : m_monitors.screens()) {
        screen->update();
        m_pictures.add(screen->surface().canvas().copy(), index++, seconds);
    }
    if (!m_pictures.written()) end(ExitFailure);
}

void RenderRun::trace(const HostedSaver& saver)
{
    if (!m_trace || m_isOver) return;
    const auto screens = m_desktop.screens();
    const auto place = std::ranges::find(screens, &saver.screen()) - screens.begin();
    const auto written = m_trace->write(traceLine(saver, static_cast<int>(place), elapsed()));
    if (written) return;
    printError(written.error());
    end(ExitFailure);
}

void RenderRun::end(ExitCode status)
{
    if (std::exchange(m_isOver, true)) return;
    m_next.stop();
    m_session.stop();
    QCoreApplication::exit(status);
}

} // namespace kestro
