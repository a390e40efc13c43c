#include "trailers/MovieCall.h"

#include "trailers/CallArguments.h"
#include "trailers/LinkResolver.h"
#include "trailers/PageBase.h"
#include "trailers/URLText.h"

#include <algorithm>

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

/// A record of the URL that `movie` stands for on the page; nothing for what is no movie or no URL.
std::optional<TrailerRecord> recordOf(std::string_view movie, const PageBase& base)
{
    if (!hasExtension(movie, movieExtension)) return {};
    const auto url = base.absoluteURL(movie);
    if (!url) return {};
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

} // namespace

std::optional<TrailerRecord> movieOfObjectCall(std::string_view text, const PageBase& base)
{
    const auto arguments = callArguments(text);
    if (arguments.size() < 3) return {};
    const auto name = std::ranges::find(arguments, std::string_view("href"), internalString);
    if (name == arguments.end() - 1) return {};
    const std::string_view poster = internalString(arguments[0]);
    std::optional<std::string> movie;
    if (name != arguments.end()) movie = hrefMovie(internalString(name[1]), poster, base);
    auto record = recordOf(movie ? *movie : poster, base);
    if (record)
        record->size = frameSize(internalStringRemoveSpc(arguments[1], true),
                                 internalStringRemoveSpc(arguments[2], true));
    return record;
}

std::optional<TrailerRecord> movieOfPackageCall(std::string_view text, const PageBase& base)
{
    const auto arguments = callArguments(text);
    if (arguments.size() < 2) return {};
    auto record = recordOf(internalString(arguments[1]), base);
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
