#pragma once

#include <optional>
#include <string_view>

namespace kestro {

/// The parts of a URL as it is written, views into the text that it was parsed from; nothing is decoded or
/// made lower case. A plain value, to be used while that text lives.
struct URLText {
    std::string_view whole;
    std::string_view scheme;    ///< empty for a relative reference
    std::string_view authority; ///< user, host and port, as written
    std::string_view rawPath;   ///< as written; empty for what has none, such as "mailto:ada"
    std::string_view query;     ///< with its "?"
    std::string_view fragment;  ///< with its "#"
    bool hasAuthority = false;

    /// Nothing for a text with characters that no URL may hold (RFC 2396: spaces, quotes, braces, control
    /// characters, bytes from 128), a "%" without two hexadecimal digits, or a second "#".
    [[nodiscard]] static std::optional<URLText> parse(std::string_view text);

    /// The path without slashes at its end, except for the root "/".
    [[nodiscard]] std::string_view path() const;
    /// Host and port, without the user.
    [[nodiscard]] std::string_view hostAndPort() const;
    /// The host without its port.
    [[nodiscard]] std::string_view host() const;
    /// The port as written, else the usual one of `knownScheme`, which is http or https, else empty.
    [[nodiscard]] std::string_view port(std::string_view knownScheme) const;
};

/// Whether the extension of the path's last part is `lowerCaseExtension`, in whatever case.
[[nodiscard]] bool hasExtension(std::string_view path, std::string_view lowerCaseExtension);

} // namespace kestro
