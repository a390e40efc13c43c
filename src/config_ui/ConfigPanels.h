#pragma once

#include "settings/PlayTime.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace kestro {

/// What the rules of the sheet ask of the person in front of it. Each answers once the person has; the
/// events of others go on meanwhile. Main thread.
class ConfigPanels {
public:
    /// What was chosen in the panel that opens files.
    struct Choice {
        QStringList files; ///< absolute paths, in the panel's order
        QString folder;    ///< that they lie in
    };

    virtual ~ConfigPanels() = default;

    /// Shows a folder of this machine in the desktop's own file manager.
    virtual void openFolder(const QString& folder) = 0;
    /// Takes the sheet from sight.
    virtual void endSheet() = 0;
    /// Shows an alert with one button.
    virtual void runAlert(const QString& message) = 0;
    /// Says what is waited for, once that takes longer than a moment, until endWait(). A person who gives up
    /// calls `giveUp`, which ends it.
    virtual void beginWait(const QString& message, std::function<void()> giveUp) = 0;
    virtual void endWait() = 0;
    /// Lets files be chosen, several at once, no folders, starting in `folder` (where there is
    /// none, in the user's folder of movies, else at home); nothing when that was cancelled.
    [[nodiscard]] virtual std::optional<Choice> runOpenPanel(const QString& folder) = 0;
    /// Lets a folder be chosen, starting in `folder` likewise; its absolute path, or nothing when that was
    /// cancelled.
    [[nodiscard]] virtual std::optional<QString> runFolderPanel(const QString& folder) = 0;
    /// Asks for hours of the day, those of `time` to begin with; nothing when that was cancelled.
    [[nodiscard]] virtual std::optional<PlayTime> runHoursPanel(const PlayTime& time) = 0;
};

} // namespace kestro
