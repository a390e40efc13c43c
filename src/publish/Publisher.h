#pragma once

#include "publish/MovieReader.h"
#include "publish/SiteFolder.h"

#include <map>

namespace kestro {

/// What is to be published, and where.
struct PublishOrder {
    QString movies;   ///< the folder of movies
    QString site;     ///< the folder that a server serves; the site is its folder "trailers"
    QString basePath; ///< the path that `site` is served below, escaped; empty at a server's root
    MovieTransfer transfer = MovieTransfer::Link;
};

/// How it went.
struct PublishReport {
    std::size_t titles = 0;
    std::size_t movies = 0;
    std::map<int, int> widths; ///< how many movies are of each width
    std::vector<LeftOut> leftOut;
    std::vector<LeftOut> withoutPoster; ///< published, but no picture of them can be had
    int written = 0;                    ///< files
    int removed = 0;
};

/// Hears how far it has come; on the publisher's thread.
class PublishWatcher {
public:
    virtual ~PublishWatcher() = default;
    /// `name` is the movie or title that is worked on, the `number`th of `count`.
    virtual void reading(const QString& name, std::size_t number, std::size_t count) = 0;
    virtual void writing(const QString& name, std::size_t number, std::size_t count) = 0;
};

/// Makes the site of a folder of movies, or brings one up to date. What an earlier run made and is still
/// right is left as it is. Used for one run; any thread.
class Publisher final {
public:
    Publisher(PublishOrder order, MovieReader& reader, PublishWatcher& watcher);

    /// The error is one line; the pages are then those of before, or new ones, each of them whole.
    [[nodiscard]] Result<PublishReport> publish();

private:
    [[nodiscard]] Result<QStringList> findMovies() const;
    [[nodiscard]] Result<void> readMovies();
    void readMovie(const QString& path);
    [[nodiscard]] Result<void> group();
    [[nodiscard]] QStringList plannedFiles() const;
    [[nodiscard]] Result<void> writeAll();
    [[nodiscard]] Result<void> writeCarried();
    [[nodiscard]] Result<void> writeTitle(PublishedTitle& title);
    [[nodiscard]] Result<void> placeMovies(const PublishedTitle& title);
    [[nodiscard]] Result<void> writePoster(PublishedTitle& title);
    [[nodiscard]] Result<void> writeOverview();
    [[nodiscard]] QString sourcePath(const SourceMovie& movie) const;
    void countUp();

    PublishOrder m_order;
    MovieReader& m_reader;
    PublishWatcher& m_watcher;
    SiteFolder m_folder;
    std::vector<SourceMovie> m_sources;
    std::vector<PublishedTitle> m_titles;
    PublishReport m_report;
};

} // namespace kestro
