#pragma once

#include "publish/PublishedTitle.h"

namespace kestro {

/// The titles of a site, in the order of its index, and the movies that found no place in one.
struct TitleGroups {
    std::vector<PublishedTitle> titles;
    std::vector<LeftOut> leftOut;
};

/// Puts movies together that are sizes of one title: same folder, same name but for a size at its end
/// ("waves_480.mov", "waves_640.mov"), also where the sizes are folders ("480/waves.mov"). Where the name
/// says no more than "480" or "trailer", the folder's name is the title's. Of two movies of one title and
/// width the one that more browsers play stays. Does not depend on the order of `movies`.
[[nodiscard]] TitleGroups groupTitles(std::vector<SourceMovie> movies);

} // namespace kestro
