#include "host/commands/SettingsReport.h"

#include "platform/base/JsonNumber.h"
#include "settings/Settings.h"

namespace kestro {

namespace {

QJsonValue inJson(bool value)
{
    return value;
}

QJsonValue inJson(int value)
{
    return value;
}

QJsonValue inJson(float value)
{
    return shortestReal(value);
}

QJsonValue inJson(const std::optional<QString>& text)
{
    return text ? QJsonValue(*text) : QJsonValue(QJsonValue::Null);
}

} // namespace

QJsonObject settingsReport(const Settings& settings)
{
    QJsonObject report{
        {QStringLiteral("isDynamicMode"), settings.isDynamicMode()},
        {QStringLiteral("isFlyMode"), settings.isFlyMode()},
        {QStringLiteral("isBounceMode"), settings.isBounceMode()},
        {QStringLiteral("canContinue"), settings.canContinue()},
        {QStringLiteral("repostionWhenMovieEnds"), settings.repostionWhenMovieEnds()},
    };
    const auto add = [&](const auto& option) {
        report.insert(option.accessor, inJson(settings.value(option)));
    };
    std::apply([&](const auto&... each) { (add(each), ...); }, option::reported);
    return report;
}

} // namespace kestro
