#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace kestro {

class ConfigurationFile;

/// A key of kestro.conf.
struct ConfigurationKey {
    QString section;
    QString name;
    QString usual; ///< what counts where the file says nothing that is understood
};

/// All of them, in the order of the manual page; those below [marks] are of the person's making.
[[nodiscard]] QList<ConfigurationKey> configurationKeys();

/// What counts of kestro.conf and where it is from, as the text of a JSON object: its members are the
/// sections, whose members are the keys, one a line, each with "value" and "from", which is "default" or the
/// file and the line. `indent` is put before each line but the first. What the file has that is not
/// understood is logged.
[[nodiscard]] QByteArray configurationReport(const ConfigurationFile& file, const QString& path,
                                             const QByteArray& indent);

} // namespace kestro
