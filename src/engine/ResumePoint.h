#pragma once

#include <QString>
#include <QVariant>

#include <optional>

namespace kestro {

class QTMovie;
class Settings;
class SettingsStore;

/// Where the last run stopped, for this one to go on from there: the name of the movie and the position in
/// it, in movie time units. It waits until the first movie of the run is loaded, and is over then. Nothing is
/// read or written unless runs continue one another. Owned by the engine. Main thread.
class ResumePoint final {
public:
    ResumePoint(const Settings& settings, SettingsStore& store);

    /// The name of the movie to begin with; nothing when none is stored, and once it is over.
    [[nodiscard]] std::optional<QString> movieName() const;
    /// Once `movie` is loaded, moves it to the stored position, unless it is shorter than that, and is over.
    /// Answers whether it was moved.
    bool goTo(QTMovie& movie);
    /// The run goes on without it.
    void end() { m_isWaiting = false; }

    /// Stores where `movie` is, for the next run; what is stored stays as long as this run waits for it.
    void store(const QTMovie& movie);

private:
    [[nodiscard]] std::optional<QVariant> stored(const QString& key) const;

    const Settings& m_settings;
    SettingsStore& m_store;
    bool m_isWaiting = true;
};

} // namespace kestro
