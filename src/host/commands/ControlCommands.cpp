// The commands that ask something of the saver that runs. Tested by test_control.

#include "host/commands/Commands.h"
#include "host/commands/Program.h"
#include "host/start/DeafBuses.h"
#include "platform/session/SaverRemote.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>
#include <cstdlib>

namespace kestro {

namespace {

const QString jsonOption = QStringLiteral("json");

int nobodyListens()
{
    printError(QStringLiteral("No saver runs in this session that listens ([control] bus=yes)."));
    return ExitFailure;
}

/// Turns the event loop until what was asked of the saver is answered, and ends the process there: Qt's
/// thread for the bus would go on while it is taken apart.
[[noreturn]] void endAfterAnswer(const std::function<void(SaverRemote&)>& ask)
{
    leaveDeafBuses();
    int count = 1;
    char name[] = "kestro";
    char* words[] = {name, nullptr};
    const QCoreApplication application(count, words);
    SaverRemote saver = SaverRemote::ofSession();
    ask(saver);
    const int status = QCoreApplication::exec();
    std::fflush(nullptr);
    std::_Exit(status);
}

Command telling(const char* name, const char* summary, const char* method)
{
    return {{QString::fromLatin1(name), QString::fromLatin1(summary), {}}, [method](const Arguments&) -> int {
                endAfterAnswer([method](SaverRemote& saver) {
                    saver.tell(QString::fromLatin1(method), [](bool isThere) {
                        QCoreApplication::exit(isThere ? int(ExitSuccess) : nobodyListens());
                    });
                });
            }};
}

int tellNow(const MovieNow& now, bool asJson)
{
    if (asJson) return print(QJsonDocument(QJsonObject::fromVariantMap(now.map())).toJson());
    if (!now.isNone()) return print(QStringLiteral("%1\n%2\n").arg(now.title, now.url).toUtf8());
    printError(QStringLiteral("The saver shows no movie."));
    return ExitFailure;
}

int showNow(const Arguments& arguments)
{
    endAfterAnswer([asJson = arguments.has(jsonOption)](SaverRemote& saver) {
        saver.now([asJson](const std::optional<MovieNow>& now) {
            QCoreApplication::exit(now ? tellNow(*now, asJson) : nobodyListens());
        });
    });
}

} // namespace

Command nextCommand()
{
    return telling("next", "Have the saver that runs play the next movie", "Next");
}

Command previousCommand()
{
    return telling("previous", "Have the saver that runs play the movie before", "Previous");
}

Command stopCommand()
{
    return telling("stop", "End the saver that runs", "Stop");
}

Command nowCommand()
{
    return {{QStringLiteral("now"),
             QStringLiteral("Print the title and the URL of the movie that the saver shows"),
             {{jsonOption, {}, QStringLiteral("for programs to read")}}},
            showNow};
}

} // namespace kestro
