#include "idle/ScreensOptions.h"

#include "platform/base/ConfigurationFile.h"

#include <algorithm>

namespace kestro {

namespace {

const QString section = QStringLiteral("screens");
const QString modeKey = QStringLiteral("mode");
const QString monitorsKey = QStringLiteral("monitors");

void readMode(const ConfigurationFile& file, ScreensMode& mode)
{
    const auto text = file.value(section, modeKey);
    if (!text) return;
    const auto* const named = std::ranges::find(screensModes, *text, textOf);
    if (named != screensModes.end())
        mode = *named;
    else
        file.warnAbout(section, modeKey,
                       QStringLiteral("\"%1\" is neither each, mirror nor span").arg(*text));
}

void readMonitors(const ConfigurationFile& file, MonitorChoice& monitors)
{
    const auto text = file.value(section, monitorsKey);
    if (!text) return;
    if (const auto read = MonitorChoice::from(*text))
        monitors = read.value();
    else
        file.warnAbout(section, monitorsKey, read.error());
}

} // namespace

ScreenChoice screenChoiceFrom(const ConfigurationFile& file)
{
    ScreenChoice choice;
    file.warnAboutUnknown(section, {modeKey, monitorsKey});
    readMode(file, choice.mode);
    readMonitors(file, choice.monitors);
    return choice;
}

void putScreenChoice(const ScreenChoice& choice, ConfigurationFile& file)
{
    file.set(section, modeKey, textOf(choice.mode));
    file.set(section, monitorsKey, choice.monitors.text());
}

} // namespace kestro
