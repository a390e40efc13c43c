#include "settings/MovieOptions.h"

#include "platform/base/ConfigurationFile.h"

namespace kestro {

namespace {

const QString section = QStringLiteral("movies");
const QString dissolveKey = QStringLiteral("dissolve");

} // namespace

MovieOptions movieOptionsFrom(const ConfigurationFile& file)
{
    MovieOptions options;
    file.warnAboutUnknown(section, {dissolveKey});
    const auto text = file.value(section, dissolveKey);
    if (!text) return options;
    bool isNumber = false;
    const double seconds = text->toDouble(&isNumber);
    if (isNumber && seconds >= 0 && seconds <= MovieOptions::longestDissolve)
        options.dissolveSeconds = seconds;
    else
        file.warnAbout(section, dissolveKey,
                       QStringLiteral("\"%1\" is no number of seconds from 0 to 10").arg(*text));
    return options;
}

} // namespace kestro
