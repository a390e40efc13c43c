#include "host/commands/Commands.h"
#include "host/commands/Program.h"
#include "host/publish/PublishEntry.h"
#include "host/start/PackageLibrary.h"

namespace kestro {

namespace {

int publish(const Arguments& arguments)
{
    const auto run = reinterpret_cast<PublishEntry>(functionOf(publishLibrary, publishEntry));
    return run ? run(arguments) : ExitFailure;
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
    syntax.options = {{baseUrlOption, QStringLiteral("URL"),
                       QStringLiteral("where SITE is served, when not at a server's root")},
                      {copyOption, {}, QStringLiteral("copy the movies instead of linking them")}};
    return {syntax, publish};
}

} // namespace kestro
