#include "platform/session/MicrophoneLook.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QSet>

namespace kestro {

namespace {

constexpr qint64 mostTold = 4 * 1024 * 1024; // bytes
constexpr int pactlPatience = 800;           // milliseconds, so that the kernel can be asked after it

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

/// A sound server is asked where one listens: asking would start one where there is none.
bool hasSoundServer()
{
    if (qEnvironmentVariableIsSet("PULSE_SERVER")) return true;
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !folder.isEmpty() && QFile::exists(folder + QStringLiteral("/pulse/native"));
}

std::optional<QList<Hindrance>> askSoundServer(const QString& pactl)
{
    if (!hasSoundServer()) return {};
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8")); // numbers with points
    process.setProcessEnvironment(environment);
    process.setChildProcessModifier([] {});
    process.start(pactl, {QStringLiteral("-f"), QStringLiteral("json"), QStringLiteral("list")});
    const bool hasEnded = process.waitForFinished(pactlPatience);
    if (!hasEnded) {
        process.kill();
        process.waitForFinished(100);
    }
    if (!hasEnded || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) return {};
    return recordingStreams(process.read(mostTold));
}

/// Whether one of a card's streams of the letter `direction` runs: "c" records, "p" plays.
bool runs(const QString& sound, const QString& direction)
{
    const QDir cards(sound);
    for (const QString& card : cards.entryList({QStringLiteral("card*")}, QDir::Dirs)) {
        const QDir streams(cards.filePath(card));
        const QStringList wanted = {QStringLiteral("pcm*") + direction};
        for (const QString& stream : streams.entryList(wanted, QDir::Dirs))
            for (const QString& sub : QDir(streams.filePath(stream)).entryList({QStringLiteral("sub*")})) {
                QFile status(streams.filePath(stream) + u'/' + sub + QStringLiteral("/status"));
                if (status.open(QIODevice::ReadOnly) && status.read(4096).contains("state: RUNNING"))
                    return true;
            }
    }
    return false;
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

bool isSoundCardRecording(const QString& sound)
{
    return runs(sound, QStringLiteral("c"));
}

bool isSoundCardPlaying(const QString& sound)
{
    return runs(sound, QStringLiteral("p"));
}

QList<Hindrance> microphonesInUse(const QString& pactl, const QString& sound)
{
    if (auto streams = askSoundServer(pactl)) return *streams;
    if (isSoundCardRecording(sound)) return {{HindranceKind::Microphone, {}, {}}};
    return {};
}

} // namespace kestro
