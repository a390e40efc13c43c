#pragma once

#include "platform/session/KeptFact.h"

#include <vector>

namespace kestro {

/// A fact that is looked up as a whole: when it is asked, and when something tells that it is another. One
/// look at a time, however much is told meanwhile: then there is one more. Main thread.
class AskedFact : public KeptFact {
public:
    void ask(std::function<void()> onAnswer) final;

protected:
    using Found = std::function<void(const QList<Hindrance>&)>;

    /// Looks, and calls `found` once, from here or from the event loop, at the latest after `patience`; not
    /// after this is destroyed. Nothing where it is not known.
    virtual void look(Found found) = 0;
    /// Looks because it may be another.
    void refresh();

private:
    void begin();
    void looked(const QList<Hindrance>& found);

    std::vector<std::function<void()>> m_waiting;
    bool m_isLooking = false;
    bool m_isStale = false; ///< something changed since this look began
};

} // namespace kestro
