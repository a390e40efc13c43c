#pragma once

#include "keep/MovieStore.h"
#include "platform/base/Descriptor.h"
#include "platform/network/FetchSink.h"

#include <QList>
#include <QUrl>

#include <optional>

namespace kestro {

/// A movie as it comes, in a file that is no copy yet and goes with this, unless the store has taken it.
/// Takes just as much as the server said. Lives on the stack of who fetches. Tested by MovieKeeperTest.
class PartFile final : public FetchSink {
public:
    /// Room is made for it without any of `wanted`.
    PartFile(MovieStore& store, QUrl movie, QList<QUrl> wanted);
    ~PartFile() override;
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    [[nodiscard]] bool begin(qint64 length) override;
    [[nodiscard]] bool take(QByteArrayView bytes) override;
    /// Whether all of it is there, and on the disk. No more comes.
    [[nodiscard]] bool finish();

    /// Why it was given up, where that is the disk's or the room's doing.
    [[nodiscard]] const std::optional<StoreFault>& fault() const { return m_fault; }
    /// Whether the server did not say how long it is.
    [[nodiscard]] bool isEndless() const { return m_isEndless; }
    [[nodiscard]] qint64 bytes() const { return m_bytes; }

private:
    bool failedOnDisk();

    MovieStore& m_store;
    QUrl m_movie;
    QList<QUrl> m_wanted;
    Descriptor m_file;
    qint64 m_length = 0;
    qint64 m_bytes = 0;
    bool m_isEndless = false;
    std::optional<StoreFault> m_fault;
};

} // namespace kestro
