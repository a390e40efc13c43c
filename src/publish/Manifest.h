#pragma once

#include "platform/base/Result.h"
#include "publish/PublishedTitle.h"

#include <QByteArray>
#include <QHash>
#include <QMap>

namespace kestro {

/// What an earlier run left in the site's folder: its files, and what it learned about the movies. Files that
/// are not in it are somebody else's. A value.
class Manifest final {
public:
    /// Reads what `json` wrote; the error says what is wrong with it.
    [[nodiscard]] static Result<Manifest> parse(const QByteArray& json);
    /// The same bytes for the same content.
    [[nodiscard]] QByteArray json() const;

    /// Each file of ours, a path below the site's folder, with the state of what it was made of; empty where
    /// its content tells.
    [[nodiscard]] const QMap<QString, QString>& files() const { return m_files; }
    [[nodiscard]] bool hasFile(const QString& file) const { return m_files.contains(file); }
    void setFile(const QString& file, const QString& origin) { m_files.insert(file, origin); }

    /// Puts in what was learned about `movie`, where it is known in this very state. Answers whether it is.
    [[nodiscard]] bool recall(SourceMovie& movie) const;
    void setMovies(const std::vector<SourceMovie>& movies);

private:
    QMap<QString, QString> m_files;
    QMap<QString, SourceMovie> m_movies; ///< by path
};

} // namespace kestro
