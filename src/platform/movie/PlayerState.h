#pragma once

#include <cstdint>
#include <variant>

namespace kestro {

/// Where a player is on its way through one movie, by what it was told and by what mpv tells of it: one state
/// at a time, one function for each event. Each order to go elsewhere (a load, a seek) is a move; it
/// counts them, so that an answer from before the last one is known as such. It knows nothing of mpv. Owned
/// by MpvPlayer; a value; seconds.
class PlayerState final {
public:
    /// mpv opens the movie. It will stand or play at `to`; where it was sent there meanwhile, only a seek
    /// leads there.
    struct Loading {
        double to = 0;
        bool plays = false;
        bool isSought = false;
    };
    /// What mpv has done of a move. A restart that comes before it is underway belongs to an earlier one.
    enum class Step { Ordered, Accepted, Underway };
    /// On its way to the place that it was sent to, to stand or play there.
    struct Moving {
        double to = 0;
        bool plays = false;
        Step step = Step::Ordered;
    };
    /// Stands where it was sent, exactly, whatever mpv says of the frame there.
    struct Placed {
        double at = 0;
    };
    /// Was stopped while it played; mpv still tells where that was.
    struct Stopped {
        double at = 0;
        double sentTo = 0;
    };
    /// Plays on from the place that it was sent to last.
    struct Playing {
        double at = 0;
        double sentTo = 0;
    };
    /// Broke off; final.
    struct Failed {
        double at = 0;
    };

    /// The movie is loaded, again perhaps, to be at `to`.
    void load(double to);
    /// mpv has opened it. Answers whether it is to be sought now.
    [[nodiscard]] bool opened();
    /// Sends it to `to`. Answers whether it is to be sought now; else it will be once it is opened.
    [[nodiscard]] bool goTo(double to);
    void play();
    void stop();
    /// mpv has taken the order of that move.
    void accepted(std::uint32_t move);
    /// mpv cannot do it, so it stays where it is. Answers whether it has arrived by that.
    [[nodiscard]] bool refused(std::uint32_t move);
    /// mpv begins to carry an order out.
    void seekBegan();
    /// mpv shows frames again. Answers whether it is where it was sent.
    [[nodiscard]] bool restarted();
    /// A move that never ends is taken as ended. Answers whether there was one.
    [[nodiscard]] bool tookTooLong();
    /// mpv tells the time of the frame, which shows for `frameSeconds` (0: unknown).
    void timeIs(double time, double frameSeconds);
    void fail();

    /// Where it is, or was sent.
    [[nodiscard]] double position() const;
    /// Whether it is on its way to there.
    [[nodiscard]] bool isUnderway() const;
    /// Whether it plays, or will when it is there. Never while mpv still opens the movie.
    [[nodiscard]] bool isGoing() const;
    [[nodiscard]] bool hasFailed() const { return std::holds_alternative<Failed>(m_state); }
    /// The number of the last move.
    [[nodiscard]] std::uint32_t move() const { return m_move; }
    [[nodiscard]] const auto& current() const { return m_state; }

private:
    using State = std::variant<Loading, Moving, Placed, Stopped, Playing, Failed>;

    [[nodiscard]] bool plays() const;
    void moveTo(double to);
    void arrive(const Moving& moving);

    State m_state = Loading{};
    std::uint32_t m_move = 0;
};

} // namespace kestro
