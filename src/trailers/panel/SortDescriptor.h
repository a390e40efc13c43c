#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace kestro {

/// An order that a column of a table stands for. A plain value.
struct SortDescriptor {
    QString key; ///< of a trailer record; empty for a column that orders nothing
    bool ascending = true;
    [[nodiscard]] bool operator==(const SortDescriptor&) const = default;
};

/// The order to sort by once a column with that prototype was chosen, where the table was ordered by
/// `previous`, the last choice first: the present column's is reversed, another's is as it was when it was
/// left, else that of its prototype. Nothing for a column without a prototype or a key.
[[nodiscard]] std::optional<SortDescriptor>
chosenSortDescriptor(const std::optional<SortDescriptor>& prototype, const QList<SortDescriptor>& previous);

/// `previous` with `chosen` at its front, and no other of that key.
[[nodiscard]] QList<SortDescriptor> withChosen(const SortDescriptor& chosen, QList<SortDescriptor> previous);

} // namespace kestro
