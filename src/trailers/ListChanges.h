#pragma once

#include "trailers/TrailerListFile.h"

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>

#include <optional>

namespace kestro {

/// What was done to a list since it was the same as its file, so that it can be done again to what another
/// process has saved there meanwhile. Owned by the list, under its lock. Tested by TrailerListMergeTest.
class ListChanges final {
public:
    /// The record at `url` is about to be another; `before` is the present one, nothing where there is none.
    void noteRecord(const QString& url, const std::optional<TrailerRecord>& before);
    /// A page was visited, or is not any more.
    void noteSite(const QByteArray& site, bool isVisited) { m_sites.insert(site, isVisited); }
    /// All of `before` is about to be forgotten.
    void noteClearing(const TrailerListContents& before);

    /// `theirs`, what the file holds now, with the changes from which `ours` came. Of a record that both
    /// changed each field is the changed one, and what a scan finds is the newer; a record that one side has
    /// changed stays where the other has forgotten it.
    [[nodiscard]] TrailerListContents merged(const TrailerListContents& ours,
                                             const TrailerListContents& theirs) const;
    /// From now on the changes are those from `theirs` to the list as it is.
    void rebase(const TrailerListContents& theirs);
    /// Has `earlier` changes come before these.
    void prepend(ListChanges earlier);

private:
    QHash<QString, std::optional<TrailerRecord>> m_before; ///< each record that is another now, as it was
    QHash<QByteArray, bool> m_sites;                       ///< whether they were visited or forgotten
};

} // namespace kestro
