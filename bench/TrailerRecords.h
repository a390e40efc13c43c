#pragma once

#include "trailers/TrailerRecord.h"

#include <vector>

namespace kestro {

/// Trailers as a site of `count` movies has them: four sizes of each title, a page for every title, dates
/// over four years. Any thread.
inline std::vector<TrailerRecord> trailerRecords(int count)
{
    std::vector<TrailerRecord> made;
    made.reserve(static_cast<std::size_t>(count));
    const int widths[] = {320, 480, 640, 848};
    for (int i = 0; i < count; ++i) {
        const int width = widths[i % 4];
        TrailerRecord record;
        record.url =
            QStringLiteral("http://trailers.example/trailers/studio%1/title_number_%2/title_%2_m%3.mov")
                .arg(i / 4 % 40)
                .arg(i / 4)
                .arg(width);
        record.size = QStringLiteral("%1 x %2").arg(width).arg(width * 9 / 16);
        record.date = QString::asprintf("%04d/%02d/%02d", 2005 + i % 4, 1 + i % 12, 1 + i % 28);
        made.push_back(std::move(record));
    }
    return made;
}

} // namespace kestro
