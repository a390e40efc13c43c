#pragma once

#include "trailers/TrailerRecord.h"

#include <optional>
#include <string_view>

namespace kestro {

class PageBase;

// The movie that one script call on a page embeds, without a date. `text` is what stands between the call's
// brackets, one byte a character. Nothing for a call that lacks arguments or embeds no ".mov". Any thread.

/// Of a call with poster movie, width, height and names with values, of which "href" is the movie to play.
[[nodiscard]] std::optional<TrailerRecord> movieOfObjectCall(std::string_view text, const PageBase& base);

/// Of a call with an element, a movie and an object of attributes, "width" and "height" among them.
[[nodiscard]] std::optional<TrailerRecord> movieOfPackageCall(std::string_view text, const PageBase& base);

} // namespace kestro
