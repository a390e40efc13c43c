#include "trailers/panel/RowSearch.h"

#include <QStringMatcher>

namespace kestro {

std::optional<qsizetype> findNextRow(const QStringList& urls, const QString& text,
                                     std::optional<qsizetype> selected)
{
    if (urls.isEmpty() || text.isEmpty()) return {};
    const QStringMatcher matcher(text, Qt::CaseInsensitive);
    const qsizetype count = urls.size();
    const qsizetype start = selected.value_or(count - 1);
    for (qsizetype step = 1; step < count; ++step) {
        const qsizetype row = (start + step) % count;
        if (matcher.indexIn(urls[row]) >= 0) return row;
    }
    return {};
}

} // namespace kestro
