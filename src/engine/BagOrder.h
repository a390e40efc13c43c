#pragma once

#include "engine/EntryOrder.h"
#include "engine/ShuffleRecord.h"

#include <unordered_set>
#include <vector>

namespace kestro {

/// Draws among the entries that nobody has seen yet, in whichever run and on whichever monitor, until there
/// are none: then all are unseen again. What could not be played three runs in a row comes after all others.
/// Only what is in its time is drawn, and unseen again; what is not stays as it was. A starred movie is to be
/// seen twice before all are unseen again, though never twice in a row where there is any other: its second
/// time falls away where nothing else is left.
class BagOrder final : public EntryOrder {
public:
    /// `record` outlives this. An entry of the name `resumed` is drawn first. `played` is the index of the
    /// entry that played last, which does not come next while there is any other.
    BagOrder(Playlist& playlist, Random& random, ShuffleRecord& record, const std::optional<QString>& resumed,
             std::optional<int> played, MoviesInTime inTime = {});
    ~BagOrder() override;

    [[nodiscard]] std::optional<QUrl> next() override;
    void pass() override;
    [[nodiscard]] bool take() override;

private:
    /// Those of a better one are drawn first.
    enum Rank : int { Unseen, UnseenHopeless, Seen, SeenHopeless, Played, Tried, ranks };

    [[nodiscard]] ShuffleRecord::Mark mark(qsizetype index, int time = 0) const;
    [[nodiscard]] int times(qsizetype index) const { return m_said.isStarred(index) ? 2 : 1; }
    [[nodiscard]] int unseen(qsizetype index, const ShuffleRecord::Contents& contents) const;
    [[nodiscard]] Rank rankOf(qsizetype index) const;
    [[nodiscard]] int weightOf(qsizetype index) const;
    [[nodiscard]] std::optional<qsizetype> draw();
    [[nodiscard]] bool claim(ShuffleRecord::Contents& contents, bool isResumed) const;
    [[nodiscard]] bool beginAnew(ShuffleRecord::Contents& contents) const;
    void leave();

    Playlist& m_playlist;
    Random& m_random;
    ShuffleRecord& m_record;
    const QList<QUrl> m_list;
    const ListMarks m_said;
    const MoviesInTime m_inTime;
    std::shared_ptr<const std::vector<ShuffleRecord::Mark>> m_marks; ///< of the list; the record's
    std::optional<qsizetype> m_resumed;
    std::optional<int> m_played;
    std::optional<qsizetype> m_drawn;
    std::vector<bool> m_isTried;                      ///< in this pick
    std::unordered_set<ShuffleRecord::Mark> m_passed; ///< in this pick
};

} // namespace kestro
