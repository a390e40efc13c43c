#include "host/commands/Program.h"
#include "host/start/ProcessStart.h"

int main(int argc, char** argv)
{
    kestro::prepareProcess();
    return kestro::Program(QStringLiteral(KESTRO_VERSION), kestro::allCommands())
        .run(kestro::wordsFrom(argc, argv));
}
