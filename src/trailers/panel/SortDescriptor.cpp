#include "trailers/panel/SortDescriptor.h"

#include <algorithm>

namespace kestro {

std::optional<SortDescriptor> chosenSortDescriptor(const std::optional<SortDescriptor>& prototype,
                                                   const QList<SortDescriptor>& previous)
{
    if (!prototype || prototype->key.isEmpty()) return {};
    SortDescriptor chosen = *prototype;
    const auto same = std::find_if(previous.begin(), previous.end(),
                                   [&](const SortDescriptor& one) { return one.key == chosen.key; });
    if (same == previous.end()) return chosen;
    chosen.ascending = same == previous.begin() ? !same->ascending : same->ascending;
    return chosen;
}

QList<SortDescriptor> withChosen(const SortDescriptor& chosen, QList<SortDescriptor> previous)
{
    previous.removeIf([&](const SortDescriptor& one) { return one.key == chosen.key; });
    previous.prepend(chosen);
    return previous;
}

} // namespace kestro
