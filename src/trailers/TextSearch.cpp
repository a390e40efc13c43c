#include "trailers/TextSearch.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace kestro {

namespace {

// Sixteen bytes at a time, in the compiler's own notation for every processor that has such registers.
using Block = unsigned char __attribute__((vector_size(16)));
using Words = std::uint64_t __attribute__((vector_size(16)));

// Four blocks at a step, because looking at the outcome costs more than making it.
constexpr std::size_t step = 4 * sizeof(Block);

// The bit that makes letters lower case; it joins few other characters, so that it does for a first look.
constexpr unsigned char caseBit = 0x20;

Block blockAt(const char* text)
{
    Block block;
    std::memcpy(&block, text, sizeof block);
    return block | caseBit;
}

Block blockOf(char c)
{
    return Block{} + static_cast<unsigned char>(static_cast<unsigned char>(c) | caseBit);
}

char lowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Where of sixteen texts from `text` on some may have `first` at its begin and `last` at `distance`.
Block mayBeginIn(const char* text, std::size_t distance, Block first, Block last)
{
    return (Block)((blockAt(text) == first) & (blockAt(text + distance) == last));
}

bool isAny(Block hits)
{
    const auto words = (Words)hits;
    return (words[0] | words[1]) != 0;
}

} // namespace

bool TextSearch::isAt(const char* text) const
{
    for (std::size_t i = 0; i < m_needle.size(); ++i)
        if (lowerCase(text[i]) != m_needle[i]) return false;
    return true;
}

std::size_t TextSearch::findOneByOne(std::string_view text, std::size_t from, std::size_t to) const
{
    for (std::size_t at = from; at < to; ++at)
        if (isAt(text.data() + at)) return at;
    return npos;
}

std::size_t TextSearch::findInStep(const char* text) const
{
    const Block first = blockOf(m_needle.front());
    const Block last = blockOf(m_needle.back());
    for (std::size_t block = 0; block < step; block += sizeof(Block)) {
        const Block hits = mayBeginIn(text + block, m_needle.size() - 1, first, last);
        if (!isAny(hits)) continue;
        for (std::size_t i = 0; i < sizeof(Block); ++i)
            if (hits[i] != 0 && isAt(text + block + i)) return block + i;
    }
    return npos;
}

std::size_t TextSearch::find(std::string_view text, std::size_t from) const
{
    if (text.size() < m_needle.size()) return npos;
    const std::size_t end = text.size() - m_needle.size() + 1;
    const std::size_t distance = m_needle.size() - 1;
    const Block first = blockOf(m_needle.front());
    const Block last = blockOf(m_needle.back());
    std::size_t at = from;
    for (; at + step <= end; at += step) {
        const char* here = text.data() + at;
        Block hits = {};
        for (std::size_t block = 0; block < step; block += sizeof(Block))
            hits |= mayBeginIn(here + block, distance, first, last);
        if (!isAny(hits)) continue;
        const auto found = findInStep(here);
        if (found != npos) return at + found;
    }
    return findOneByOne(text, at, end);
}

} // namespace kestro
