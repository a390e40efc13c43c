#pragma once

#include "settings/EntryMark.h"

#include <QtGlobal>

#include <vector>

namespace kestro {

class DayClock;

/// What was said of the movies of the list that is played, by their places in it: each has what was said of
/// the entry that it comes from. A value; as small as the entries are few.
class ListMarks final {
public:
    /// The next movie of the list.
    void append(const EntryMark& mark);
    /// What was said of the movie at `index`; nothing of one that is not there.
    [[nodiscard]] const EntryMark& at(qsizetype index) const;
    [[nodiscard]] bool isStarred(qsizetype index) const { return at(index).isStarred; }

private:
    friend class MoviesInTime;

    struct Run {
        qsizetype end = 0; ///< index behind its last movie
        EntryMark mark;
    };
    std::vector<Run> m_runs;
};

/// Which movies of a list are in their time at one moment: all where none is, because something has to play.
/// A value.
class MoviesInTime final {
public:
    /// All of them.
    MoviesInTime() = default;
    /// Those whose time it is now.
    MoviesInTime(const ListMarks& marks, const DayClock& clock);

    [[nodiscard]] bool areAll() const { return m_runs.empty(); }
    [[nodiscard]] bool has(qsizetype index) const;

    [[nodiscard]] bool operator==(const MoviesInTime&) const = default;

private:
    struct Run {
        qsizetype end = 0; ///< index behind its last movie
        bool isInTime = true;

        [[nodiscard]] bool operator==(const Run&) const = default;
    };
    std::vector<Run> m_runs; ///< empty where all are
};

} // namespace kestro
