#pragma once

#include "platform/session/SessionFact.h"

namespace kestro {

/// A fact that keeps what it knows, and tells when that becomes something else. Main thread.
class KeptFact : public SessionFact {
public:
    [[nodiscard]] QList<Hindrance> hindrances() const final { return m_kept; }

protected:
    void keep(const QList<Hindrance>& known)
    {
        if (m_kept == known) return;
        m_kept = known;
        changed();
    }

private:
    QList<Hindrance> m_kept;
};

} // namespace kestro
