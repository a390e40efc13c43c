#include "platform/base/ChildProgram.h"

#include "platform/base/Descriptor.h"
#include "platform/base/Reasons.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestro {

namespace {

/// Words as the system takes those of a new process.
class Words final {
public:
    explicit Words(const QStringList& words)
    {
        for (const QString& word : words)
            m_bytes.push_back(QFile::encodeName(word));
        for (QByteArray& each : m_bytes)
            m_pointers.push_back(each.data());
        m_pointers.push_back(nullptr);
    }
    [[nodiscard]] char** data() { return m_pointers.data(); }

private:
    std::vector<QByteArray> m_bytes;
    std::vector<char*> m_pointers;
};

/// All that the new process needs, made before there is one: that has our memory and must not take any of it.
struct Plan {
    const ChildProgram& program;
    char** arguments;
    char** environment;
    std::vector<int>& aside; ///< room for a number for each descriptor that is handed over
    int firstFree;           ///< the first number above those that the program is to find
    int report;              ///< where the new process writes why it could not run the program
    pid_t parent;
};

void haveSignalsAsNew()
{
    for (int signal = 1; signal < NSIG; ++signal)
        std::signal(signal, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

bool enterGroup(ChildProgram::Group group)
{
    if (group == ChildProgram::Group::Ours) return true;
    return group == ChildProgram::Group::Own ? setpgid(0, 0) == 0 : setsid() >= 0;
}

/// A parent that is gone before it is asked for no longer has the number that it had.
bool endWithParent(pid_t parent)
{
    return prctl(PR_SET_PDEATHSIG, SIGTERM) == 0 && getppid() == parent;
}

/// Each first goes where it is in nobody's way. A standard stream of ours that is closed is /dev/null.
bool takeDescriptors(const Plan& plan)
{
    if (close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC) != 0) return false;
    const auto& handed = plan.program.descriptors;
    for (std::size_t each = 0; each < handed.size(); ++each) {
        plan.aside[each] = fcntl(handed[each].descriptor, F_DUPFD_CLOEXEC, plan.firstFree);
        if (plan.aside[each] < 0 && handed[each].as > STDERR_FILENO) return false;
    }
    const int nothing = fcntl(open("/dev/null", O_RDWR | O_CLOEXEC), F_DUPFD_CLOEXEC, plan.firstFree);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (dup2(nothing, stream) < 0) return false;
    for (std::size_t each = 0; each < handed.size(); ++each)
        if (plan.aside[each] >= 0 && dup2(plan.aside[each], handed[each].as) < 0) return false;
    return true;
}

/// In the new process, which may do no more than call the system.
[[noreturn, gnu::noinline]] void become(const Plan& plan)
{
    const int report = fcntl(plan.report, F_DUPFD_CLOEXEC, plan.firstFree);
    const bool isReady = enterGroup(plan.program.group) &&
                         (!plan.program.endsWithParent || endWithParent(plan.parent)) &&
                         takeDescriptors(plan);
    if (isReady) {
        haveSignalsAsNew();
        execve(plan.arguments[0], plan.arguments, plan.environment);
    }
    const int reason = errno;
    [[maybe_unused]] const auto written = write(report, &reason, sizeof reason);
    _exit(EXIT_FAILURE);
}

/// No handler of ours may run in the new process, and a copy of our memory would take long to make.
pid_t startProcess(const Plan& plan)
{
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t process = vfork(); // NOLINT(clang-analyzer-security.insecureAPI.vfork): see become()
    if (process == 0) become(plan);
    const int reason = errno;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    errno = reason;
    return process;
}

/// Of a process that could not run its program; nothing of one that does.
std::optional<int> reasonIn(const Descriptor& report)
{
    int reason = 0;
    ssize_t count = -1;
    do
        count = read(report.number(), &reason, sizeof reason);
    while (count < 0 && errno == EINTR);
    return count == sizeof reason ? std::optional(reason) : std::nullopt;
}

int firstNumberAbove(const std::vector<ChildProgram::Handed>& handed)
{
    int highest = STDERR_FILENO;
    for (const auto& each : handed)
        highest = std::max(highest, each.as);
    return highest + 1;
}

} // namespace

Result<pid_t> startProgram(const ChildProgram& program)
{
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0) return Error{systemReason(errno)};
    const Descriptor report(ends[0]);
    Descriptor reporter(ends[1]);
    Words arguments(QStringList(program.file) + program.arguments);
    Words environment(program.environment.value_or(QStringList()));
    std::vector<int> aside(program.descriptors.size(), -1);
    const pid_t process =
        startProcess({program, arguments.data(), program.environment ? environment.data() : environ, aside,
                      firstNumberAbove(program.descriptors), reporter.number(), getpid()});
    if (process < 0) return Error{systemReason(errno)};
    reporter.reset();
    const auto reason = reasonIn(report);
    if (!reason) return process;
    while (waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
    }
    return Error{systemReason(*reason)};
}

} // namespace kestro
