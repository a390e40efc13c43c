#pragma once

#include "publish/FilePlacing.h"
#include "publish/Manifest.h"

#include <QStringList>

namespace kestro {

/// The folder of the site and the files in it that are ours. Nothing else in it is touched: a file of
/// somebody else's that is in the way ends the run before anything is changed. Ours are put down in the
/// manifest before they are made, so that an interrupted run knows them again. Used by one run, on one
/// thread.
class SiteFolder final {
public:
    /// `path` need not exist yet.
    explicit SiteFolder(QString path)
        : m_path(std::move(path))
    {
    }

    /// Reads what an earlier run left here. The error is one line.
    [[nodiscard]] Result<void> open();
    /// What the earlier run left; empty for a new site.
    [[nodiscard]] const Manifest& before() const { return m_before; }

    /// Makes room for `files`, all that the site is to hold.
    [[nodiscard]] Result<void> claim(const QStringList& files);

    /// Writes one of the claimed files. `origin` is the state of what it was made of.
    [[nodiscard]] Result<void> write(const QString& file, const QByteArray& content,
                                     const QString& origin = {});
    /// Puts a movie, an absolute path, in the place of one of the claimed files.
    [[nodiscard]] Result<void> place(const QString& file, const QString& source, MovieTransfer transfer);
    /// Gives the placed `file` a second name, another of the claimed files.
    [[nodiscard]] Result<void> nameAgain(const QString& file, const QString& name);
    /// Keeps `file` as it is. Answers false where it is not there or was made of anything but `origin`.
    [[nodiscard]] bool keep(const QString& file, const QString& origin);

    /// Removes what is ours and was neither written nor kept, and puts down what is here and `movies`.
    [[nodiscard]] Result<void> finish(const std::vector<SourceMovie>& movies);

    /// Files that were written, and removed.
    [[nodiscard]] int writtenCount() const { return m_written; }
    [[nodiscard]] int removedCount() const { return m_removed; }

private:
    [[nodiscard]] QString pathOf(const QString& file) const { return m_path + u'/' + file; }
    [[nodiscard]] Result<void> obstacle(const QString& file) const;
    void makeFolderOf(const QString& file) const;
    [[nodiscard]] Result<void> note(const QString& file, const QString& origin, const Result<Placed>& placed);
    [[nodiscard]] Result<void> save(const Manifest& manifest) const;
    void remove(const QString& file);

    QString m_path;
    Manifest m_before;
    Manifest m_now;
    int m_written = 0;
    int m_removed = 0;
};

} // namespace kestro
