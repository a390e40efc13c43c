#pragma once

#include "platform/base/Descriptor.h"
#include "platform/web/HelperLoad.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <sys/types.h>

namespace kestro {

/// A running web helper: a program in a process group of its own that ends when its end of the line to this
/// process is closed, however this process ends. Destroying it kills it and whatever it started, and waits
/// for the end of that for a moment at most. Main thread.
class HelperProcess final {
public:
    /// The descriptor that the helper finds its end of the line at.
    static constexpr int channelNumber = 3;

    /// Starts `program` with the folder `home`, which it keeps what it writes in, as its first argument, and
    /// those that are given. Null when it cannot be started.
    [[nodiscard]] static std::unique_ptr<HelperProcess>
    start(const QString& program, const QString& home, const QStringList& arguments, Descriptor channel);
    ~HelperProcess();
    HelperProcess(const HelperProcess&) = delete;
    HelperProcess& operator=(const HelperProcess&) = delete;

    /// What it and all that it has started take now.
    [[nodiscard]] HelperLoad load() const { return loadOf(m_process); }

private:
    explicit HelperProcess(pid_t process)
        : m_process(process)
    {
    }

    pid_t m_process;
};

} // namespace kestro
