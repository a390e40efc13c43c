#include "platform/session/MicrophoneLook.h"

#include "platform/session/SoundLook.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

namespace kestro {

namespace {

QJsonArray listIn(const QJsonObject& told, const char* name)
{
    return told.value(QLatin1String(name)).toArray();
}

/// The numbers of the sources that record what is played.
QSet<int> monitorsIn(const QJsonArray& sources)
{
    QSet<int> monitors;
    for (const QJsonValue& source : sources)
        if (source[QLatin1String("name")].toString().endsWith(QStringLiteral(".monitor")) ||
            source[QLatin1String("properties")][QLatin1String("device.class")] == QStringLiteral("monitor"))
            monitors.insert(source[QLatin1String("index")].toInt());
    return monitors;
}

bool isOnlyAMeter(const QJsonValue& stream)
{
    return stream[QLatin1String("resample_method")] == QStringLiteral("peaks") ||
           stream[QLatin1String("properties")][QLatin1String("media.name")] == QStringLiteral("Peak detect");
}

} // namespace

std::optional<QList<Hindrance>> recordingStreams(const QByteArray& told)
{
    const QJsonObject all = QJsonDocument::fromJson(told).object();
    if (!all.contains(QLatin1String("source_outputs")) || !all.contains(QLatin1String("sources"))) return {};
    const QSet<int> monitors = monitorsIn(listIn(all, "sources"));
    QList<Hindrance> found;
    for (const QJsonValue& stream : listIn(all, "source_outputs")) {
        if (monitors.contains(stream[QLatin1String("source")].toInt()) || isOnlyAMeter(stream) ||
            stream[QLatin1String("corked")].toBool())
            continue;
        const QString who = stream[QLatin1String("properties")][QLatin1String("application.name")].toString();
        const Hindrance one{HindranceKind::Microphone, plainWords(who), {}};
        if (!found.contains(one)) found.append(one);
    }
    return found;
}

QList<Hindrance> microphonesInUse(const QString& pactl, const QString& sound)
{
    if (const auto told = soundServerTells(pactl))
        if (auto streams = recordingStreams(*told)) return *streams;
    if (isSoundCardRecording(sound)) return {{HindranceKind::Microphone, {}, {}}};
    return {};
}

} // namespace kestro
