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
    /// `program` is the file of the program that xscreensaver is to run.
    XscreensaverList(QString path, QString program);
    /// The user's own list, and this package's program.
    [[nodiscard]] static XscreensaverList ofUser();

    /// What putting in or taking out did. The backup is of the file as it was before the first change ever.
    struct Change {
        bool isChanged = false;
        QString backup; ///< empty where there was no file
    };

    [[nodiscard]] const QString& path() const { return m_path; }
    /// Whether Kestro is in the list and switched on.
    [[nodiscard]] Result<bool> isListed() const;
    [[nodiscard]] Result<Change> add() const;
    [[nodiscard]] Result<Change> remove() const;

private:
    [[nodiscard]] Result<QByteArray> command() const;
    [[nodiscard]] Result<Change> store(const QByteArray& before, const QByteArray& after) const;

    QString m_path;
    QString m_program;
};

} // namespace kestro
