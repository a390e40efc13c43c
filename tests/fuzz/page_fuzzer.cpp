#include "Target.h"
#include "platform/base/URLKind.h"
#include "trailers/PageBase.h"
#include "trailers/PageParser.h"
#include "trailers/TextSearch.h"

#include <algorithm>

using namespace kestro;

namespace {

const PageBase& baseFor(unsigned char choice)
{
    static const PageBase bases[] = {*PageBase::from("http://h/trailers/studio/"),
                                     *PageBase::from("https://n:8080"),
                                     *PageBase::from("http://u@[::1]:80/a.b//c/?q#f")};
    return bases[choice % std::size(bases)];
}

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

void checkSearch(std::string_view page, std::string_view needle)
{
    const auto found = std::search(page.begin(), page.end(), needle.begin(), needle.end(),
                                   [](char c, char wanted) { return lower(c) == wanted; });
    const auto expected = found == page.end() ? TextSearch::npos : std::size_t(found - page.begin());
    expect(TextSearch(needle).find(page) == expected, "the quick search finds what the plain one finds");
}

} // namespace

/// The first byte chooses the base; the rest is the page, and each feed that it names.
void kestro::tryInput(std::string_view input)
{
    if (input.empty()) return;
    const std::string_view page = input.substr(1);
    const PageBase& base = baseFor(static_cast<unsigned char>(input.front()));
    for (const char* needle : {"href=\"", ".json", "qt_writeobject_xhtml(", "\"location\":\""})
        checkSearch(page, needle);
    const QUrl own(
        QString::fromLatin1(base.absoluteString().data(), qsizetype(base.absoluteString().size())));
    int feeds = 0;
    const PageParser parser(
        [&](const QUrl& feed) {
            expect(feed.port() == own.port() && feed.host() == own.host(), "a feed is on the page's host");
            return ++feeds > 10 ? QByteArray() : QByteArray(page.data(), qsizetype(page.size()));
        },
        QStringLiteral("2008/03/14"), [] { return true; });
    for (const std::string& link : parser.linkListFromStringBase(page, base))
        expect(URLText::parse(link).has_value(), "a link is a URL");
    for (const TrailerRecord& movie : parser.movieListFromStringBase(page, base)) {
        const auto url = URLText::parse(movie.url.toStdString());
        expect(url.has_value(), "a movie has a URL");
        const QUrl read(movie.url);
        expect(isWebURL(read) && upperCasePathExtension(read) == u"MOV", "a movie is one on a web site");
        expect(movie.size && movie.size->contains(QStringLiteral(" x ")), "a movie has a size");
    }
}
