#include "platform/base/ChildProcess.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestro {

namespace {

constexpr std::chrono::milliseconds bound{60000};

struct Pipe {
    Pipe()
    {
        int ends[2] = {-1, -1};
        EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
        reader = Descriptor(ends[0]);
        writer = Descriptor(ends[1]);
    }

    /// What comes until nobody is left who could write, or nothing comes any more.
    [[nodiscard]] QByteArray read() const
    {
        QByteArray all;
        char some[512];
        ssize_t count = 1;
        pollfd watched{reader.number(), POLLIN, 0};
        while (count > 0 && poll(&watched, 1, static_cast<int>(bound.count())) > 0) {
            count = ::read(reader.number(), some, sizeof some);
            all.append(some, std::max<ssize_t>(0, count));
        }
        return watched.revents == 0 ? "there is still a writer" : all;
    }

    Descriptor reader;
    Descriptor writer;
};

ChildProgram shell(const QString& script)
{
    return {.file = QStringLiteral("/bin/sh"), .arguments = {QStringLiteral("-c"), script}};
}

/// A program that waits until it is ended, and no longer than this process is there.
struct Waiting {
    /// `before` is what the shell does first.
    explicit Waiting(ChildProgram::Group group, const QString& before = QStringLiteral(":"))
        : program(shell(before + QStringLiteral("; echo up; read never")))
    {
        program.descriptors = {{never.reader.number(), STDIN_FILENO}, {said.writer.number(), STDOUT_FILENO}};
        program.group = group;
    }
    /// Starts it, and answers it once it is there.
    [[nodiscard]] std::unique_ptr<ChildProcess> start()
    {
        auto process = ChildProcess::start(program);
        said.writer.reset();
        char up[3] = {};
        EXPECT_EQ(read(said.reader.number(), up, sizeof up), 3);
        return process ? std::move(process.value()) : nullptr;
    }

    Pipe never;
    Pipe said;
    ChildProgram program;
};

/// What the program writes to its standard output.
QByteArray outputOf(ChildProgram program)
{
    Pipe output;
    program.descriptors.push_back({output.writer.number(), STDOUT_FILENO});
    const auto process = ChildProcess::start(program);
    EXPECT_TRUE(process) << (process ? "" : qPrintable(process.error()));
    output.writer.reset();
    return output.read();
}

QString fileAt(pid_t process, int descriptor)
{
    return QFile::symLinkTarget(QStringLiteral("/proc/%1/fd/%2").arg(process).arg(descriptor));
}

bool isThere(pid_t process)
{
    return kill(process, 0) == 0;
}

class ChildProcessInLoop : public testing::Test {
protected:
    template <typename Condition>
    static void turnUntil(Condition isSo)
    {
        while (!isSo())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 1000);
    }

    int m_count = 1;
    char m_name[5] = "test";
    char* m_words[2] = {m_name, nullptr};
    QCoreApplication m_application{m_count, m_words};
};

} // namespace

TEST(ChildProcess, start_isAnError_whenThereIsNoSuchProgram)
{
    const auto process = ChildProcess::start({.file = QStringLiteral("/nowhere/program")});
    ASSERT_FALSE(process);
    EXPECT_EQ(process.error(), QString::fromLocal8Bit(strerror(ENOENT)));
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "it left a process";
}

TEST(ChildProcess, start_isAnError_whenADescriptorToHandOverIsClosed)
{
    ChildProgram program = shell(QStringLiteral("exit 0"));
    program.descriptors = {{-1, 5}};
    EXPECT_FALSE(ChildProcess::start(program));
}

TEST(ChildProcess, program_getsItsArgumentsAsTheyAre)
{
    EXPECT_EQ(outputOf({.file = QStringLiteral("/usr/bin/printf"),
                        .arguments = {QStringLiteral("<%s>"), QStringLiteral("a b"), QString(),
                                      QStringLiteral("$x *")}}),
              "<a b><><$x *>");
}

TEST(ChildProcess, program_hasExactlyTheEnvironmentThatIsGiven)
{
    EXPECT_EQ(outputOf({.file = QStringLiteral("/usr/bin/env"),
                        .environment = QStringList{QStringLiteral("A=1"), QStringLiteral("B=x=y")}}),
              "A=1\nB=x=y\n");
    EXPECT_EQ(outputOf({.file = QStringLiteral("/usr/bin/env"), .environment = QStringList()}), "");
}

TEST(ChildProcess, program_hasOurEnvironment_whenNoneIsGiven)
{
    ASSERT_TRUE(qputenv("KESTRO_CHILD_TEST", "inherited"));
    EXPECT_TRUE(outputOf({.file = QStringLiteral("/usr/bin/env")}).contains("KESTRO_CHILD_TEST=inherited\n"));
    qunsetenv("KESTRO_CHILD_TEST");
}

TEST(ChildProcess, program_hasNoDescriptorButThoseHandedOver)
{
    const Descriptor leaks(dup(STDERR_FILENO)); // no "close on exec"
    Waiting waiting(ChildProgram::Group::Own);
    Pipe another;
    waiting.program.descriptors.push_back({another.reader.number(), 7});
    const auto process = waiting.start();
    ASSERT_TRUE(process);
    const QDir open(QStringLiteral("/proc/%1/fd").arg(process->number()));
    EXPECT_EQ(open.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).join(u' '),
              QStringLiteral("0 1 2 7"));
    EXPECT_EQ(fileAt(process->number(), STDERR_FILENO), QStringLiteral("/dev/null"));
}

TEST(ChildProcess, program_hasEachDescriptorAtItsNumber_whenTheyTradeNumbers)
{
    const Descriptor one(open("/dev/zero", O_RDONLY | O_CLOEXEC));
    const Descriptor other(open("/dev/full", O_RDONLY | O_CLOEXEC));
    Waiting waiting(ChildProgram::Group::Own);
    waiting.program.descriptors.push_back({one.number(), other.number()});
    waiting.program.descriptors.push_back({other.number(), one.number()});
    const auto process = waiting.start();
    ASSERT_TRUE(process);
    EXPECT_EQ(fileAt(process->number(), other.number()), QStringLiteral("/dev/zero"));
    EXPECT_EQ(fileAt(process->number(), one.number()), QStringLiteral("/dev/full"));
}

TEST(ChildProcess, program_hasADescriptorThatKeepsItsNumber)
{
    const Descriptor one(open("/dev/zero", O_RDONLY | O_CLOEXEC));
    Waiting waiting(ChildProgram::Group::Own);
    waiting.program.descriptors.push_back({one.number(), one.number()});
    const auto process = waiting.start();
    ASSERT_TRUE(process);
    EXPECT_EQ(fileAt(process->number(), one.number()), QStringLiteral("/dev/zero"));
}

TEST(ChildProcess, program_hasNoSignalBlockedOrIgnored)
{
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    const auto handler = std::signal(SIGTERM, SIG_IGN);
    const QByteArray status = outputOf({.file = QStringLiteral("/bin/grep"),
                                        .arguments = {QStringLiteral("-E"), QStringLiteral("^Sig(Blk|Ign)"),
                                                      QStringLiteral("/proc/self/status")}});
    sigset_t after;
    pthread_sigmask(SIG_SETMASK, &before, &after);
    std::signal(SIGTERM, handler);
    EXPECT_EQ(status, "SigBlk:\t0000000000000000\nSigIgn:\t0000000000000000\n");
    EXPECT_EQ(sigismember(&after, SIGTERM), 1) << "what this thread has blocked stays";
}

TEST(ChildProcess, program_isInTheGroupAndSessionThatAreWanted)
{
    Waiting inOurs(ChildProgram::Group::Ours);
    Waiting inItsOwn(ChildProgram::Group::Own);
    Waiting inItsSession(ChildProgram::Group::OwnSession);
    const auto ours = inOurs.start();
    const auto own = inItsOwn.start();
    const auto session = inItsSession.start();
    ASSERT_TRUE(ours && own && session);
    EXPECT_EQ(getpgid(ours->number()), getpgrp());
    EXPECT_EQ(getpgid(own->number()), own->number());
    EXPECT_EQ(getsid(own->number()), getsid(0));
    EXPECT_EQ(getsid(session->number()), session->number());
}

TEST(ChildProcess, program_ends_whenItsParentIsKilled)
{
    Pipe held;
    Pipe never;
    const pid_t parent = fork();
    ASSERT_GE(parent, 0);
    if (parent == 0) {
        never.writer.reset();
        ChildProgram program = shell(QStringLiteral("read never"));
        program.descriptors = {{never.reader.number(), STDIN_FILENO}, {held.writer.number(), STDOUT_FILENO}};
        program.endsWithParent = true;
        const auto process = ChildProcess::start(program);
        raise(process ? SIGKILL : SIGABRT);
    }
    held.writer.reset();
    int status = 0;
    ASSERT_EQ(waitpid(parent, &status, 0), parent);
    EXPECT_EQ(WTERMSIG(status), SIGKILL);
    EXPECT_EQ(held.read(), "");
}

TEST(ChildProcess, waitForEnd_answersTheStatusOrTheSignal)
{
    auto process = ChildProcess::start(shell(QStringLiteral("exit 7")));
    ASSERT_TRUE(process);
    EXPECT_EQ(process.value()->waitForEnd().status, 7);
    EXPECT_EQ(process.value()->waitForEnd().signal, 0);
    process = ChildProcess::start(shell(QStringLiteral("kill -SEGV $$")));
    ASSERT_TRUE(process);
    EXPECT_EQ(process.value()->waitForEnd().signal, SIGSEGV);
    EXPECT_FALSE(process.value()->waitForEnd().isSuccess());
}

TEST(ChildProcess, waitForEnd_answersNothing_whenItGoesOn)
{
    Waiting waiting(ChildProgram::Group::Own);
    const auto process = waiting.start();
    ASSERT_TRUE(process);
    EXPECT_FALSE(process->waitForEnd(std::chrono::milliseconds(0)));
    waiting.never.writer.reset();
    EXPECT_TRUE(process->waitForEnd(bound));
}

TEST(ChildProcess, stop_letsAProgramEndByItself)
{
    Waiting waiting(ChildProgram::Group::Ours, QStringLiteral("trap 'exit 9' TERM"));
    const auto process = waiting.start();
    ASSERT_TRUE(process);
    process->stop(bound);
    EXPECT_EQ(process->waitForEnd().status, 9);
}

TEST(ChildProcess, stop_killsAProgramThatDoesNotListen)
{
    Waiting waiting(ChildProgram::Group::Own, QStringLiteral("trap '' TERM"));
    const auto process = waiting.start();
    ASSERT_TRUE(process);
    process->stop(std::chrono::milliseconds(1));
    const auto end = process->waitForEnd(bound);
    ASSERT_TRUE(end);
    EXPECT_EQ(end->signal, SIGKILL);
}

TEST(ChildProcess, end_takesTheWholeGroup_whenItHasOne)
{
    Waiting waiting(ChildProgram::Group::Own, QStringLiteral("{ cat <&7 & }"));
    waiting.program.descriptors.push_back(
        {waiting.never.reader.number(), 7}); // a shell takes standard input away
    auto process = waiting.start();
    ASSERT_TRUE(process);
    process.reset();
    EXPECT_EQ(waiting.said.read(), "") << "whom it started writes there too";
}

TEST(ChildProcess, end_leavesNoProcess)
{
    Waiting waiting(ChildProgram::Group::Own);
    auto process = waiting.start();
    ASSERT_TRUE(process);
    const pid_t number = process->number();
    EXPECT_TRUE(isThere(number));
    process.reset();
    // A machine that is busy may take longer than is waited for.
    EXPECT_TRUE(!isThere(number) || waitpid(number, nullptr, 0) == number);
}

TEST_F(ChildProcessInLoop, end_isToldOnce)
{
    const auto process = ChildProcess::start(shell(QStringLiteral("exit 3")));
    ASSERT_TRUE(process);
    std::vector<int> told;
    process.value()->whenEnded([&](const ChildEnd& end) { told.push_back(end.status); });
    EXPECT_TRUE(process.value()->waitForEnd(bound));
    EXPECT_TRUE(told.empty()) << "not before the event loop turns";
    turnUntil([&] { return !told.empty(); });
    bool isLater = false;
    QMetaObject::invokeMethod(
        &m_application, [&] { isLater = true; }, Qt::QueuedConnection);
    turnUntil([&] { return isLater; });
    EXPECT_EQ(told, std::vector<int>{3});
}

TEST_F(ChildProcessInLoop, end_mayTakeTheProcessAway_whenItIsTold)
{
    auto process = ChildProcess::start(shell(QStringLiteral("exit 0")));
    ASSERT_TRUE(process);
    auto& owner = process.value();
    owner->whenEnded([&](const ChildEnd&) { owner.reset(); });
    turnUntil([&] { return owner == nullptr; });
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
}

TEST_F(ChildProcessInLoop, end_isNotTold_whenTheProcessIsGoneBefore)
{
    auto process = ChildProcess::start(shell(QStringLiteral("exit 0")));
    ASSERT_TRUE(process);
    bool isTold = false;
    process.value()->whenEnded([&](const ChildEnd&) { isTold = true; });
    EXPECT_TRUE(process.value()->waitForEnd(bound));
    process.value().reset();
    bool isLater = false;
    QMetaObject::invokeMethod(
        &m_application, [&] { isLater = true; }, Qt::QueuedConnection);
    turnUntil([&] { return isLater; });
    EXPECT_FALSE(isTold);
}

TEST_F(ChildProcessInLoop, leave_letsItGoOnAndTakesLeaveOfItLater)
{
    Waiting waiting(ChildProgram::Group::Own);
    auto process = waiting.start();
    ASSERT_TRUE(process);
    const pid_t number = process->number();
    ChildProcess::leave(std::move(process));
    QCoreApplication::processEvents();
    EXPECT_TRUE(isThere(number));
    waiting.never.writer.reset();
    EXPECT_EQ(waiting.said.read(), "");
    turnUntil([&] { return !isThere(number); });
}

} // namespace kestro
