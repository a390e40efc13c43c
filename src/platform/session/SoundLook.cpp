#include "platform/session/SoundLook.h"

#include "platform/session/SessionFact.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>

namespace kestro {

namespace {

constexpr qint64 mostTold = 4 * 1024 * 1024; // bytes
constexpr int pactlPatience = 800;           // milliseconds, so that the kernel can be asked after it

/// A sound server is asked where one listens: asking would start one where there is none.
bool hasSoundServer()
{
    if (qEnvironmentVariableIsSet("PULSE_SERVER")) return true;
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !folder.isEmpty() && QFile::exists(folder + QStringLiteral("/pulse/native"));
}

bool isHeard(const QJsonValue& stream)
{
    return !stream[QLatin1String("corked")].toBool() && !stream[QLatin1String("mute")].toBool() &&
           stream[QLatin1String("properties")][QLatin1String("media.role")] != QStringLiteral("event");
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

std::optional<QByteArray> soundServerTells(const QString& pactl)
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
    return process.read(mostTold);
}

std::optional<QStringList> playingPrograms(const QByteArray& told)
{
    const QJsonObject all = QJsonDocument::fromJson(told).object();
    if (!all.contains(QLatin1String("sink_inputs"))) return {};
    QStringList found;
    for (const QJsonValue& stream : all[QLatin1String("sink_inputs")].toArray())
        if (isHeard(stream))
            found.append(plainWords(
                stream[QLatin1String("properties")][QLatin1String("application.name")].toString()));
    found.removeDuplicates();
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

QStringList soundPlayed(const QString& pactl, const QString& sound)
{
    if (const auto told = soundServerTells(pactl))
        if (const auto programs = playingPrograms(*told)) return *programs;
    return isSoundCardPlaying(sound) ? QStringList{QString()} : QStringList();
}

} // namespace kestro
