#pragma once

#include "host/session/ScreenWish.h"
#include "host/start/Arguments.h"

#include <QVariantMap>

#include <chrono>
#include <cstdint>
#include <optional>

namespace kestro {

/// How the saver is to run: over every monitor or in a window that another program hands over, and what is to
/// count instead of the stored settings. A plain value.
struct RunOptions {
    bool isInWindow = false;
    std::optional<std::uint32_t> window; ///< its number; none for the root window
    bool isPreview = false;              ///< the window is a picture of the saver in somebody's settings
    std::optional<std::chrono::seconds> stopAfter; ///< shown until black, 0 for never; none: as configured
    ScreenWish screens;                            ///< not for a window
    QVariantMap settings;                          ///< keys of the settings file, for this run only

    [[nodiscard]] static Syntax syntax();
    /// `handedOver` is what XSCREENSAVER_WINDOW says, which counts where "root" is given and no window is. A
    /// window given by its number is a preview: that is how xscreensaver's settings name their pane, while
    /// the saver itself gets its windows handed over.
    /// The error says what is wrong with which option.
    [[nodiscard]] static Result<RunOptions> from(const Arguments& arguments, const QString& handedOver);
};

} // namespace kestro
