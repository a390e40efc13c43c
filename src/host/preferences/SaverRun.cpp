#include "host/preferences/SaverRun.h"

#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

namespace kestro {

namespace {

constexpr int patience = 100; // milliseconds

} // namespace

SaverRun::SaverRun(QString program)
    : m_program(std::move(program))
{
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setStandardOutputFile(QProcess::nullDevice());
    const auto self = getpid();
    m_process.setChildProcessModifier([self] {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (getppid() != self) _exit(1); // too late: the parent is gone already
    });
    connect(&m_process, &QProcess::finished, this, &SaverRun::finished);
    connect(&m_process, &QProcess::errorOccurred, this, &SaverRun::failed);
}

SaverRun::~SaverRun()
{
    disconnect(&m_process, nullptr, this, nullptr);
    stop();
}

void SaverRun::start()
{
    if (!isRunning()) m_process.start(m_program, {});
}

void SaverRun::stop()
{
    if (!isRunning()) return;
    m_process.terminate();
    if (m_process.waitForFinished(patience)) return;
    m_process.kill();
    m_process.waitForFinished(patience);
}

void SaverRun::finished(int code, QProcess::ExitStatus status)
{
    if (status == QProcess::CrashExit)
        Q_EMIT ended(tr("The saver ended unexpectedly."));
    else
        Q_EMIT ended(code == 0 ? QString() : complaint());
}

void SaverRun::failed(QProcess::ProcessError error)
{
    if (error == QProcess::FailedToStart)
        Q_EMIT ended(tr("Cannot start %1: %2").arg(m_program, m_process.errorString()));
}

/// The last line that it said, which tells why it failed.
QString SaverRun::complaint()
{
    const QString said = QString::fromLocal8Bit(m_process.readAllStandardError()).trimmed();
    const QString last = said.section(u'\n', -1);
    return last.isEmpty() ? tr("The saver could not run.") : last;
}

} // namespace kestro
