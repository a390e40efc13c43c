#include "trailers/MovieCall.h"

#include "platform/base/Bounds.h"
#include "platform/base/URLKind.h"
#include "trailers/CallArguments.h"
#include "trailers/LinkResolver.h"
#include "trailers/PageBase.h"
#include "trailers/URLText.h"

#include <QUrl>

#include <algorithm>
#include <array>

namespace kestro {

namespace {

constexpr std::string_view movieExtension = "mov";

QString textOf(std::string_view bytes)
{
    return QString::fromLatin1(bytes.data(), qsizetype(bytes.size()));
}

QString frameSize(std::string_view width, std::string_view height)
{
    return textOf(frameSide(width)) + QStringLiteral(" x ") + textOf(frameSide(height));
}

/// Which characters mean the same wherever they stand in a path.
constexpr auto plainCharacters = [] {
    std::array<bool, 256> isPlain{};
    for (const char c :
         std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/._-~"))
        isPlain[static_cast<unsigned char>(c)] = true;
    return isPlain;
}();

bool isPlain(char c)
{
    return plainCharacters[static_cast<unsigned char>(c)];
}

/// Whether `url` is below the page's own site, without query, fragment or escapes: nobody reads such a one
/// differently, and nearly every movie is named so.
bool isPlainOnSite(std::string_view url, const PageBase& page)
{
    const URLText& site = page.parts();
    if (site.scheme != "http" && site.scheme != "https") return false;
    const auto length = static_cast<std::size_t>(site.authority.data() + site.authority.size() -
                                                 page.absoluteString().data());
    if (!url.starts_with(page.absoluteString().substr(0, length))) return false;
    const auto path = url.substr(length);
    return path.starts_with('/') && std::ranges::all_of(path, isPlain);
}

/// Whether `url` leads to a movie on a web site: by its scheme, and by the extension of its path alone.
/// Programs and pages of a site take queries, and a fragment never gets there.
bool isWebMovie(std::string_view url, const PageBase& page)
{
    if (isPlainOnSite(url, page)) return hasExtension(url, movieExtension);
    const QUrl parsed = QUrl::fromEncoded(QByteArray(url.data(), qsizetype(url.size())));
    return isWebURL(parsed) && upperCasePathExtension(parsed) == u"MOV";
}

/// A record of the URL that `movie` stands for on the page; nothing for what is no movie or no URL.
std::optional<TrailerRecord> recordOf(std::string_view movie, const PageBase& base)
{
    if (!hasExtension(movie, movieExtension)) return {};
    const auto url = base.absoluteURL(movie);
    if (!url || qint64(url->size()) > Bounds::addressBytes || !isWebMovie(*url, base)) return {};
    TrailerRecord record;
    record.url = textOf(*url);
    return record;
}

bool isWholeMovieURL(std::string_view text)
{
    const auto url = URLText::parse(text);
    return url && !url->scheme.empty() && !url->host().empty() && hasExtension(text, movieExtension);
}

/// `href` resolved against the poster movie's URL, or as it stands when that leads elsewhere. A poster that
/// is itself relative is one of the page's folder.
std::optional<std::string> hrefMovie(std::string_view href, std::string_view poster, const PageBase& page)
{
    if (const auto url = page.absoluteURL(poster)) {
        const auto base = PageBase::from(*url);
        auto merged = base ? mergedStringFromToURL(href, *base) : std::nullopt;
        if (merged) return merged;
    }
    if (isWholeMovieURL(href)) return std::string(href);
    return {};
}

/// What a call says beside its poster movie: the movie to play, where there is one.
struct Href {
    std::optional<std::string_view> value;
    bool lacksValue = false; ///< the name is the last argument
};

Href hrefOf(std::string_view text)
{
    CallArguments arguments(text);
    while (const auto argument = arguments.next()) {
        if (internalString(*argument) != "href") continue;
        const auto value = arguments.next();
        return {value ? std::optional(internalString(*value)) : std::nullopt, !value};
    }
    return {};
}

} // namespace

std::optional<TrailerRecord> movieOfObjectCall(std::string_view text, const PageBase& base)
{
    CallArguments arguments(text);
    const auto poster = arguments.next();
    const auto width = arguments.next();
    const auto height = arguments.next();
    if (!height) return {};
    const Href href = hrefOf(text);
    if (href.lacksValue) return {};
    std::optional<std::string> movie;
    if (href.value) movie = hrefMovie(*href.value, internalString(*poster), base);
    auto record = recordOf(movie ? *movie : internalString(*poster), base);
    if (record)
        record->size =
            frameSize(internalStringRemoveSpc(*width, true), internalStringRemoveSpc(*height, true));
    return record;
}

std::optional<TrailerRecord> movieOfPackageCall(std::string_view text, const PageBase& base)
{
    CallArguments arguments(text);
    [[maybe_unused]] const auto element = arguments.next();
    const auto movie = arguments.next();
    auto record = movie ? recordOf(internalString(*movie), base) : std::nullopt;
    if (!record) return {};
    const auto attributes = attrToDict(text);
    if (!attributes) return {};
    const auto value = [&](std::string_view name) {
        const auto found = attributes->find(name);
        return found == attributes->end() ? std::string_view() : std::string_view(found->second);
    };
    record->size = frameSize(value("width"), value("height"));
    record->ac = true;
    return record;
}

} // namespace kestro
