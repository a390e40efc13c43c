#pragma once

#include "settings/FolderEntry.h"
#include "settings/MovieFolders.h"

#include <map>
#include <vector>

namespace kestro {

/// Folders that hold what a test says. For tests.
class FoldersDouble final : public MovieFolders {
public:
    [[nodiscard]] std::shared_ptr<const FolderMovies> follow(const FolderEntry& entry,
                                                             bool isHurried) override
    {
        followed.push_back(entry);
        wasHurried = isHurried;
        return folder(entry.path);
    }

    /// The folder holds the files of these names now.
    void fill(const QString& path, const QStringList& names, bool isWhole = true)
    {
        QList<QUrl> movies;
        for (const QString& name : names)
            movies.append(QUrl::fromLocalFile(path + u'/' + name));
        folder(path)->take(movies, isWhole);
    }

    std::vector<FolderEntry> followed;
    bool wasHurried = false;

private:
    std::shared_ptr<FolderMovies> folder(const QString& path)
    {
        auto& folder = m_folders[path];
        if (!folder) folder = std::make_shared<FolderMovies>();
        return folder;
    }

    std::map<QString, std::shared_ptr<FolderMovies>> m_folders;
};

} // namespace kestro
