#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace kestro {

/// The row of the next URL that contains `text`, in whatever case: from the row after `selected` (after the
/// last one where nothing is selected) on, around the end, up to but not including the row it began at.
/// Nothing where there is none, and for an empty text. Any thread.
[[nodiscard]] std::optional<qsizetype> findNextRow(const QStringList& urls, const QString& text,
                                                   std::optional<qsizetype> selected);

} // namespace kestro
