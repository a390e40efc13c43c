#pragma once

#include "platform/base/Descriptor.h"

#include <QString>

#include <memory>
#include <sys/types.h>

namespace kestro {

/// The folder that stands for the user's home in the web helper, so that nothing of the user's is found there
/// and nothing of a page is kept: the helper deletes it when it ends, and so does this object. One that was
/// left behind, because both were killed, is deleted when the next is made. Its name says which process made
/// it. Main thread.
class ProfileFolder final {
public:
    /// A new folder in `parent`; null when it cannot be made.
    [[nodiscard]] static std::unique_ptr<ProfileFolder> make(const QString& parent);
    ~ProfileFolder();
    ProfileFolder(const ProfileFolder&) = delete;
    ProfileFolder& operator=(const ProfileFolder&) = delete;

    [[nodiscard]] const QString& path() const { return m_path; }

    /// Marks a folder as in use for as long as the answer lives; closed where somebody else claims it alone.
    [[nodiscard]] static Descriptor claim(const QString& path, bool isAlone);
    /// Whether make() could have made it: by its name, owner and mode, and those of the folder that it is in.
    [[nodiscard]] static bool isOne(const QString& path);
    /// The number of the process that made the folder at `path`, by its name; 0 where that tells of none.
    [[nodiscard]] static pid_t makerOf(const QString& path);
    /// Deletes the folder at `path` with all that is in it where isOne() says that it is ours; false while
    /// any of it is left.
    static bool remove(const QString& path);

private:
    ProfileFolder(QString path, Descriptor claimed);

    QString m_path;
    Descriptor m_claim;
};

} // namespace kestro
