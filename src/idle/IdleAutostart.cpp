#include "idle/IdleAutostart.h"

#include "platform/base/ConfigurationFile.h"
#include "platform/base/FileReplacement.h"
#include "platform/base/Paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace kestro {

namespace {

/// A word of an Exec line: quoted, and what means something between quotes, or to the line, written plainly.
QByteArray execWord(const QString& word)
{
    QByteArray quoted = "\"";
    for (const char byte : QFile::encodeName(word)) {
        if (byte == '"' || byte == '`' || byte == '$' || byte == '\\') quoted += "\\\\";
        if (byte == '%') quoted += '%';
        quoted += byte == '\\' ? QByteArray("\\\\") : QByteArray(1, byte);
    }
    return quoted + '"';
}

QByteArray entry(const QString& program)
{
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Version=1.4\n"
           "Name=Kestro\n"
           "Comment=Starts the screen saver when you are away\n"
           "Exec=" +
           execWord(program) +
           " idle\n"
           "Icon=kestro\n"
           "NoDisplay=true\n"
           "X-GNOME-Autostart-enabled=true\n";
}

} // namespace

IdleAutostart::IdleAutostart(QString path, QString program)
    : m_path(std::move(path))
    , m_program(std::move(program))
{
}

IdleAutostart IdleAutostart::ofUser()
{
    return {configurationFolder() + QStringLiteral("/autostart/kestro-idle.desktop"), kestroProgram()};
}

Result<void> IdleAutostart::set(bool isOn) const
{
    QFile file(m_path);
    if (!isOn) {
        if (!file.exists() || file.remove()) return {};
        return Error{QStringLiteral("Cannot remove %1: %2").arg(m_path, file.errorString())};
    }
    const QString folder = QFileInfo(m_path).path();
    if (!QDir().mkpath(folder)) return Error{QStringLiteral("Cannot make %1").arg(folder)};
    if (const auto written = replaceFile(m_path, entry(m_program)); !written)
        return Error{QStringLiteral("Cannot write %1: %2").arg(m_path, written.error())};
    return {};
}

} // namespace kestro
