#pragma once

#include "trailers/TrailerRecord.h"

#include <QVariantMap>

#include <optional>

namespace kestro {

// Trailer records as dictionaries of a property list. Any thread.

/// The record that `stored` holds. A value of a kind that its key does not have goes to `other`, as unknown
/// keys do; a missing or wrong "URL" leaves `url` empty.
[[nodiscard]] TrailerRecord trailerRecord(const QVariantMap& stored);

/// The dictionary of a record.
[[nodiscard]] QVariantMap dictionaryOf(const TrailerRecord& record);

/// `text` without the characters that a property list's file cannot hold: one of them would keep the whole
/// list from being saved.
[[nodiscard]] QString storableText(const QString& text);

} // namespace kestro
