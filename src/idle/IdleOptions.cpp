#include "idle/IdleOptions.h"

#include "platform/base/ConfigurationFile.h"

namespace kestro {

namespace {

const QString section = QStringLiteral("idle");
const QString enabledKey = QStringLiteral("enabled");
const QString afterKey = QStringLiteral("after");
const QString stopAfterKey = QStringLiteral("stop-after");
const QString yes = QStringLiteral("yes");
const QString no = QStringLiteral("no");

int secondsOf(QChar unit)
{
    switch (unit.unicode()) {
    case u's':
        return 1;
    case u'm':
        return 60;
    case u'h':
        return 3600;
    default:
        return 0;
    }
}

Error notASpan(const QString& text)
{
    return {
        QStringLiteral("\"%1\" is no time from 1s to 24h; write 5 for minutes, or 90s, 5m, 1h").arg(text)};
}

void readSpan(const ConfigurationFile& file, const QString& key,
              Result<std::chrono::seconds> (*read)(const QString&), std::chrono::seconds& span)
{
    const auto text = file.value(section, key);
    if (!text) return;
    if (const auto found = read(*text))
        span = found.value();
    else
        file.warnAbout(section, key, found.error());
}

} // namespace

IdleOptions IdleOptions::from(const ConfigurationFile& file)
{
    IdleOptions options;
    file.warnAboutUnknown(section, {enabledKey, afterKey, stopAfterKey});
    options.isEnabled = file.isYes(section, enabledKey);
    readSpan(file, afterKey, spanFrom, options.after);
    readSpan(file, stopAfterKey, endFrom, options.stopAfter);
    return options;
}

void IdleOptions::putInto(ConfigurationFile& file) const
{
    file.set(section, enabledKey, isEnabled ? yes : no);
    file.set(section, afterKey, textOf(after));
    const bool isSaid = file.value(section, stopAfterKey).has_value();
    if (isSaid || stopAfter.count() != 0) file.set(section, stopAfterKey, textOf(stopAfter));
}

Result<std::chrono::seconds> spanFrom(const QString& text)
{
    const int unit = text.isEmpty() ? 0 : secondsOf(text.back());
    bool isNumber = false;
    const qlonglong count = (unit == 0 ? text : text.chopped(1)).toLongLong(&isNumber);
    constexpr auto most = std::chrono::seconds(IdleOptions::longestSpan).count();
    if (!isNumber || count < 1 || count > most) return notASpan(text);
    const std::chrono::seconds span(count * (unit == 0 ? 60 : unit));
    if (span > IdleOptions::longestSpan) return notASpan(text);
    return span;
}

Result<std::chrono::seconds> endFrom(const QString& text)
{
    if (text == u"0") return std::chrono::seconds(0);
    return spanFrom(text);
}

QString textOf(std::chrono::seconds span)
{
    const auto seconds = span.count();
    if (seconds % 60 != 0) return QStringLiteral("%1s").arg(seconds);
    return QString::number(seconds / 60);
}

} // namespace kestro
