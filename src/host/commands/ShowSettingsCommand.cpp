#include "host/commands/Commands.h"
#include "host/commands/ConfigurationReport.h"
#include "host/commands/Program.h"
#include "host/commands/SettingsReport.h"
#include "platform/base/ConfigurationFile.h"
#include "platform/base/Paths.h"
#include "settings/Settings.h"
#include "settings/SettingsStore.h"

#include <QJsonDocument>

namespace kestro {

namespace {

const QString allOption = QStringLiteral("all");

/// The object with one more member at its end: those of kestro.conf.
QByteArray withConfiguration(const QByteArray& report)
{
    const QByteArray members = report.left(report.lastIndexOf("\n}"));
    return members + ",\n    \"kestro.conf\": " +
           configurationReport(ConfigurationFile::ofUser(), configurationFile(), "    ") + "\n}\n";
}

int showSettings(const Arguments& arguments)
{
    SettingsStore store(homeFolder());
    const Settings settings(store, {});
    const QByteArray report = QJsonDocument(settingsReport(settings)).toJson();
    return print(arguments.has(allOption) ? withConfiguration(report) : report);
}

} // namespace

Command showSettingsCommand()
{
    const Option all{
        allOption, {}, QStringLiteral("after them what counts of kestro.conf, and where it is from")};
    return {{QStringLiteral("show-settings"), QStringLiteral("Print every setting as JSON"), {all}},
            showSettings};
}

} // namespace kestro
