#pragma once

#include "platform/base/Result.h"

#include <QString>

namespace kestro {

/// The file by which a session starts the idle service: kestro-idle.desktop in the folder "autostart" of the
/// configuration folder, as desktops read it by the Desktop Application Autostart Specification. A plain
/// value.
class IdleAutostart final {
public:
    /// `program` is the file that `kestro` is.
    IdleAutostart(QString path, QString program);
    /// The user's own, for this package's program.
    [[nodiscard]] static IdleAutostart ofUser();

    /// Makes the file, or takes it away; whole or not at all.
    [[nodiscard]] Result<void> set(bool isOn) const;
    [[nodiscard]] const QString& path() const { return m_path; }

private:
    QString m_path;
    QString m_program;
};

} // namespace kestro
