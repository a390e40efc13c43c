#include "settings/CaptionOptions.h"

#include "platform/base/ConfigurationFile.h"

namespace kestro {

namespace {

const QString section = QStringLiteral("caption");
const QString titleKey = QStringLiteral("title");
const QString clockKey = QStringLiteral("clock");

} // namespace

CaptionOptions CaptionOptions::from(const ConfigurationFile& file)
{
    file.warnAboutUnknown(section, {clockKey, titleKey});
    return {.showsTitle = file.isYes(section, titleKey), .showsClock = file.isYes(section, clockKey)};
}

} // namespace kestro
