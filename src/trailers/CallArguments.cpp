#include "trailers/CallArguments.h"

#include <algorithm>

namespace kestro {

namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// What stands after the first `mark`, up to the next one; nothing without any.
std::optional<std::string_view> quoted(std::string_view text, char mark)
{
    const auto open = text.find(mark);
    if (open == std::string_view::npos) return {};
    text.remove_prefix(open + 1);
    return text.substr(0, text.find(mark));
}

/// Whether the number that `text` begins with is other than 0.
bool isNumber(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(whiteSpace), text.size()));
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
    return !text.empty() && isDigit(text.front());
}

void addPair(AttributeMap& map, std::string_view piece)
{
    const auto colon = piece.find(':');
    if (colon == std::string_view::npos || piece.find(':', colon + 1) != std::string_view::npos) return;
    map.insert_or_assign(std::string(piece.substr(0, colon)), std::string(piece.substr(colon + 1)));
}

} // namespace

std::optional<std::string_view> CallArguments::next()
{
    if (!m_rest) return {};
    const auto comma = m_rest->find(',');
    const auto argument = m_rest->substr(0, comma);
    if (comma == std::string_view::npos)
        m_rest.reset();
    else
        m_rest->remove_prefix(comma + 1);
    return argument;
}

std::string_view internalString(std::string_view argument)
{
    if (const auto inner = quoted(argument, '\'')) return *inner;
    if (const auto inner = quoted(argument, '"')) return *inner;
    return argument;
}

std::string internalStringRemoveSpc(std::string_view argument, bool removeSpc)
{
    const bool isQuoted = argument.find_first_of("'\"") != std::string_view::npos;
    std::string text(internalString(argument));
    const auto isDropped = [](char c) { return c == ' ' || static_cast<unsigned char>(c) >= 128; };
    if (removeSpc && !isQuoted) std::erase_if(text, isDropped);
    return text;
}

std::optional<AttributeMap> attrToDict(std::string_view text)
{
    const auto open = text.find('{');
    const auto close = text.find('}');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open) return {};
    std::string object(text.substr(open + 1, close - open - 1));
    std::erase_if(object, [](char c) { return c == '\n' || c == '\t' || c == ' '; });
    AttributeMap map;
    CallArguments pieces(object);
    while (const auto piece = pieces.next())
        addPair(map, *piece);
    return map;
}

std::string_view frameSide(std::string_view number)
{
    return isNumber(number) ? number : "---";
}

} // namespace kestro
