#pragma once

#include <QtGlobal>

class QByteArrayView;

namespace kestro {

/// Takes what a fetch brings as it comes, so that it need not lie in memory. Owned by who fetches; called on
/// the thread of the fetch.
class FetchSink {
public:
    virtual ~FetchSink() = default;

    /// Something comes: `length` bytes, as the server says, or -1 where it does not. False gives it up.
    [[nodiscard]] virtual bool begin(qint64 length) = 0;
    /// The next bytes. False gives the fetch up.
    [[nodiscard]] virtual bool take(QByteArrayView bytes) = 0;
};

} // namespace kestro
