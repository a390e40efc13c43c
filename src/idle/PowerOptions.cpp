#include "idle/PowerOptions.h"

#include "platform/base/ConfigurationFile.h"

namespace kestro {

namespace {

const QString section = QStringLiteral("power");
const QString onBatteryKey = QStringLiteral("on-battery");
const QString whenLowKey = QStringLiteral("when-low");
const QString lowKey = QStringLiteral("low");
const QString inPowerSaverKey = QStringLiteral("in-power-saver");

void readChoice(const ConfigurationFile& file, const QString& key, PowerChoice& choice)
{
    const auto text = file.value(section, key);
    if (!text) return;
    if (*text == u"play")
        choice = PowerChoice::Play;
    else if (*text == u"still")
        choice = PowerChoice::Still;
    else if (*text == u"off")
        choice = PowerChoice::Off;
    else
        file.warnAbout(section, key, QStringLiteral("\"%1\" is neither play, still nor off").arg(*text));
}

void readPercent(const ConfigurationFile& file, double& percent)
{
    const auto text = file.value(section, lowKey);
    if (!text) return;
    bool isNumber = false;
    const int number = text->toInt(&isNumber);
    if (isNumber && number >= 0 && number <= 100)
        percent = number;
    else
        file.warnAbout(section, lowKey, QStringLiteral("\"%1\" is no number from 0 to 100").arg(*text));
}

} // namespace

PowerRule powerRuleFrom(const ConfigurationFile& file)
{
    PowerRule rule;
    file.warnAboutUnknown(section, {onBatteryKey, whenLowKey, lowKey, inPowerSaverKey});
    readChoice(file, onBatteryKey, rule.onBattery);
    readChoice(file, whenLowKey, rule.whenLow);
    readChoice(file, inPowerSaverKey, rule.inPowerSaver);
    readPercent(file, rule.lowPercent);
    return rule;
}

} // namespace kestro
