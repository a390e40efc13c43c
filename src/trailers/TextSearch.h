#pragma once

#include <cstddef>
#include <string_view>

namespace kestro {

/// Searches bytes for an ASCII text in whatever case: memmem, in copies in lower case of a piece at a time. A
/// constant of who searches; any thread.
class TextSearch final {
public:
    static constexpr std::size_t npos = std::string_view::npos;

    /// `needle` in lower case, from one character to a hundred; it must outlive this (a literal).
    explicit constexpr TextSearch(std::string_view needle)
        : m_needle(needle)
    {
    }

    /// Where the needle begins in `text` at or after `from`; npos where it does not.
    [[nodiscard]] std::size_t find(std::string_view text, std::size_t from = 0) const;
    [[nodiscard]] constexpr std::size_t size() const { return m_needle.size(); }

private:
    static constexpr std::size_t mostBytes = 512; ///< that are looked at in one piece

    std::string_view m_needle;
};

} // namespace kestro
