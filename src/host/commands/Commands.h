#pragma once

namespace kestro {

struct Command;

// The commands of the program, one source file each: what is said of each is what it does, and what it needs.

/// `kestro doctor`: becomes the program that looks whether everything is there that Kestro needs.
[[nodiscard]] Command doctorCommand();

/// `kestro import-hacks`: makes saver bundles of xscreensaver's hacks, or lists them.
[[nodiscard]] Command importHacksCommand();

/// `kestro inspect-page FILE --base URL`: prints what the crawler would take out of a page, as JSON. Reads
/// the feeds that the page names; needs no display.
[[nodiscard]] Command inspectPageCommand();

/// `kestro install-xscreensaver`: puts Kestro into the user's list of xscreensaver's savers, or takes it out.
[[nodiscard]] Command installXscreensaverCommand();

/// `kestro latest N W`: prints the N newest trailers of frame width W, one absolute URL a line, the newest
/// last. Needs no display, starts no crawl.
[[nodiscard]] Command latestCommand();

/// `kestro next`: the saver that runs goes on to the next movie. This and the three like it reach it over the
/// session's bus, need no display, and fail where no saver listens.
[[nodiscard]] Command nextCommand();

/// `kestro now [--json]`: prints the title and the URL of the movie that it shows.
[[nodiscard]] Command nowCommand();

/// `kestro playlist [--expanded]`: prints the playlist, one absolute URL a line. Needs no display, starts no
/// crawl.
[[nodiscard]] Command playlistCommand();

/// `kestro previous`: it goes back to the movie before.
[[nodiscard]] Command previousCommand();

/// `kestro publish MOVIES SITE [--base-url URL] [--copy]`: writes a site of trailers from a folder of movies.
/// Needs no display.
[[nodiscard]] Command publishCommand();

/// `kestro render`: runs the saver on screens in memory, in real time, and writes pictures and a trace of it.
[[nodiscard]] Command renderCommand();

/// `kestro` without a command: the saver on every screen until a person or a signal ends it.
[[nodiscard]] Command runCommand();

/// `kestro scan [--start URL] [--host NAME] [--forget] [--verbose]`: one crawl of the trailer site in the
/// foreground; the list is saved at its end. Needs no display.
[[nodiscard]] Command scanCommand();

/// `kestro idle`: becomes the program that waits until the person is away, which is small and has options of
/// its own.
[[nodiscard]] Command idleCommand();

/// `kestro settings`: becomes the program that shows the settings, which this one is not, so that no saver
/// loads widgets.
[[nodiscard]] Command settingsCommand();

/// `kestro show-settings [--all]`: prints what the settings files come to, as JSON. Needs no display.
[[nodiscard]] Command showSettingsCommand();

/// `kestro stop`: ends the saver that runs.
[[nodiscard]] Command stopCommand();

} // namespace kestro
