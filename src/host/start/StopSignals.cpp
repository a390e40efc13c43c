#include "host/start/StopSignals.h"

#include "host/start/StopThread.h"

#include <QSocketNotifier>

#include <cstdint>
#include <unistd.h>
#include <utility>

namespace kestro {

StopSignals::StopSignals(std::function<void(int signal)> onStop)
    : m_onStop(std::move(onStop))
    , m_told(listenToStopSignals())
    , m_notifier(std::make_unique<QSocketNotifier>(m_told, QSocketNotifier::Read))
{
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { received(); });
}

StopSignals::~StopSignals()
{
    stopListening();
}

void StopSignals::received()
{
    std::uint64_t signal = 0;
    if (read(m_told, &signal, sizeof signal) != sizeof signal) return;
    if (const auto onStop = std::exchange(m_onStop, nullptr)) onStop(static_cast<int>(signal));
}

} // namespace kestro
