#include "host/commands/ConfigurationReport.h"

#include "host/session/SessionControl.h"
#include "idle/IdleOptions.h"
#include "idle/KeyOptions.h"
#include "idle/PowerOptions.h"
#include "idle/ScreensOptions.h"
#include "platform/base/ConfigurationFile.h"
#include "settings/CacheOptions.h"
#include "settings/CaptionOptions.h"
#include "settings/EntryMarks.h"
#include "settings/MovieOptions.h"
#include "settings/Sunlight.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <iterator>

namespace kestro {

namespace {

struct Row {
    const char* section;
    const char* name;
    const char* usual;
};

constexpr std::array rows{
    Row{"idle", "enabled", "no"},
    Row{"idle", "after", "5"},
    Row{"idle", "stop-after", "0"},
    Row{"power", "on-battery", "play"},
    Row{"power", "when-low", "off"},
    Row{"power", "low", "20"},
    Row{"power", "in-power-saver", "play"},
    Row{"screens", "mode", "each"},
    Row{"screens", "monitors", "all"},
    Row{"movies", "dissolve", "0"},
    Row{"movies", "longest", "0"},
    Row{"movies", "shuffle", "random"},
    Row{"movies", "start", "beginning"},
    Row{"caption", "title", "no"},
    Row{"caption", "clock", "no"},
    Row{"keys", "enabled", "no"},
    Row{"cache", "size", "0"},
    Row{"place", "latitude", ""},
    Row{"place", "longitude", ""},
    Row{"control", "bus", "no"},
    Row{"trailers", "start", ""},
    Row{"trailers", "host", ""},
};

const QString marksSection = QStringLiteral("marks");

/// Has everybody who reads the file doubt what they do not understand.
void doubt(const ConfigurationFile& file, const QString& path)
{
    static_cast<void>(IdleOptions::from(file));
    static_cast<void>(powerRuleFrom(file));
    static_cast<void>(screenChoiceFrom(file));
    static_cast<void>(movieOptionsFrom(file));
    static_cast<void>(cacheOptionsFrom(file));
    static_cast<void>(CaptionOptions::from(file));
    static_cast<void>(KeyOptions::from(file));
    static_cast<void>(placeFrom(file));
    static_cast<void>(SessionControl::isWanted(file));
    static_cast<void>(EntryMarks(file, path));
}

/// The keys of the file's own making, and no others.
QList<ConfigurationKey> keysOfMarks(const ConfigurationFile& file)
{
    QList<ConfigurationKey> keys;
    for (const QString& name : file.keys(marksSection))
        if (!file.isDoubted(marksSection, name)) keys.append({marksSection, name, {}});
    return keys;
}

QByteArray inJson(const QString& text)
{
    const QByteArray object = QJsonDocument(QJsonObject{{QString(), text}}).toJson(QJsonDocument::Compact);
    return object.sliced(4, object.size() - 5); // without {"": and }
}

QByteArray member(const ConfigurationKey& key, const ConfigurationFile& file)
{
    const auto said = file.value(key.section, key.name);
    const bool counts = said && !file.isDoubted(key.section, key.name);
    const QString from = counts ? file.placeOf(key.section, key.name) : QStringLiteral("default");
    return inJson(key.name) + ": {\"value\": " + inJson(counts ? *said : key.usual) +
           ", \"from\": " + inJson(from) + '}';
}

} // namespace

QList<ConfigurationKey> configurationKeys()
{
    QList<ConfigurationKey> keys;
    std::transform(rows.begin(), rows.end(), std::back_inserter(keys), [](const Row& row) {
        return ConfigurationKey{QString::fromLatin1(row.section), QString::fromLatin1(row.name),
                                QString::fromLatin1(row.usual)};
    });
    return keys;
}

QByteArray configurationReport(const ConfigurationFile& file, const QString& path, const QByteArray& indent)
{
    doubt(file, path);
    const QByteArray step = "    ";
    QByteArray text = "{";
    QString section;
    for (const ConfigurationKey& key : configurationKeys() + keysOfMarks(file)) {
        if (key.section == section) {
            text += ",\n";
        } else {
            if (!section.isEmpty()) text += '\n' + indent + step + "},";
            section = key.section;
            text += '\n' + indent + step + inJson(section) + ": {\n";
        }
        text += indent + step + step + member(key, file);
    }
    return text + '\n' + indent + step + "}\n" + indent + '}';
}

} // namespace kestro
