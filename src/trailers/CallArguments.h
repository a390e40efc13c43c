#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace kestro {

// The arguments of a script call on a page. Views last as long as the page. Any thread.

/// The arguments of a call one by one, from the text between its brackets: split at each ",", whatever it is
/// part of. A page may have millions in one call, so none is kept.
class CallArguments final {
public:
    explicit CallArguments(std::string_view text)
        : m_rest(text)
    {
    }

    /// The next argument; nothing after the last one. There always is a first one.
    [[nodiscard]] std::optional<std::string_view> next();

private:
    std::optional<std::string_view> m_rest; ///< nothing after the last comma's argument
};

/// What stands between the first two single quotes of `argument`, or after the only one; without any, the
/// same with double quotes; without those the argument as it is.
[[nodiscard]] std::string_view internalString(std::string_view argument);

/// The same; an argument without quotes comes, if `removeSpc`, without its spaces and its bytes from 128.
[[nodiscard]] std::string internalStringRemoveSpc(std::string_view argument, bool removeSpc);

using AttributeMap = std::map<std::string, std::string, std::less<>>;

/// The object between the first "{" and the first "}" of `text`, quotes kept and blanks dropped; nothing
/// where there is no such object. Entries that are no pair, "src:http://…" too, are left out.
[[nodiscard]] std::optional<AttributeMap> attrToDict(std::string_view text);

/// One side of a frame size: `number` as it is, "---" where its integer value is 0.
[[nodiscard]] std::string_view frameSide(std::string_view number);

} // namespace kestro
