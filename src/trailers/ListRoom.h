#pragma once

#include "trailers/TrailerRecord.h"

#include <QByteArrayView>
#include <QString>

namespace kestro {

/// What of a list of trailers there is room for: as many trailers, pages and bytes of its file as Bounds
/// names, so that a list can always be saved and read again, whatever a site is like. Owned by a list; one
/// thread at a time.
class ListRoom final {
public:
    /// Counts `record` in place of `old`, which is null where there is none. Answers false where there is no
    /// room; then the old one stays.
    bool takeTrailer(const TrailerRecord& record, const TrailerRecord* old);
    /// Counts one more page; answers as takeTrailer() does.
    bool takePage(QByteArrayView page);
    /// Counts a page less that was taken.
    void givePage(QByteArrayView page);

    /// Whether something had to be left out.
    [[nodiscard]] bool isFull() const { return m_isFull; }

private:
    bool take(bool isBelowBound, qint64 bytes);

    qsizetype m_trailers = 0;
    qsizetype m_pages = 0;
    qint64 m_bytes = 0;
    bool m_isFull = false;
};

/// What an entry takes in the list's file, at most. Any thread.
[[nodiscard]] qint64 bytesInFile(const TrailerRecord& record);

} // namespace kestro
