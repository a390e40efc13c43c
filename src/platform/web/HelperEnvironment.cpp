#include "platform/web/HelperEnvironment.h"

#include <QFile>

#include <algorithm>
#include <array>

namespace kestro {

namespace {

bool isKept(const QString& name, bool isRoot)
{
    constexpr std::array kept{
        "LANG",         "LANGUAGE",      "TZ",          "FONTCONFIG_FILE", "ASAN_OPTIONS",
        "LSAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS"};
    if (isRoot && name == u"QTWEBENGINE_DISABLE_SANDBOX") return true;
    return name.startsWith(u"LC_") ||
           std::ranges::any_of(kept, [&](const char* each) { return name == QLatin1String(each); });
}

/// The sound server is found in the session's folder, which the helper does not know.
QString soundServer(const QProcessEnvironment& own)
{
    const QString server = own.value(QStringLiteral("PULSE_SERVER"));
    const QString socket = own.value(QStringLiteral("XDG_RUNTIME_DIR")) + QStringLiteral("/pulse/native");
    return server.isEmpty() && QFile::exists(socket) ? QStringLiteral("unix:") + socket : server;
}

} // namespace

QStringList helperEnvironment(const QProcessEnvironment& own, const QString& home, bool isRoot)
{
    QProcessEnvironment environment;
    const QStringList names = own.keys();
    for (const QString& name : names)
        if (isKept(name, isRoot)) environment.insert(name, own.value(name));
    const auto set = [&environment](const char* name, const QString& value) {
        environment.insert(QString::fromLatin1(name), value);
    };
    for (const char* name : {"HOME", "TMPDIR", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME",
                             "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
        set(name, home);
    for (const char* name : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"})
        set(name, QStringLiteral("disabled:"));
    set("PATH", QStringLiteral("/usr/bin:/bin"));
    set("QT_QPA_PLATFORM", QStringLiteral("offscreen"));
    if (const QString server = soundServer(own); !server.isEmpty()) set("PULSE_SERVER", server);
    return environment.toStringList();
}

} // namespace kestro
