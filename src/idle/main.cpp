// The program that waits until the person is away, and runs the saver then. Tested by test_idle.

#include "host/start/ProcessStart.h"
#include "idle/IdleCommand.h"

#include <QCoreApplication>

int main(int count, char** words)
{
    kestro::prepareProcess();
    const QCoreApplication application(count, words);
    return kestro::runIdle(kestro::wordsFrom(count, words));
}
