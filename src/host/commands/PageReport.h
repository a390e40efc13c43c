#pragma once

#include "trailers/PageParser.h"

#include <QJsonObject>

namespace kestro {

/// The links and movies of one page as `kestro inspect-page` prints them.
[[nodiscard]] QJsonObject pageReport(const PageParser::Links& links,
                                     const std::vector<TrailerRecord>& movies);

} // namespace kestro
