#include "host/commands/ScanRun.h"

#include "host/start/StopThread.h"
#include "platform/base/Clock.h"
#include "platform/base/Log.h"

#include <QCoreApplication>

#include <optional>

namespace kestro {

namespace {

constexpr int redrawEvery = 100; // milliseconds

} // namespace

ScanRun::ScanRun(TrailerCont& controller, bool isVerbose)
    : m_controller(controller)
    , m_progress(isVerbose)
{
    m_controller.setObserver(this);
    m_controller.setWatcher(&m_progress);
    m_redraw.callOnTimeout([this] { m_progress.draw(); });
}

ScanRun::~ScanRun()
{
    m_controller.stopThreading();
    m_controller.setWatcher(nullptr);
    m_controller.setObserver(nullptr);
}

int ScanRun::exec()
{
    std::optional<LogCapture> log;
    if (m_progress.isDrawn()) {
        log.emplace([this](const QString& line) { m_progress.writeAbove(line); });
        m_redraw.start(redrawEvery);
    }
    const SystemClock clock;
    const double started = clock.now();
    m_controller.scan();
    QCoreApplication::exec();
    m_redraw.stop();
    m_progress.erase();
    log.reset();

    const ScanEnd& end = m_controller.lastEnd();
    const ExitCode status = finish();
    if (!end.isStarted()) return status;
    const bool isBounded = end.kind == ScanEnd::Kind::Bounded;
    const ExitCode printed = print(QStringLiteral("%1 pages, %2 records, %3 seconds%4\n")
                                       .arg(end.pages)
                                       .arg(m_controller.list().count())
                                       .arg(clock.now() - started, 0, 'f', 1)
                                       .arg(isBounded ? QStringLiteral(", ended by a bound") : QString())
                                       .toUtf8());
    return status == ExitSuccess ? printed : status;
}

void ScanRun::endEarly()
{
    m_controller.stopThreading();
}

void ScanRun::reloadTableView()
{
    m_progress.draw();
}

void ScanRun::stopProgress()
{
    QCoreApplication::quit();
}

// A crawl that saw no page has nothing to say about the list: the file stays as it is.
ExitCode ScanRun::finish()
{
    const ScanEnd& end = m_controller.lastEnd();
    if (end.pages == 0 && !end.reason.isEmpty()) printError(end.reason);
    if (end.pages > 0 && !saveList()) return ExitFailure;
    return end.isStarted() && end.kind != ScanEnd::Kind::NoPage ? ExitSuccess : ExitFailure;
}

// A long list takes its time, and would be lost with the process.
bool ScanRun::saveList()
{
    const TimeToSave time;
    return m_controller.list().saveList();
}

} // namespace kestro
