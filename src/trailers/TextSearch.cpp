#include "trailers/TextSearch.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace kestro {

namespace {

// Without a branch, so that compilers do many at a step.
char lowerCase(char c)
{
    return static_cast<char>(c + (static_cast<unsigned char>(c - 'A') < 26 ? 'a' - 'A' : 0));
}

} // namespace

std::size_t TextSearch::find(std::string_view text, std::size_t from) const
{
    std::array<char, mostBytes> lower{};
    for (std::size_t at = from; at + m_needle.size() <= text.size();
         at += lower.size() - m_needle.size() + 1) {
        const auto piece = text.substr(at, lower.size());
        std::ranges::copy(piece, lower.begin());
        for (char& c : lower) // all of them: for a number of times that is known, many at a step
            c = lowerCase(c);
        const void* const found = memmem(lower.data(), piece.size(), m_needle.data(), m_needle.size());
        if (found) return at + static_cast<std::size_t>(static_cast<const char*>(found) - lower.data());
    }
    return npos;
}

} // namespace kestro
