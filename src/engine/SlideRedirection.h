#pragma once

#include <QString>
#include <QVariantMap>

#include <mutex>
#include <optional>

namespace kestro {

/// Points the desktop's slide show at another folder of pictures while savers show that one, and back. What
/// is to be put back is also noted in the slide show's preference file, so that the next run makes good what
/// one that was killed has left. Shared by every saver of a process; any thread.
class SlideRedirection final {
public:
    /// `home` is the folder whose preferences are meant.
    explicit SlideRedirection(QString home);

    /// Points the slide show at `folder`; nothing more while it is redirected already. False, with nothing
    /// changed, where no preference file tells that this home has ever had a screen saver. A file that cannot
    /// be changed is logged, and counts as success.
    [[nodiscard]] bool redirect(const QString& folder);
    /// Puts back what the slide show was pointed at before; nothing when it is not redirected.
    void restore();

private:
    void findPreferences();
    [[nodiscard]] bool point(const QString& folder);
    [[nodiscard]] QString byHostFolder() const;

    QString m_home;
    std::mutex m_defdictLock; ///< held from reading the preference file to having written it
    std::optional<QString> m_slideSaverDictPath;        ///< once found or made
    std::optional<QString> m_hostIdentifier;            ///< of a screen saver's preference file
    std::optional<QVariant> m_slideSaverDictPathBackup; ///< set while redirected: what to put back
};

} // namespace kestro
