#pragma once

#include "platform/web/Descriptor.h"

#include <QString>

#include <memory>

namespace kestro {

/// The folder that stands for the user's home in the web helper, so that nothing of the user's is found there
/// and nothing of a page is kept: the helper deletes it when it ends, and so does this object. One that was
/// left behind, because both were killed, is deleted when the next is made. Main thread.
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

private:
    ProfileFolder(QString path, Descriptor claimed);

    QString m_path;
    Descriptor m_claim;
};

} // namespace kestro
