#pragma once

#include "trailers/PageParser.h"

#include <QJsonObject>

namespace kestro {

/// The links and movies of one page as `kestro inspect-page` prints them. Tested by test_inspect_page.
[[nodiscard]] QJsonObject pageReport(const PageParser::Links& links,
                                     const std::vector<TrailerRecord>& movies);

} // namespace kestro
