#include "host/preferences/PreferencesTest.h"

#include <QEventLoop>
#include <QFile>
#include <QTimer>

namespace kestro {

bool comesTrue(const std::function<bool()>& isSo)
{
    constexpr int bound = 20000; // milliseconds
    bool isTooLate = false;
    QTimer::singleShot(bound, [&isTooLate] { isTooLate = true; });
    QEventLoop loop;
    QTimer turns; // wakes the loop for what comes without an event
    turns.start(10);
    while (!isSo() && !isTooLate)
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    return isSo();
}

QString PreferencesTest::program(const QByteArray& text) const
{
    const QString path = folder.filePath(QStringLiteral("program"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return {};
    file.write("#!/bin/sh\n" + text + "\n");
    file.close();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

} // namespace kestro
