#include "host/commands/Commands.h"
#include "host/commands/Program.h"
#include "host/commands/SettingsReport.h"
#include "platform/base/Paths.h"
#include "settings/Settings.h"
#include "settings/SettingsStore.h"

#include <QJsonDocument>

namespace kestro {

namespace {

int showSettings(const Arguments&)
{
    SettingsStore store(homeFolder());
    const Settings settings(store, {});
    return print(QJsonDocument(settingsReport(settings)).toJson());
}

} // namespace

Command showSettingsCommand()
{
    return {{QStringLiteral("show-settings"), QStringLiteral("Print every setting as JSON"), {}},
            showSettings};
}

} // namespace kestro
