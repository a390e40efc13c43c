#pragma once

#include "platform/base/ProcessMark.h"

#include <QString>
#include <QVariantMap>

#include <memory>
#include <mutex>
#include <optional>

class QLockFile;

namespace kestro {

/// Points the desktop's slide show at another folder of pictures while savers show that one, and back. What
/// is to be put back is also noted in the slide show's preference file, with the processes that show the
/// folder, so that the last of them puts it back, and a later run where all were killed. Shared by every
/// saver of a process; any thread.
class SlideRedirection final {
public:
    /// `home` is the folder whose preferences are meant, `mark` this process's (platform/base/ProcessMark.h).
    explicit SlideRedirection(QString home, QString mark = markOfThisProcess());

    /// Points the slide show at `folder`; nothing more while it is redirected already. False, with nothing
    /// changed, where no preference file tells that this home has ever had a screen saver. A file that cannot
    /// be changed is logged, and counts as success.
    [[nodiscard]] bool redirect(const QString& folder);
    /// Puts back what the slide show was pointed at before, unless another process still shows the folder;
    /// nothing when it was not redirected here.
    void restore();
    /// Puts back what processes have left that are over; nothing while one of them still runs.
    void makeGood();

private:
    void findPreferences();
    [[nodiscard]] bool point(const QString& folder);
    void putBack(QVariantMap& preferences, const QVariant& before) const;
    [[nodiscard]] std::unique_ptr<QLockFile> holdFile() const;
    [[nodiscard]] QString byHostFolder() const;

    QString m_home;
    QString m_mark;
    std::mutex m_defdictLock; ///< held from reading the preference file to having written it
    std::optional<QString> m_slideSaverDictPath;        ///< once found or made
    std::optional<QString> m_hostIdentifier;            ///< of a screen saver's preference file
    std::optional<QVariant> m_slideSaverDictPathBackup; ///< set while redirected: what to put back
};

} // namespace kestro
