#include "idle/SaverChild.h"

#include "platform/base/ChildProcess.h"
#include "platform/base/ChildProgram.h"
#include "platform/base/Log.h"
#include "platform/base/PostTo.h"

#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

using namespace std::chrono_literals;

constexpr auto patienceWithEnd = 2s;
constexpr auto patienceOfOurOwnEnd = 80ms; // the whole of it has 200

QString wordsOf(const ChildEnd& end)
{
    return end.signal != 0 ? QStringLiteral("signal %1").arg(end.signal)
                           : QStringLiteral("status %1").arg(end.status);
}

} // namespace

SaverChild::SaverChild(QString program, QStringList arguments)
    : m_program(std::move(program))
    , m_arguments(std::move(arguments))
{
    m_patience.setSingleShot(true);
    QObject::connect(&m_patience, &QTimer::timeout, &m_patience, [this] {
        if (m_process) m_process->kill();
    });
}

SaverChild::~SaverChild()
{
    if (m_process) m_process->stop(patienceOfOurOwnEnd);
}

void SaverChild::start(EndHandler onEnd)
{
    m_onEnd = std::move(onEnd);
    ChildProgram program;
    program.file = m_program;
    program.arguments = m_arguments;
    program.descriptors = {{STDERR_FILENO, STDERR_FILENO}};
    program.endsWithParent = true;
    auto process = ChildProcess::start(program);
    if (!process) {
        logLine(QStringLiteral("Cannot start %1: %2.").arg(m_program, process.error()));
        postTo(m_patience, [this] { ended(true); });
        return;
    }
    m_process = std::move(process.value());
    m_process->whenEnded([this](const ChildEnd& end) {
        const bool hasBrokenOff = !end.isSuccess() && !m_patience.isActive();
        if (hasBrokenOff) logLine(QStringLiteral("The saver broke off: %1.").arg(wordsOf(end)));
        ended(hasBrokenOff);
    });
}

void SaverChild::stop()
{
    if (!m_process || m_patience.isActive()) return;
    m_process->terminate();
    m_patience.start(patienceWithEnd);
}

void SaverChild::ended(bool hasBrokenOff)
{
    m_patience.stop();
    m_process.reset();
    if (const auto onEnd = std::exchange(m_onEnd, nullptr)) onEnd(hasBrokenOff);
}

} // namespace kestro
