#pragma once

#include "settings/LatestTrailers.h"

namespace kestro {

/// The shared controller as savers know it: it is made when a saver first needs it, so that one without
/// automatic entries costs no list and no network. Owned by who makes savers. Main thread.
/// Tested by test_playlist.
class SharedTrailers final : public LatestTrailers {
public:
    [[nodiscard]] QList<QUrl> lastTrailers(int count, int width, const QSet<QString>& excluded) override;
    [[nodiscard]] std::optional<int> yearOf(const QUrl& url) override;
    void scanLatest() override;
    void stopThreading() override;
};

} // namespace kestro
