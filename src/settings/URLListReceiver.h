#pragma once

#include <QList>
#include <QUrl>

namespace kestro {

/// Who takes new entries for the playlist that is being edited. Main thread.
class URLListReceiver {
public:
    virtual ~URLListReceiver() = default;

    /// Appends the entries in their order, unchecked.
    virtual void addURLList(const QList<QUrl>& urls) = 0;
};

} // namespace kestro
