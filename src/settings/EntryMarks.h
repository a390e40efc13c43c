#pragma once

#include "platform/base/Result.h"
#include "settings/EntryMark.h"

#include <QHash>
#include <QList>
#include <QUrl>

#include <utility>

namespace kestro {

class ConfigurationFile;

/// What was said of entries of the playlist that are no folders, which say it themselves: [marks] of
/// kestro.conf, in lines like `1=star night https://example.org/a.mp4`. Owned by the program, one for all
/// savers. Main thread.
class EntryMarks final {
public:
    using Wishes = QList<std::pair<QUrl, EntryMark>>;

    /// Nothing is said, and nothing can be kept.
    EntryMarks() = default;
    /// What the file at `path` says; a line that is not understood is logged and counts for nothing.
    EntryMarks(const ConfigurationFile& file, QString path);

    /// The file's; empty where nothing can be kept.
    [[nodiscard]] const QString& path() const { return m_path; }
    /// What was said of an entry, whatever it is.
    [[nodiscard]] EntryMark of(const QUrl& entry) const;

    /// Has these say so from now on, and the file too, whose other lines stay as they are; it is not touched
    /// where nothing changes. What the entry of a folder says is in the playlist and is left out here. The
    /// error is one line; what was wished for counts in this process all the same.
    [[nodiscard]] Result<void> change(const Wishes& wishes);

private:
    QString m_path;
    QHash<QUrl, EntryMark> m_marks;
};

} // namespace kestro
