#pragma once

#include "host/session/ScreenWish.h"
#include "host/start/Arguments.h"

#include <QSize>
#include <QString>

namespace kestro {

/// What `kestro render` is to draw, checked. A plain value.
struct RenderOptions {
    QString folder;      ///< where the pictures go
    QString traceFile;   ///< empty for none
    double seconds = 10; ///< how long the saver runs
    double every = 1;    ///< seconds between two pictures
    QSize size{1920, 1080};
    int screens = 1;
    ScreenChoice choice; ///< how they are used; they are named screen0, screen1 and so on

    [[nodiscard]] static Syntax syntax();
    /// The error says which option is missing or out of its bounds.
    [[nodiscard]] static Result<RenderOptions> from(const Arguments& arguments);
};

} // namespace kestro
