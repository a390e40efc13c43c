#include "trailers/URLText.h"

#include "platform/base/FileName.h"

#include <algorithm>
#include <array>

namespace kestro {

namespace {

enum Kind : unsigned char { Illegal = 0, Legal = 1, InScheme = 2, Hexadecimal = 4, Letter = 8 };

constexpr std::string_view hexadecimal = "0123456789abcdefABCDEF";
constexpr std::string_view marks = "-_.!~*'();/?:@&=+$,[]%#";
constexpr std::string_view schemeMarks = "+-.";

/// What each byte may be in a URL (RFC 2396, 2 and 3.1, with the brackets of RFC 2732).
constexpr std::array<unsigned char, 256> kinds = [] {
    std::array<unsigned char, 256> table = {};
    const auto mark = [&](unsigned char c, int kind) {
        table[c] = static_cast<unsigned char>(table[c] | kind);
    };
    for (unsigned char c = 'a'; c <= 'z'; ++c) {
        mark(c, Legal | InScheme | Letter);
        mark(static_cast<unsigned char>(c - 'a' + 'A'), Legal | InScheme | Letter);
    }
    for (unsigned char c = '0'; c <= '9'; ++c)
        mark(c, Legal | InScheme);
    for (const char c : hexadecimal)
        mark(static_cast<unsigned char>(c), Hexadecimal);
    for (const char c : marks)
        mark(static_cast<unsigned char>(c), Legal);
    for (const char c : schemeMarks)
        mark(static_cast<unsigned char>(c), InScheme);
    return table;
}();

bool is(char c, Kind kind)
{
    return (kinds[static_cast<unsigned char>(c)] & kind) != 0;
}

bool isEscapeAt(std::string_view text, std::size_t at)
{
    return at + 2 < text.size() && is(text[at + 1], Hexadecimal) && is(text[at + 2], Hexadecimal);
}

bool isLegal(std::string_view text)
{
    int fragments = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (!is(c, Legal)) return false;
        if (c == '%' && !isEscapeAt(text, at)) return false;
        if (c == '#' && ++fragments > 1) return false;
    }
    return true;
}

std::size_t schemeLength(std::string_view text)
{
    if (text.empty() || !is(text.front(), Letter)) return 0;
    const auto end = std::ranges::find_if(text, [](char c) { return !is(c, InScheme); });
    return end != text.end() && *end == ':' ? static_cast<std::size_t>(end - text.begin()) : 0;
}

/// Takes what stands from the first `mark` on off the end of `text`.
std::string_view takeFrom(std::string_view& text, char mark)
{
    const auto at = std::min(text.find(mark), text.size());
    const auto taken = text.substr(at);
    text.remove_suffix(taken.size());
    return taken;
}

/// Where the ":" before the port stands; the size without one. That of a bracketed address follows the
/// bracket.
std::size_t portMark(std::string_view hostAndPort)
{
    const auto mark = hostAndPort.rfind(':');
    const auto bracket = hostAndPort.rfind(']');
    const bool isInAddress = bracket != std::string_view::npos && mark < bracket;
    return mark == std::string_view::npos || isInAddress ? hostAndPort.size() : mark;
}

std::string_view withoutSlashes(std::string_view path, std::size_t least)
{
    while (path.size() > least && path.back() == '/')
        path.remove_suffix(1);
    return path;
}

} // namespace

std::optional<URLText> URLText::parse(std::string_view text)
{
    if (!isLegal(text)) return {};
    URLText url;
    url.whole = text;
    const auto length = schemeLength(text);
    std::string_view rest = text;
    if (length > 0) {
        url.scheme = text.substr(0, length);
        rest.remove_prefix(length + 1);
        if (!rest.starts_with('/')) return url;
    }
    url.fragment = takeFrom(rest, '#');
    url.query = takeFrom(rest, '?');
    url.hasAuthority = rest.starts_with("//");
    if (url.hasAuthority) {
        rest.remove_prefix(2);
        url.authority = rest.substr(0, rest.find('/'));
        rest.remove_prefix(url.authority.size());
    }
    url.rawPath = rest;
    return url;
}

std::string_view URLText::path() const
{
    return withoutSlashes(rawPath, 1);
}

std::string_view URLText::hostAndPort() const
{
    std::string_view text = authority.substr(authority.rfind('@') + 1);
    if (text.ends_with(':')) text.remove_suffix(1);
    return text;
}

std::string_view URLText::host() const
{
    const auto text = hostAndPort();
    return text.substr(0, portMark(text));
}

std::string_view URLText::port(std::string_view knownScheme) const
{
    const auto text = hostAndPort();
    const auto mark = portMark(text);
    if (mark < text.size()) return text.substr(mark + 1);
    if (knownScheme == "http") return "80";
    return knownScheme == "https" ? "443" : "";
}

bool hasExtension(std::string_view path, std::string_view lowerCaseExtension)
{
    return std::ranges::equal(extensionIn(path), lowerCaseExtension, [](char c, char lower) {
        return (c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c) == lower;
    });
}

} // namespace kestro
