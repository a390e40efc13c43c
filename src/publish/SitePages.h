#pragma once

#include "publish/PublishedTitle.h"

#include <QByteArray>

namespace kestro {

/// The name of a title's picture in its folder.
[[nodiscard]] QString posterName();

/// The texts of the site's pages and of its feed. Pages are ASCII; what leads on to pages stands in double
/// quotes, what does not (movies, the feed) in single ones, so that only pages are taken for pages by those
/// who search them. A value.
class SitePages final {
public:
    /// `basePath` is the path that the site is served below, escaped, without a slash at its end; empty at a
    /// server's root.
    explicit SitePages(QString basePath)
        : m_basePath(std::move(basePath))
    {
    }

    /// Names every title, by a link and in the feed.
    [[nodiscard]] QByteArray index(const std::vector<PublishedTitle>& titles) const;
    /// One title's page: a script call for each movie, the narrowest in the older form, the others in the
    /// newer.
    [[nodiscard]] QByteArray title(const PublishedTitle& title) const;
    /// The titles as JSON, "location" being the path of each page.
    [[nodiscard]] QByteArray feed(const std::vector<PublishedTitle>& titles) const;

private:
    [[nodiscard]] QString pathOf(const PublishedTitle& title) const;
    [[nodiscard]] QString calls(const PublishedTitle& title) const;
    [[nodiscard]] QString objectCall(const PublishedTitle& title, const PublishedMovie& movie) const;
    [[nodiscard]] QString packageCall(const PublishedTitle& title, std::size_t place) const;

    QString m_basePath;
};

/// 75.4 as "1:15", 3725 as "1:02:05"; empty for an unknown duration, 0.
[[nodiscard]] QString durationText(double seconds);

/// Bytes as "1.4 MB".
[[nodiscard]] QString bytesText(qint64 bytes);

} // namespace kestro
