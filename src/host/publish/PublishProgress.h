#pragma once

#include "publish/Publisher.h"

namespace kestro {

/// What `kestro publish` shows while it works: one line that changes, on a terminal only. Owned by the
/// command; its thread. Tested by test_publish.
class PublishProgress final : public PublishWatcher {
public:
    PublishProgress();

    void reading(const QString& name, std::size_t number, std::size_t count) override;
    void writing(const QString& name, std::size_t number, std::size_t count) override;

    /// Takes the line away, before something else is written.
    void erase() const;

private:
    void draw(const QString& line) const;

    bool m_isDrawn;
};

} // namespace kestro
