#include "host/start/ProcessStart.h"

#include "host/start/Confinement.h"
#include "host/start/StopThread.h"

#include <QFile>

#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <langinfo.h>
#include <malloc.h>

namespace kestro {

namespace {

/// File names and URLs are UTF-8 here whatever the shell's locale says; set before Qt looks, it has nothing
/// to warn of. The rest of the locale, dates and numbers, stays the person's own where it can.
void useUtf8()
{
    std::setlocale(LC_CTYPE, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0) return;
    const char* const all = std::getenv("LC_ALL"); // where set, it counts instead of the others
    setenv(all && *all ? "LC_ALL" : "LC_CTYPE", "C.UTF-8", 1);
    std::setlocale(LC_CTYPE, "");
}

/// Each movie brings threads of its own, and each thread would get a share of memory of its own that keeps
/// what it once held: after an hour of short movies the double of what is in use. And each picture that is
/// freed would have glibc take larger ones from the heap, which keeps them too, in pieces: a fixed threshold,
/// the one that glibc begins with, gives them back at once.
void keepNoFreedMemory()
{
    mallopt(M_ARENA_MAX, 2);
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
}

} // namespace

void prepareProcess()
{
    confineProcess(); // before there is another thread, which would keep its rights
    takeStopSignals();
    useUtf8();
    keepNoFreedMemory();
    // A reader that goes away (a log that nobody reads any more, `kestro playlist | head`) is no reason to
    // die: it shows where something is written.
    std::signal(SIGPIPE, SIG_IGN);
}

QStringList wordsFrom(int count, char** words)
{
    QStringList list;
    for (int i = 1; i < count; ++i)
        list.append(QFile::decodeName(words[i]));
    return list;
}

} // namespace kestro
