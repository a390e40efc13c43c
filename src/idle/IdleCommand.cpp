#include "idle/IdleCommand.h"

#include "host/start/Console.h"
#include "host/start/DeafBuses.h"
#include "idle/IdleOptions.h"
#include "idle/IdleRemote.h"
#include "idle/IdleRun.h"
#include "platform/base/ConfigurationFile.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QJsonDocument>

namespace kestro {

namespace {

const QString afterOption = QStringLiteral("after");
const QString stopAfterOption = QStringLiteral("stop-after");
const QString statusOption = QStringLiteral("status");
const QString jsonOption = QStringLiteral("json");
const QString nowOption = QStringLiteral("now");

int wrongUsage(const QString& message)
{
    printError(QStringLiteral("%1 (see kestro idle --help)").arg(message));
    return ExitWrongUsage;
}

int nothingRuns()
{
    printError(QStringLiteral("kestro idle does not run in this session."));
    return ExitFailure;
}

/// Turns the event loop until what was asked of the service is answered.
int afterAnswer(const std::function<void(IdleRemote&)>& ask)
{
    IdleRemote service(QDBusConnection::sessionBus());
    ask(service);
    return QCoreApplication::exec();
}

int printStatus(bool asJson)
{
    return afterAnswer([asJson](IdleRemote& service) {
        service.status([asJson](const std::optional<IdleStatus>& status) {
            if (!status) return QCoreApplication::exit(nothingRuns());
            const QByteArray text =
                asJson ? QJsonDocument(status->json()).toJson() : status->text().toUtf8() + '\n';
            QCoreApplication::exit(print(text));
        });
    });
}

int showNow()
{
    return afterAnswer([](IdleRemote& service) {
        service.show(
            [](bool isHeard) { QCoreApplication::exit(isHeard ? int(ExitSuccess) : nothingRuns()); });
    });
}

int serve(const Arguments& arguments)
{
    std::optional<Result<std::chrono::seconds>> span;
    if (const auto text = arguments.text(afterOption)) span = spanFrom(*text);
    if (span && !*span) return wrongUsage(span->error());
    QStringList saverWords;
    if (const auto text = arguments.text(stopAfterOption)) {
        if (const auto end = endFrom(*text); !end) return wrongUsage(end.error());
        saverWords = {QStringLiteral("--stop-after"), *text};
    }
    return serveSession(span ? std::optional(span->value()) : std::nullopt, saverWords);
}

int run(const Arguments& arguments)
{
    const bool asksStatus = arguments.has(statusOption);
    if (arguments.has(jsonOption) && !asksStatus)
        return wrongUsage(QStringLiteral("--json goes with --status"));
    if (int(asksStatus) + int(arguments.has(nowOption)) + int(arguments.has(afterOption)) > 1)
        return wrongUsage(QStringLiteral("--after, --status and --now go each alone"));
    if (arguments.has(stopAfterOption) && (asksStatus || arguments.has(nowOption)))
        return wrongUsage(QStringLiteral("--stop-after goes neither with --status nor with --now"));
    if (asksStatus) return printStatus(arguments.has(jsonOption));
    return arguments.has(nowOption) ? showNow() : serve(arguments);
}

} // namespace

Syntax idleSyntax()
{
    return {QStringLiteral("idle"),
            QStringLiteral("Wait until you are away, and run the saver then"),
            {{afterOption, QStringLiteral("TIME"),
              QStringLiteral(
                  "Without input: 5 for minutes, or 90s, 5m, 1h (otherwise as in the settings, else 5)")},
             {stopAfterOption, QStringLiteral("TIME"),
              QStringLiteral(
                  "Shown for so long it is black, 0 for never (otherwise as in the settings, else 0)")},
             {statusOption,
              {},
              QStringLiteral("Say what the one that runs is about, and why it does not start the saver")},
             {jsonOption, {}, QStringLiteral("With --status: as JSON")},
             {nowOption, {}, QStringLiteral("Have the one that runs show the saver now")}}};
}

int runIdle(const QStringList& words)
{
    const auto arguments = Arguments::parse(idleSyntax(), words);
    if (!arguments) return wrongUsage(arguments.error());
    if (arguments.value().has(QStringLiteral("help"))) return print(helpText(idleSyntax()).toUtf8());
    leaveDeafBuses();
    return run(arguments.value());
}

} // namespace kestro
