#pragma once

#include <QStringList>

#include <optional>

namespace kestro {

class Random;

/// The order that pictures come in: random, in rounds in each of which every picture comes once, and never
/// the same picture twice in a row where there is another one. Main thread.
class PictureOrder final {
public:
    explicit PictureOrder(Random& random)
        : m_random(random)
    {
    }

    /// Begins a round of those pictures.
    void begin(const QStringList& pictures) { m_left = pictures; }
    /// The next one of this round; nothing when the round is over.
    [[nodiscard]] std::optional<QString> next();
    /// That picture is what is seen now; one that could not be shown is not told of here.
    void setShown(const QString& picture) { m_shown = picture; }

private:
    Random& m_random;
    QStringList m_left; ///< of this round
    QString m_shown;
};

} // namespace kestro
