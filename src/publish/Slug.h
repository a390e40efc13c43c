#pragma once

#include <QSet>
#include <QString>

namespace kestro {

/// `name` as a part of an address that needs no escapes: lower-case ASCII letters, digits and single "-",
/// at most 60 of them; accents are dropped, letters of other scripts are left out. May be empty.
[[nodiscard]] QString slugOf(const QString& name);

/// Hands out the folder names of one site, each once. A name that had to leave letters out, or that is taken,
/// ends in a digest of `key`: the same on every run, whatever else is on the site.
class SlugMaker final {
public:
    /// `key` tells the titles of a site apart.
    [[nodiscard]] QString slugFor(const QString& name, const QString& key);

private:
    QSet<QString> m_taken;
};

} // namespace kestro
