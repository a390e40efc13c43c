#pragma once

#include "platform/base/Descriptor.h"

#include <QString>

#include <memory>

namespace kestro {

/// A folder for files of a moment, which only this user can enter, and which goes with everything in it at
/// the end of this object. One whose process was killed is taken away by the next that is made beside it, or
/// by a sweep. Owned by who needs it; any thread.
class ScratchFolder final {
public:
    /// A new one in `parent`, an absolute path; it is made where it is missing. Null where it cannot.
    [[nodiscard]] static std::unique_ptr<ScratchFolder> make(const QString& parent);
    /// Takes away those in `parent` that nobody uses any more.
    static void sweep(const QString& parent);

    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] const QString& path() const { return m_path; }

private:
    ScratchFolder(QString path, Descriptor claim);

    QString m_path;
    Descriptor m_claim; ///< with a lock on the folder, which goes with the process however that ends
};

} // namespace kestro
