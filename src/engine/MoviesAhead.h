#pragma once

#include <QList>
#include <QUrl>

#include <functional>

namespace kestro {

/// Which movies are to be fetched ahead of what plays: of a list, those on web sites, trailers first, as
/// their site has the newest of them first, then those that follow, and last the one that plays. A plain
/// value, which remembers of the list what can be fetched, as long as it is the same list.
class MoviesAhead final {
public:
    static constexpr qsizetype most = 64;

    using IsTrailer = std::function<bool(const QUrl&)>;

    [[nodiscard]] QList<QUrl> after(const QUrl& played, const QList<QUrl>& list, const IsTrailer& isTrailer);

private:
    void read(const QList<QUrl>& list);

    QList<QUrl> m_list;
    QList<QUrl> m_remote; ///< each once, in the list's order
};

} // namespace kestro
