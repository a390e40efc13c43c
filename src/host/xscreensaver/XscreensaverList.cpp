#include "host/xscreensaver/XscreensaverList.h"

#include "host/xscreensaver/XscreensaverFile.h"
#include "platform/base/FileReplacement.h"
#include "platform/base/Paths.h"
#include "platform/base/RegularFile.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <cctype>
#include <cstring>

namespace kestro {

namespace {

constexpr qint64 mostBytes = qint64(16) * 1024 * 1024;

Result<QByteArray> read(const QString& path)
{
    if (!QFile::exists(path)) return QByteArray();
    auto text = readRegularFile(path, mostBytes);
    if (text) return text;
    return Error{QStringLiteral("Cannot read %1: %2").arg(path, text.error())};
}

Result<void> write(const QString& path, const QByteArray& text)
{
    const auto written = replaceWritableFile(path, text);
    if (written) return {};
    return Error{QStringLiteral("Cannot write %1: %2").arg(path, written.error())};
}

} // namespace

XscreensaverList::XscreensaverList(QString path, QString program, QString everybodys)
    : m_path(std::move(path))
    , m_program(std::move(program))
    , m_everybodys(std::move(everybodys))
{
}

XscreensaverList XscreensaverList::ofUser()
{
    return {homeFolder() + QStringLiteral("/.xscreensaver"), kestroProgram(),
            platformPath(QStringLiteral("/etc/X11/app-defaults/XScreenSaver"))};
}

bool XscreensaverList::hasEverybody() const
{
    const auto text = readRegularFile(m_everybodys, mostBytes);
    return text && XscreensaverFile(text.value()).isListed();
}

Result<bool> XscreensaverList::isListed() const
{
    const auto text = read(m_path);
    if (!text) return text.failure();
    const XscreensaverFile file(text.value());
    return file.isMentioned() ? file.isListed() : hasEverybody();
}

Result<XscreensaverList::Change> XscreensaverList::add() const
{
    const auto before = read(m_path);
    if (!before) return before.failure();
    const auto own = entry();
    if (!own) return own.failure();
    XscreensaverFile file(before.value());
    if (file.isMentioned() || !hasEverybody()) file.add(own.value());
    return store(before.value(), file.text());
}

Result<XscreensaverList::Change> XscreensaverList::remove() const
{
    const auto before = read(m_path);
    if (!before) return before.failure();
    XscreensaverFile file(before.value());
    if (!hasEverybody()) {
        file.remove();
        return store(before.value(), file.text());
    }
    const auto own = entry();
    if (!own) return own.failure();
    file.switchOff(own.value());
    return store(before.value(), file.text());
}

/// What stands in the list: the command line that xscreensaver runs.
Result<QByteArray> XscreensaverList::entry() const
{
    const auto own = command();
    if (!own) return own.failure();
    return own.value() + " --root";
}

/// How a shell is to call the program: by its name where the search path leads to it, else by its path.
Result<QByteArray> XscreensaverList::command() const
{
    const QString self = QFileInfo(m_program).canonicalFilePath();
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

Result<XscreensaverList::Change> XscreensaverList::store(const QByteArray& before,
                                                         const QByteArray& after) const
{
    if (after == before) return Change{};
    const bool isNew = !QFile::exists(m_path);
    const QString backup = isNew ? QString() : m_path + QStringLiteral(".kestro-backup");
    const bool isKept = isNew || QFile::exists(backup); // as it was before the first change of ours
    if (const auto kept = isKept ? Result<void>() : write(backup, before); !kept) return kept.failure();
    if (const auto stored = write(m_path, after); !stored) return stored.failure();
    return Change{true, backup};
}

} // namespace kestro
