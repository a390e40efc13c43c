#pragma once

#include "trailers/URLText.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kestro {

/// The URL that the links of a page are resolved against, as a rule the page's folder, ending in "/".
/// Immutable, a value; owned by who reads the page. Any thread.
class PageBase final {
public:
    /// Nothing for what is not a URL with a scheme and a host.
    [[nodiscard]] static std::optional<PageBase> from(std::string_view absoluteString);

    [[nodiscard]] std::string_view absoluteString() const { return *m_text; }
    /// Views into this base.
    [[nodiscard]] const URLText& parts() const { return m_parts; }
    /// Without slashes at its end, except for the root "/", which also stands for an empty path.
    [[nodiscard]] std::string_view path() const;

    /// The absolute string of the URL that `reference` stands for here (RFC 3986, 5.2), an absolute one as it
    /// is written; nothing for what is no URL.
    [[nodiscard]] std::optional<std::string> absoluteURL(std::string_view reference) const;

private:
    explicit PageBase(std::shared_ptr<const std::string> text);

    std::shared_ptr<const std::string> m_text; ///< shared by the copies of a base, which view it
    URLText m_parts;
};

} // namespace kestro
