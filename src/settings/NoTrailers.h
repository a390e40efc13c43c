#pragma once

#include "settings/LatestTrailers.h"

namespace kestro {

/// The trailer source of a saver that has no scanner: knows of no trailer and never looks for one. Owned by
/// who makes the saver. Main thread.
class NoTrailers final : public LatestTrailers {
public:
    [[nodiscard]] QList<QUrl> lastTrailers(int count, int width, const QSet<QString>& excluded) override;
    void scanLatest(TrailerClient& client) override;
    void stopThreading() override;
};

} // namespace kestro
