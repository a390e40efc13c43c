// Tested by test_scan.

#include "host/commands/Commands.h"
#include "host/commands/Program.h"
#include "settings/MovieURL.h"
#include "trailers/TrailerCont.h"

namespace kestro {

namespace {

int showLatest(const Arguments& arguments)
{
    bool isCount = false;
    bool isWidth = false;
    const int count = arguments.operands()[0].toInt(&isCount);
    const int width = arguments.operands()[1].toInt(&isWidth);
    if (!isCount || !isWidth) {
        printError(QStringLiteral("N and W are whole numbers (see kestro latest --help)"));
        return ExitWrongUsage;
    }
    QByteArray lines;
    for (const QUrl& url : TrailerCont::sharedController().lastTrailers(count, width, {}))
        lines += absoluteString(url).toUtf8() + '\n';
    return print(lines);
}

} // namespace

Command latestCommand()
{
    Syntax syntax{
        QStringLiteral("latest"), QStringLiteral("Print the newest trailers on record, newest last"), {}};
    syntax.operands = {{QStringLiteral("N"), QStringLiteral("how many at most; all of them for 0")},
                       {QStringLiteral("W"), QStringLiteral("their frame width")}};
    return {syntax, showLatest};
}

} // namespace kestro
