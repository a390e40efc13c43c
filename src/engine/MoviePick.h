#pragma once

#include "engine/EntryOrder.h"
#include "presentation/MovieContent.h"

#include <functional>
#include <memory>
#include <optional>

namespace kestro {

class EntryOpener;

/// The search for the entry to play next: tries one after the other until one opens. It never waits: step()
/// goes as far as it can go now. Owned by the saver; destroying it gives the search up. Main thread.
class MoviePick final {
public:
    enum class State { Searching, Found, Nothing };

    struct Options {
        /// Takes a remote movie only once it is loaded, else as soon as it begins to load.
        bool waitsForServers = false;
        /// Called on the event loop when another step() would get further; without it, step now and then.
        std::function<void()> wake;
        /// Makes the order to go on with where none of the entries of the first one opens.
        std::function<std::unique_ptr<EntryOrder>()> makeSecondOrder = {};
    };

    MoviePick(std::unique_ptr<EntryOrder> order, EntryOpener& opener, Options options);
    ~MoviePick();
    MoviePick(const MoviePick&) = delete;
    MoviePick& operator=(const MoviePick&) = delete;

    /// Goes on with the search. Once it has found something or nothing it stays there.
    State step();
    /// What was found, handed over.
    [[nodiscard]] MovieContent takeContent() { return std::exchange(m_content, {}); }

private:
    [[nodiscard]] bool tryNext();
    [[nodiscard]] bool isOpening();
    void settle();
    [[nodiscard]] QTMovie* triedMovie() const;

    std::unique_ptr<EntryOrder> m_order;
    EntryOpener& m_opener;
    Options m_options;
    State m_state = State::Searching;
    std::optional<QUrl> m_tried; ///< the entry that is being opened
    MovieContent m_content;      ///< of that entry, or what was found
};

} // namespace kestro
