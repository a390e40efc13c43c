#include "host/Program.h"

#include <QFile>

#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <langinfo.h>
#include <malloc.h>

namespace {

/// File names and URLs are UTF-8 here whatever the shell's locale says; set before Qt looks, it has nothing
/// to warn of.
void useUtf8()
{
    std::setlocale(LC_CTYPE, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) setenv("LC_ALL", "C.UTF-8", 1);
}

/// Each movie brings threads of its own, and each thread would get a share of memory of its own that keeps
/// what it once held: after an hour of short movies the double of what is in use.
void shareMemoryAmongThreads()
{
    mallopt(M_ARENA_MAX, 2);
}

QStringList wordsFrom(int count, char** words)
{
    QStringList list;
    for (int i = 1; i < count; ++i)
        list.append(QFile::decodeName(words[i]));
    return list;
}

} // namespace

// A reader that goes away (a log that nobody reads any more, `kestro playlist | head`) is no reason to die:
// it shows where something is written.
int main(int argc, char** argv)
{
    useUtf8();
    shareMemoryAmongThreads();
    std::signal(SIGPIPE, SIG_IGN);
    return kestro::Program(QStringLiteral(KESTRO_VERSION), kestro::allCommands()).run(wordsFrom(argc, argv));
}
