#include "idle/KeyOptions.h"

#include "platform/base/ConfigurationFile.h"

namespace kestro {

namespace {

const QString section = QStringLiteral("keys");
const QString enabledKey = QStringLiteral("enabled");

} // namespace

KeyOptions KeyOptions::from(const ConfigurationFile& file)
{
    file.warnAboutUnknown(section, {enabledKey});
    return {.isEnabled = file.isYes(section, enabledKey)};
}

} // namespace kestro
