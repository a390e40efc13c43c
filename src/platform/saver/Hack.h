#pragma once

#include "platform/base/Result.h"

#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace kestro {

/// What a saver bundle says of the xscreensaver hack that it stands for. A plain value; any thread.
struct Hack {
    QString program;          ///< path, or the name of one in hackFolders() or on the search path
    QStringList arguments;    ///< without the one that names the window
    bool drawsOpenGL = false; ///< it draws with OpenGL

    /// Reads it from a bundle's Info.plist; the error names what is missing there.
    [[nodiscard]] static Result<Hack> fromInfo(const QVariantMap& info);
    /// The entries of an Info.plist that say so.
    [[nodiscard]] QVariantMap toInfo() const;

    /// Where the program is; empty when there is no such program.
    [[nodiscard]] QString executable() const;
};

/// The folders that xscreensaver may be installed to keep its hacks in.
[[nodiscard]] QStringList hackFolders();

} // namespace kestro
