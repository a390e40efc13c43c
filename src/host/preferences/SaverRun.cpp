#include "host/preferences/SaverRun.h"

#include <chrono>
#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

constexpr std::chrono::milliseconds patience{100};
constexpr qsizetype longestComplaint = 4096; // bytes

} // namespace

SaverRun::SaverRun(QString program)
    : m_program(std::move(program))
{
}

SaverRun::~SaverRun()
{
    stop();
}

void SaverRun::start()
{
    if (isRunning()) return;
    m_said = {};
    auto process = ChildProcess::start({.file = m_program,
                                        .descriptors = {{m_said.number(), STDERR_FILENO}},
                                        .group = ChildProgram::Group::Ours,
                                        .endsWithParent = true});
    if (!process) {
        Q_EMIT ended(tr("Cannot start %1: %2").arg(m_program, process.error()));
        return;
    }
    m_process = std::move(process.value());
    m_process->whenEnded([this](const ChildEnd& end) { finished(end); });
}

void SaverRun::stop()
{
    if (const auto process = std::move(m_process)) process->stop(patience);
}

void SaverRun::finished(const ChildEnd& end)
{
    const auto process = std::move(m_process);
    if (end.signal != 0)
        Q_EMIT ended(tr("The saver ended unexpectedly."));
    else
        Q_EMIT ended(end.status == 0 ? QString() : lastErrorLine());
}

/// The last line that it said, which tells why it failed.
QString SaverRun::lastErrorLine() const
{
    const QString last = QString::fromLocal8Bit(m_said.last(longestComplaint)).trimmed().section(u'\n', -1);
    return last.isEmpty() ? tr("The saver could not run.") : last;
}

} // namespace kestro
