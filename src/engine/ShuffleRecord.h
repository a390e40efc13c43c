#pragma once

#include <QList>
#include <QString>
#include <QUrl>

#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace kestro {

/// What random order has played since all movies were seen last, and what could not be played, in a file that
/// all runs of a user share: so no movie comes twice before all were seen. A file that is damaged counts as
/// none, and one that cannot be written is done without. Owned by the program, one for all savers. Main
/// thread.
class ShuffleRecord final {
public:
    /// Stands for a movie: the file holds no addresses.
    using Mark = std::uint64_t;

    struct Contents {
        std::unordered_set<Mark> seen;
        std::unordered_map<Mark, int> failures; ///< in how many runs in a row

        [[nodiscard]] bool operator==(const Contents&) const = default;
    };

    /// The file's folder is made where it is missing.
    explicit ShuffleRecord(QString path);

    [[nodiscard]] static Mark markOf(const QUrl& movie);
    /// Stands for the second time that a movie comes which comes twice.
    [[nodiscard]] static Mark secondOf(Mark movie) { return ~movie; }
    /// Those of a list, in its order.
    [[nodiscard]] std::shared_ptr<const std::vector<Mark>> marksOf(const QList<QUrl>& list);
    /// What is known now; of other processes, as of the last change.
    [[nodiscard]] const Contents& contents() const { return m_contents; }
    /// Whether the movie could not be played three runs in a row.
    [[nodiscard]] bool isHopeless(Mark movie) const;

    /// Notes that a movie cannot be played in this run: with the next change it is written.
    void addFailure(Mark movie) { m_failed.insert(movie); }
    /// Has `change` change what the file holds, with everybody else kept out; answers what that answers.
    bool change(const std::function<bool(Contents&)>& change);
    /// Writes the failures that were noted since the last change.
    void keepFailures();

private:
    void read();
    void write();
    void takeFailures();

    QString m_path;
    Contents m_contents;
    QList<QUrl> m_list;                               ///< whose marks are known
    std::shared_ptr<const std::vector<Mark>> m_marks; ///< shared with who draws from it
    std::unordered_set<Mark> m_failed;                ///< in this run, not written yet
    std::unordered_set<Mark> m_counted;               ///< in this run, and written
    bool m_isMentioned = false;                       ///< that it cannot be written
};

} // namespace kestro
