#pragma once

#include <QString>

#include <optional>

namespace kestro {

// Where the slide show's pictures lie. Main thread.

/// The slide show's preference file in the folder Library/Preferences/ByHost of that home: the first name of
/// more than four parts between dots that begins com.apple.screensaver.slideshow. Nothing where there is
/// none.
[[nodiscard]] std::optional<QString> slideShowPreferences(const QString& home);

/// Makes sure that there is a preference file of a screen saver in that folder, an empty one of this machine
/// if need be: without any, no slide show can be pointed at a folder. Answers whether there is one.
bool makeScreenSaverPreferences(const QString& home);

/// The folder that those preferences name as "SlideFolder"; where they name none, the folder Pictures of that
/// home. What is answered need not exist.
[[nodiscard]] QString slideFolder(const QString& home);

} // namespace kestro
