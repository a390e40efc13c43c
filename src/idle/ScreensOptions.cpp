#include "idle/ScreensOptions.h"

#include "platform/base/ConfigurationFile.h"

namespace kestro {

namespace {

const QString section = QStringLiteral("screens");
const QString modeKey = QStringLiteral("mode");
const QString monitorsKey = QStringLiteral("monitors");
const QString each = QStringLiteral("each");
const QString mirror = QStringLiteral("mirror");
const QString span = QStringLiteral("span");

void readMode(const ConfigurationFile& file, ScreensMode& mode)
{
    const auto text = file.value(section, modeKey);
    if (!text || *text == each) return;
    if (*text == mirror)
        mode = ScreensMode::Mirror;
    else if (*text == span)
        mode = ScreensMode::Span;
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

const QString& wordOf(ScreensMode mode)
{
    switch (mode) {
    case ScreensMode::Each:
        return each;
    case ScreensMode::Mirror:
        return mirror;
    case ScreensMode::Span:
        return span;
    }
    return each;
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
    file.set(section, modeKey, wordOf(choice.mode));
    file.set(section, monitorsKey, choice.monitors.text());
}

} // namespace kestro
