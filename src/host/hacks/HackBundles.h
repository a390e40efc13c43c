#pragma once

#include "host/hacks/HackCatalog.h"
#include "platform/base/Result.h"

#include <QMap>
#include <QString>

namespace kestro {

/// The saver bundles in a folder that stand for xscreensaver hacks and were written here; they are told from
/// all others by an identifier in their Info.plist. No other bundle, and no file that is none, is ever
/// changed. Main thread.
class HackBundles final {
public:
    enum class Change { None, Added, Updated };
    struct Written {
        QString path;
        Change change;
    };

    /// Looks at the folder once, now; it need not exist.
    explicit HackBundles(QString folder);

    /// The bundle of the hack of that name; empty when there is none.
    [[nodiscard]] QString pathOf(const QString& name) const { return m_paths.value(name); }
    /// Writes the hack's bundle: over the one there is, wherever the user has renamed it to, else under the
    /// hack's label. The error is one line.
    [[nodiscard]] Result<Written> write(const InstalledHack& hack);

private:
    [[nodiscard]] QString freePath(const InstalledHack& hack) const;

    QString m_folder;
    QMap<QString, QString> m_paths; ///< by the hack's name
};

} // namespace kestro
