#include "host/commands/Commands.h"
#include "host/commands/Program.h"
#include "host/commands/ScanRun.h"
#include "host/start/StopSignals.h"
#include "platform/base/ConfigurationFile.h"
#include "trailers/TrailerCont.h"

#include <QCoreApplication>

namespace kestro {

namespace {

const QString startOption = QStringLiteral("start");
const QString hostOption = QStringLiteral("host");
const QString forgetOption = QStringLiteral("forget");
const QString verboseOption = QStringLiteral("verbose");

/// What is configured, but for what the command line says. A host that is configured belongs to the start
/// that is configured.
TrailerSite siteFor(const Arguments& arguments, TrailerSite site)
{
    if (const auto start = arguments.text(startOption)) site = {*start, {}};
    if (const auto host = arguments.text(hostOption)) site.host = *host;
    return site;
}

int scan(const Arguments& arguments)
{
    char name[] = "kestro";
    char* words[] = {name, nullptr};
    int count = 1;
    const QCoreApplication application(count, words);

    TrailerCont& controller = TrailerCont::sharedController();
    controller.setSite(siteFor(arguments, controller.site()));
    if (controller.site().start.isEmpty()) {
        printError(QStringLiteral("No trailer site: give --start URL, or name one in ") +
                   configurationFile());
        return ExitFailure;
    }
    if (arguments.has(forgetOption)) controller.clear();
    ScanRun run(controller, arguments.has(verboseOption));
    const StopSignals signalWatch([&](int) { run.endEarly(); });
    return run.exec();
}

} // namespace

Command scanCommand()
{
    return {{QStringLiteral("scan"),
             QStringLiteral("Look for trailers on the trailer site"),
             {{startOption, QStringLiteral("URL"), QStringLiteral("the page to begin with")},
              {hostOption, QStringLiteral("NAME"), QStringLiteral("the host to stay on (that of the page)")},
              {forgetOption, {}, QStringLiteral("forget every trailer and page of earlier scans")},
              {verboseOption, {}, QStringLiteral("write a line for each page")}}},
            scan};
}

} // namespace kestro
