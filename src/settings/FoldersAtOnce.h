#pragma once

#include "settings/MovieFolders.h"

namespace kestro {

/// Folders that are looked into when they are asked for, for who can wait ten seconds for each and does
/// nothing else meanwhile. Main thread. Tested by test_playlist.
class FoldersAtOnce final : public MovieFolders {
public:
    [[nodiscard]] std::shared_ptr<const FolderMovies> follow(const FolderEntry& entry,
                                                             bool isHurried) override;
};

} // namespace kestro
