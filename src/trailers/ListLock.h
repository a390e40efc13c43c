#pragma once

#include "platform/base/Descriptor.h"
#include "platform/base/Result.h"

#include <QString>

#include <functional>
#include <utility>

namespace kestro {

/// Why there is no lock.
struct LockFault {
    enum class Kind {
        Taken,        ///< somebody else has it
        CannotBeMade, ///< nobody can: its folder or its file is not to be had
    };
    Kind kind = Kind::CannotBeMade;
    QString message; ///< in one line
};

/// The right to do something with one list: at most one process, and one place in it, has it at a time. It is
/// a lock on a file beside the list, so it goes with the process however that ends. Owned by who does it; any
/// thread.
class ListLock final {
public:
    using Taken = Result<ListLock, LockFault>;
    using Pause = std::function<void()>;

    /// To crawl for the list at `listPath`. Never waits.
    [[nodiscard]] static Taken takeToCrawl(const QString& listPath);
    /// To save that list. Waits until others have saved it: for 200 pauses, two seconds, at most.
    [[nodiscard]] static Taken takeToSave(const QString& listPath, const Pause& pause = shortPause);

private:
    explicit ListLock(Descriptor file)
        : m_file(std::move(file))
    {
    }

    static void shortPause();
    [[nodiscard]] static Result<Descriptor, LockFault> fileAt(const QString& path);

    Descriptor m_file;
};

} // namespace kestro
