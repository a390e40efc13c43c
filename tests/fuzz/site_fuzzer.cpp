#include "Target.h"
#include "platform/base/Log.h"
#include "trailers/TrailerSite.h"

using namespace kestro;

/// The input is the configuration file that names a site of trailers.
void kestro::tryInput(std::string_view input)
{
    static const LogCapture quiet([](const QString&) {});
    const QByteArray text(input.data(), qsizetype(input.size()));
    const TrailerSite site = readTrailerSite(text, QStringLiteral("kestro.conf"));
    for (const QString& value : {site.start, site.host})
        expect(!value.contains(u'\n'), "a value is of one line");
    if (!site.host.isEmpty())
        expect(QString::fromStdString(site.hostFor("http://h/")) == site.host,
               "the host that is named holds");
}
