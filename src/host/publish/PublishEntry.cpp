#include "host/publish/PublishEntry.h"

#include "host/publish/PublishProgress.h"
#include "host/publish/PublishSummary.h"
#include "host/start/Arguments.h"
#include "host/start/Console.h"
#include "publish/BaseAddress.h"

#include <QCoreApplication>
#include <QDir>

namespace kestro {

namespace {

void complainAbout(const PublishReport& report)
{
    for (const LeftOut& movie : report.leftOut)
        printError(QStringLiteral("Left out %1: %2").arg(movie.path, movie.reason));
    for (const LeftOut& movie : report.withoutPoster)
        printError(QStringLiteral("No poster of %1: %2").arg(movie.path, movie.reason));
}

int runPublisher(const PublishOrder& order, const std::optional<BaseAddress>& base)
{
    StillMovieReader reader;
    PublishProgress progress;
    const auto report = Publisher(order, reader, progress).publish();
    progress.erase();
    if (!report) {
        printError(report.error());
        return ExitFailure;
    }
    complainAbout(report.value());
    return print(publishSummary(report.value(), order.site, base).toUtf8());
}

QString absoluteFolder(const QString& path)
{
    return QDir::cleanPath(QDir(path).absolutePath());
}

} // namespace

/// What the command looks for in this library.
extern "C" Q_DECL_EXPORT int kestroPublish(const Arguments& arguments)
{
    // Its plug-ins write the posters.
    char name[] = "kestro";
    char* words[] = {name, nullptr};
    int count = 1;
    const QCoreApplication application(count, words);

    std::optional<BaseAddress> base;
    if (const auto text = arguments.text(baseUrlOption)) {
        auto parsed = BaseAddress::parse(*text);
        if (!parsed) {
            printError(QStringLiteral("--base-url: %1 (see kestro publish --help)").arg(parsed.error()));
            return ExitWrongUsage;
        }
        base = std::move(parsed.value());
    }
    if (arguments.operands().contains(QString())) {
        printError(QStringLiteral("The name of a folder is empty (see kestro publish --help)"));
        return ExitWrongUsage;
    }
    PublishOrder order{
        absoluteFolder(arguments.operands()[0]), absoluteFolder(arguments.operands()[1]), {}, {}};
    if (base) order.basePath = base->path;
    if (arguments.has(copyOption)) order.transfer = MovieTransfer::Copy;
    return runPublisher(order, base);
}

} // namespace kestro
