#include "host/InstallXscreensaverCommand.h"

#include "host/XscreensaverFile.h"
#include "platform/base/Paths.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>
#include <cctype>
#include <cstring>

namespace kestro {

namespace {

const QString removeOption = QStringLiteral("remove");

/// How a shell is to call this program: by its name where the search path leads to it, else by its path.
Result<QByteArray> ownCommand()
{
    const QString self = QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath();
    const QString found = QStandardPaths::findExecutable(QStringLiteral("kestro"));
    if (QFileInfo(found).canonicalFilePath() == self && !found.isEmpty()) return QByteArrayLiteral("kestro");
    const QByteArray path = QFile::encodeName(self);
    const auto isPlain = [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) || std::strchr("/._-+", c);
    };
    if (std::ranges::all_of(path, isPlain)) return path;
    // Neither a quote nor what the file's own format makes something else of can be quoted.
    for (const char unfit : {'\'', '\\', '\n', '"'})
        if (path.contains(unfit)) return Error{QStringLiteral("xscreensaver cannot run ") + self};
    return QByteArray('\'' + path + '\'');
}

Result<QByteArray> read(const QString& path)
{
    QFile file(path);
    if (!file.exists()) return QByteArray();
    if (file.open(QIODevice::ReadOnly)) return file.readAll();
    return Error{QStringLiteral("Cannot read %1: %2").arg(path, file.errorString())};
}

/// Writes the whole file or nothing; a link stays a link and the mode what it is. Answers the error.
QString write(const QString& path, const QByteArray& text)
{
    QSaveFile file(path);
    // flush() because commit() does not notice when the last, still buffered bytes find no room.
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush() && file.commit();
    if (isWritten) return {};
    return QStringLiteral("Cannot write %1: %2").arg(path, file.errorString());
}

int fail(const QString& message)
{
    complain(message);
    return ExitFailure;
}

int store(const QString& path, const QByteArray& before, const QByteArray& after)
{
    const QString backup = path + QStringLiteral(".kestro-backup");
    const bool isNew = !QFile::exists(path);
    QString error = isNew ? QString() : write(backup, before);
    if (error.isEmpty()) error = write(path, after);
    if (!error.isEmpty()) return fail(error);
    const QString kept = isNew ? QString() : QStringLiteral(" (the file as it was: %1)").arg(backup);
    return print(QStringLiteral("Changed %1%2\n").arg(path, kept).toLocal8Bit());
}

int install(const Arguments& arguments)
{
    const QString path = homeFolder() + QStringLiteral("/.xscreensaver");
    const auto before = read(path);
    if (!before) return fail(before.error());
    XscreensaverFile file(before.value());
    if (arguments.has(removeOption)) {
        file.remove();
    } else {
        const auto command = ownCommand();
        if (!command) return fail(command.error());
        file.add(command.value() + " --root");
    }
    const QByteArray after = file.text();
    if (after == before.value())
        return print(QStringLiteral("Nothing to change in %1\n").arg(path).toLocal8Bit());
    return store(path, before.value(), after);
}

} // namespace

Command installXscreensaverCommand()
{
    return {{QStringLiteral("install-xscreensaver"),
             QStringLiteral("Put Kestro into your list of xscreensaver's savers"),
             {{removeOption, {}, QStringLiteral("take it out of the list again")}}},
            install};
}

} // namespace kestro
