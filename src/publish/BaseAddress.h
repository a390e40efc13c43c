#pragma once

#include "platform/base/Result.h"

#include <QString>

namespace kestro {

/// The address that a site's folder is served at, as a user gives it. A value.
struct BaseAddress {
    QString text; ///< without a slash at its end
    QString
        path; ///< its path, each letter that could end a text of a script or part it escaped; may be empty

    /// Reads `address`: http or https, a host, perhaps a port and a path, nothing else.
    [[nodiscard]] static Result<BaseAddress> parse(const QString& address);

    /// Whether Kestro follows the pages of a site there: it stays below "/trailers".
    [[nodiscard]] bool isFollowed() const;
};

} // namespace kestro
