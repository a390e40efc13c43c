#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kestro {

class PageBase;

// Links of a page as the crawler follows them. URLs are their absolute strings, ASCII. Any thread.

/// The absolute string of `link` on a page of `base`; nothing when it leaves the base's scheme or host, has
/// no path or is no URL. Where a host goes into it, its port goes too. A path that names no file ends in "/".
[[nodiscard]] std::optional<std::string> mergedStringFromToURL(std::string_view link, const PageBase& base);

/// The URL of that string; nothing likewise.
[[nodiscard]] std::optional<std::string> mergeURLStringToURL(std::string_view link, const PageBase& base);

/// The site that a crawl stays on. A value.
struct CrawledSite {
    std::string host; ///< without a port it stands for every port of that host; empty for no site

    /// Whether `url`, an absolute string, is on the host, letter by letter.
    [[nodiscard]] bool isOnHost(std::string_view url) const;
    /// Whether the crawler may fetch `url`, an absolute string: it lies below "/trailers" on the host, is no
    /// style sheet and was not passed before.
    [[nodiscard]] bool isValidURL(std::string_view url,
                                  const std::function<bool(std::string_view url)>& isPassed) const;
};

} // namespace kestro
