#pragma once

#include "platform/base/Descriptor.h"
#include "platform/base/Result.h"

#include <QString>

#include <utility>

namespace kestro {

/// The right to crawl for one list: at most one process, and one place in it, has it at a time. It is a lock
/// on a file beside the list, so it goes with the process however that ends. Owned by who crawls; any thread.
class CrawlLock final {
public:
    /// The lock of the list at `listPath`; an error where somebody else has it or it cannot be made. Never
    /// waits.
    [[nodiscard]] static Result<CrawlLock> take(const QString& listPath);

private:
    explicit CrawlLock(Descriptor file)
        : m_file(std::move(file))
    {
    }

    Descriptor m_file;
};

} // namespace kestro
