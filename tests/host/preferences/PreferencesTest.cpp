#include "host/preferences/PreferencesTest.h"

#include <QFile>

namespace kestro {

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
