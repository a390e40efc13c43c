#pragma once

#include "settings/ListMarks.h"

#include <QList>
#include <QString>
#include <QUrl>

#include <optional>
#include <vector>

namespace kestro {

class Playlist;
class Random;

/// The order in which one pick tries the entries of the playlist, and when every one was tried. It goes on
/// with the list that it took at its start. Owned by a pick. Main thread. Tested by MoviePickTest.
class EntryOrder {
public:
    virtual ~EntryOrder() = default;

    /// The entry to try, the same until it is passed or taken; nothing once every one was tried in vain.
    [[nodiscard]] virtual std::optional<QUrl> next() = 0;
    /// The entry could not be opened.
    virtual void pass() = 0;
    /// The entry was opened; answers whether it is to be played, and then points the playlist at it. Where it
    /// is not, the pick goes on.
    [[nodiscard]] virtual bool take() = 0;
};

/// Where the first entry of that name is in the list; nothing where there is no name, or no such entry.
[[nodiscard]] std::optional<qsizetype> indexOfName(const QList<QUrl>& list,
                                                   const std::optional<QString>& name);

/// One circle through the list from the playlist's index on, past what is not in its time.
class SequentialOrder final : public EntryOrder {
public:
    /// `resumed` is the name of the movie to begin with, where the list has it.
    SequentialOrder(Playlist& playlist, const std::optional<QString>& resumed, MoviesInTime inTime = {});

    [[nodiscard]] std::optional<QUrl> next() override;
    void pass() override { advance(); }
    [[nodiscard]] bool take() override;

private:
    void advance();

    Playlist& m_playlist;
    const QList<QUrl> m_list;
    const MoviesInTime m_inTime;
    qsizetype m_start;
    qsizetype m_next;
    bool m_isOver;
};

/// Draws from a bag that is filled with the whole list whenever it is empty. The entry that played last is
/// refused once, so that it only comes again where the random numbers insist. What is not in its time stays
/// in the bag.
class RandomOrder final : public EntryOrder {
public:
    /// `bag` is kept from pick to pick, and outlives this. Movies of the name `resumed` are drawn first.
    /// `refused` is the index of the entry that played last; nothing where any may be taken.
    RandomOrder(Playlist& playlist, Random& random, QList<QUrl>& bag, std::optional<QString> resumed,
                std::optional<int> refused, MoviesInTime inTime = {});

    [[nodiscard]] std::optional<QUrl> next() override;
    void pass() override { advance(); }
    [[nodiscard]] bool take() override;

private:
    [[nodiscard]] bool isOver() const { return m_list.isEmpty() || (m_isWholeCycle && !m_openedAny); }
    [[nodiscard]] bool isUsedUp() const { return m_later == m_bag.size(); }
    [[nodiscard]] bool isLater(qsizetype index) const;
    void refill();
    void sort();
    void draw();
    [[nodiscard]] qsizetype drawInTime();
    void advance();

    Playlist& m_playlist;
    Random& m_random;
    QList<QUrl>& m_bag;
    const QList<QUrl> m_list;
    const MoviesInTime m_inTime;
    std::vector<bool> m_isLater; ///< of each in the bag, whether it is not in its time; empty where all are
    qsizetype m_later = 0;       ///< how many
    std::optional<QString> m_resumed;
    std::optional<qsizetype> m_drawn; ///< in the bag
    std::optional<int> m_refused;
    bool m_isWholeCycle = false; ///< the bag was filled in this pick
    bool m_openedAny = false;    ///< in this cycle
};

} // namespace kestro
