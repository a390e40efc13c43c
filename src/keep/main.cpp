// Fetches movies ahead for a saver that plays, and keeps them for the next time.
//
// usage: kestro-keep FOLDER BYTES
//
// Which movies are wanted it hears on standard input (see WantedMovies.h); it ends where that does. Tested by
// test_kept_movies.

#include "host/start/ProcessStart.h"
#include "keep/KeeperService.h"

#include <QCoreApplication>
#include <QDBusConnection>

#include <csignal>
#include <cstdlib>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr int wholeProcess = 1;    // as ioprio_set(2) has it
constexpr int idleClass = 3 << 13; // likewise
constexpr int lowestPriority = 19;

/// Whatever somebody else wants to do comes first, on the processor and on the disk.
void standBack()
{
    setpriority(PRIO_PROCESS, 0, lowestPriority);
    syscall(SYS_ioprio_set, wholeProcess, 0, idleClass);
}

} // namespace

int main(int count, char** words)
{
    standBack();
    kestro::prepareProcess();
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow is a disk that is full
    const QCoreApplication application(count, words);
    const QStringList given = kestro::wordsFrom(count, words);
    const qint64 bytes = given.value(1).toLongLong();
    if (given.size() != 2 || bytes <= 0) return 2;
    // Its thread may never come back.
    kestro::KeeperService service(given.first(), bytes, STDIN_FILENO, QDBusConnection::systemBus(),
                                  [] { std::_Exit(EXIT_SUCCESS); });
    std::_Exit(QCoreApplication::exec());
}
