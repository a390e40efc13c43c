#include "settings/MovieOptions.h"

#include "platform/base/ConfigurationFile.h"

#include <optional>

namespace kestro {

namespace {

constexpr double secondsPerMinute = 60;

const QString section = QStringLiteral("movies");
const QString dissolveKey = QStringLiteral("dissolve");
const QString longestKey = QStringLiteral("longest");
const QString shuffleKey = QStringLiteral("shuffle");
const QString startKey = QStringLiteral("start");

/// A number from 0 to `most`; nothing for any other text.
std::optional<double> numberIn(const QString& text, double most)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber && number >= 0 && number <= most ? std::optional(number) : std::nullopt;
}

/// Minutes, or with an "s" behind them seconds.
std::optional<double> turnIn(const QString& text)
{
    if (text.endsWith(u's')) return numberIn(text.chopped(1).trimmed(), MovieOptions::longestTurn);
    const auto minutes = numberIn(text, MovieOptions::longestTurn / secondsPerMinute);
    return minutes ? std::optional(*minutes * secondsPerMinute) : std::nullopt;
}

/// Whether it is the second of two words; nothing for any other text.
std::optional<bool> isSecond(const QString& text, const char* first, const char* second)
{
    if (text == QLatin1String(second)) return true;
    return text == QLatin1String(first) ? std::optional(false) : std::nullopt;
}

std::optional<bool> isAnywhere(const QString& text)
{
    return isSecond(text, "beginning", "random");
}

std::optional<bool> isBag(const QString& text)
{
    return isSecond(text, "random", "bag");
}

/// Sets `option` to what `read` makes of the value of `key`, where there is one and it makes something of it.
template <typename Value>
void take(const ConfigurationFile& file, const QString& key, Value& option,
          std::optional<Value> (*read)(const QString&), const char* isNone)
{
    const auto text = file.value(section, key);
    if (!text) return;
    if (const auto value = read(*text))
        option = *value;
    else
        file.warnAbout(section, key, QStringLiteral("\"%1\" is no %2").arg(*text, QLatin1String(isNone)));
}

} // namespace

MovieOptions movieOptionsFrom(const ConfigurationFile& file)
{
    MovieOptions options;
    file.warnAboutUnknown(section, {dissolveKey, longestKey, shuffleKey, startKey});
    take<double>(
        file, dissolveKey, options.dissolveSeconds,
        [](const QString& text) { return numberIn(text, MovieOptions::longestDissolve); },
        "number of seconds from 0 to 10");
    take<double>(file, longestKey, options.longestSeconds, turnIn,
                 "number of minutes, or of seconds as in 90s, up to a day");
    take<bool>(file, shuffleKey, options.remembersShuffle, isBag, "\"random\" and not \"bag\"");
    take<bool>(file, startKey, options.startsAnywhere, isAnywhere, "\"beginning\" and not \"random\"");
    return options;
}

} // namespace kestro
