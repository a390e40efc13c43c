#pragma once

#include "platform/base/Result.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace kestro {

/// The user's list of xscreensaver's savers, in the file ~/.xscreensaver: whether Kestro is in it, and the
/// putting in and taking out. The file is read anew by each operation, for xscreensaver writes it too.
/// Errors are one line. A plain value; main thread.
class XscreensaverList final {
public:
    /// `program` is the file of the program that xscreensaver is to run, `everybodys` the file with the list
    /// that xscreensaver adds to that of each user, which need not exist.
    XscreensaverList(QString path, QString program, QString everybodys = {});
    /// The user's own list, this package's program, and the list of this machine.
    [[nodiscard]] static XscreensaverList ofUser();

    /// What putting in or taking out did. The backup is of the file as it was before the first change ever.
    struct Change {
        bool isChanged = false;
        QString backup; ///< empty where there was no file
    };

    [[nodiscard]] const QString& path() const { return m_path; }
    /// Whether Kestro is in the list and switched on; as everybody has it, where the user's own does not say.
    [[nodiscard]] Result<bool> isListed() const;
    [[nodiscard]] Result<Change> add() const;
    /// Takes it out, or, where everybody has it, switches it off in the user's own list.
    [[nodiscard]] Result<Change> remove() const;

private:
    [[nodiscard]] bool hasEverybody() const;
    [[nodiscard]] Result<QByteArray> entry() const;
    [[nodiscard]] Result<QByteArray> command() const;
    [[nodiscard]] Result<Change> store(const QByteArray& before, const QByteArray& after) const;

    QString m_path;
    QString m_program;
    QString m_everybodys;
};

} // namespace kestro
