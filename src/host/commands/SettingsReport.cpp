#include "host/commands/SettingsReport.h"

#include "platform/base/JsonNumber.h"
#include "settings/Settings.h"

namespace kestro {

namespace {

QJsonValue textOrNull(const std::optional<QString>& text)
{
    return text ? QJsonValue(*text) : QJsonValue(QJsonValue::Null);
}

} // namespace

QJsonObject settingsReport(const Settings& settings)
{
    return {
        {QStringLiteral("plistVersion"), settings.plistVersion()},
        {QStringLiteral("isSoundOn"), settings.isSoundOn()},
        {QStringLiteral("_isFlyMode"), settings._isFlyMode()},
        {QStringLiteral("_isBounceMode"), settings._isBounceMode()},
        {QStringLiteral("isFullScreen"), settings.isFullScreen()},
        {QStringLiteral("isDynamicMode"), settings.isDynamicMode()},
        {QStringLiteral("partialMode"), settings.partialMode()},
        {QStringLiteral("isFlyMode"), settings.isFlyMode()},
        {QStringLiteral("isBounceMode"), settings.isBounceMode()},
        {QStringLiteral("isRandomMode"), settings.isRandomMode()},
        {QStringLiteral("isContinue"), settings.isContinue()},
        {QStringLiteral("canContinue"), settings.canContinue()},
        {QStringLiteral("playMode"), settings.playMode()},
        {QStringLiteral("fadeoutEffect"), settings.fadeoutEffect()},
        {QStringLiteral("backAndForth"), settings.backAndForth()},
        {QStringLiteral("scaleFactor"), shortestReal(settings.scaleFactor())},
        {QStringLiteral("timeInterval"), shortestReal(settings.timeInterval())},
        {QStringLiteral("reposition"), settings.reposition()},
        {QStringLiteral("repostionWhenMovieEnds"), settings.repostionWhenMovieEnds()},
        {QStringLiteral("backSaver"), textOrNull(settings.backSaver())},
    };
}

} // namespace kestro
