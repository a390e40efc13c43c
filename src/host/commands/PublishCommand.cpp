#include "host/commands/Commands.h"
#include "host/commands/Program.h"
#include "host/commands/PublishProgress.h"
#include "host/commands/PublishSummary.h"
#include "publish/BaseAddress.h"

#include <QCoreApplication>
#include <QDir>

namespace kestro {

namespace {

const QString baseOption = QStringLiteral("base-url");
const QString copyOption = QStringLiteral("copy");

void complainAbout(const PublishReport& report)
{
    for (const LeftOut& movie : report.leftOut)
        complain(QStringLiteral("Left out %1: %2").arg(movie.path, movie.reason));
    for (const LeftOut& movie : report.withoutPoster)
        complain(QStringLiteral("No poster of %1: %2").arg(movie.path, movie.reason));
}

int runPublisher(const PublishOrder& order, const std::optional<BaseAddress>& base)
{
    StillMovieReader reader;
    PublishProgress progress;
    const auto report = Publisher(order, reader, progress).publish();
    progress.erase();
    if (!report) {
        complain(report.error());
        return ExitFailure;
    }
    complainAbout(report.value());
    return print(publishSummary(report.value(), order.site, base).toUtf8());
}

QString absoluteFolder(const QString& path)
{
    return QDir::cleanPath(QDir(path).absolutePath());
}

int publish(const Arguments& arguments)
{
    // Its plug-ins write the posters.
    char name[] = "kestro";
    char* words[] = {name, nullptr};
    int count = 1;
    const QCoreApplication application(count, words);

    std::optional<BaseAddress> base;
    if (const auto text = arguments.text(baseOption)) {
        auto parsed = BaseAddress::parse(*text);
        if (!parsed) {
            complain(QStringLiteral("--base-url: %1 (see kestro publish --help)").arg(parsed.error()));
            return ExitWrongUsage;
        }
        base = std::move(parsed.value());
    }
    if (arguments.operands().contains(QString())) {
        complain(QStringLiteral("The name of a folder is empty (see kestro publish --help)"));
        return ExitWrongUsage;
    }
    PublishOrder order{
        absoluteFolder(arguments.operands()[0]), absoluteFolder(arguments.operands()[1]), {}, {}};
    if (base) order.basePath = base->path;
    if (arguments.has(copyOption)) order.transfer = MovieTransfer::Copy;
    return runPublisher(order, base);
}

} // namespace

Command publishCommand()
{
    Syntax syntax;
    syntax.name = QStringLiteral("publish");
    syntax.summary = QStringLiteral("Make a trailer site of a folder of movies, or bring one up to date");
    syntax.operands = {
        {QStringLiteral("MOVIES"),
         QStringLiteral("the folder of movies; sizes of one title end in the size: waves_480.mov")},
        {QStringLiteral("SITE"),
         QStringLiteral("the folder that is served; the site is its folder \"trailers\"")}};
    syntax.options = {{baseOption, QStringLiteral("URL"),
                       QStringLiteral("where SITE is served, when not at a server's root")},
                      {copyOption, {}, QStringLiteral("copy the movies instead of linking them")}};
    return {syntax, publish};
}

} // namespace kestro
