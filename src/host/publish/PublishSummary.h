#pragma once

#include "publish/BaseAddress.h"
#include "publish/Publisher.h"

#include <optional>

namespace kestro {

/// What `kestro publish` says in the end: what is on the site now, how to serve `site`, an absolute path, and
/// how to have it crawled and played. `base` is where it is served, if the user said so.
/// Tested by test_publish.
[[nodiscard]] QString publishSummary(const PublishReport& report, const QString& site,
                                     const std::optional<BaseAddress>& base);

/// `word` as a shell takes it for one word.
[[nodiscard]] QString shellWord(const QString& word);

} // namespace kestro
