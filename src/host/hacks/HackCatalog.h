#pragma once

#include "platform/saver/Hack.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace kestro {

/// An xscreensaver hack that is installed here. A plain value.
struct InstalledHack {
    QString name;  ///< of its program
    QString label; ///< what xscreensaver calls it
    Hack hack;     ///< with the options that it has when nobody chose any
};

/// The hack that a description (the bytes of one of xscreensaver's files) is of, without the place of its
/// program. Nothing where it cannot be read, or names no program, or Kestro itself.
[[nodiscard]] std::optional<InstalledHack> readHackDescription(const QByteArray& description);

/// The hacks that are described in one of `descriptionFolders` (xscreensaver's files, one a hack) and whose
/// program stands in one of `programFolders`, sorted by name; Kestro itself, which is one, is left out. A
/// description that cannot be read counts as none.
[[nodiscard]] QList<InstalledHack> installedHacks(const QStringList& descriptionFolders,
                                                  const QStringList& programFolders);

/// The folders that xscreensaver may be installed to keep its descriptions in.
[[nodiscard]] QStringList hackDescriptionFolders();

} // namespace kestro
