#pragma once

#include <QString>

#include <optional>

namespace kestro {

class SettingsStore;

/// Every option by the rules of its key, of older releases' keys and of absent ones. Nothing is kept: each
/// answer reads the store. One per view, for the two answers that depend on the view. Main thread.
class Settings final {
public:
    /// How the view runs that asks.
    struct ViewKind {
        bool isPreview = false;
        bool windowMode = false;
    };

    Settings(SettingsStore& store, ViewKind view);

    [[nodiscard]] SettingsStore& store() const { return m_store; }
    /// The view has chosen its way of running.
    void setWindowMode(bool windowMode) { m_view.windowMode = windowMode; }

    [[nodiscard]] int plistVersion() const;
    [[nodiscard]] bool isSoundOn() const;
    [[nodiscard]] bool _isFlyMode() const;
    [[nodiscard]] bool _isBounceMode() const;
    [[nodiscard]] bool isFullScreen() const;
    [[nodiscard]] bool isDynamicMode() const;
    [[nodiscard]] int partialMode() const;
    [[nodiscard]] bool isFlyMode() const;
    [[nodiscard]] bool isBounceMode() const;
    [[nodiscard]] bool isRandomMode() const;
    [[nodiscard]] bool isContinue() const;
    [[nodiscard]] bool canContinue() const;
    void resetContinue();
    [[nodiscard]] int playMode() const;
    [[nodiscard]] bool fadeoutEffect() const;
    [[nodiscard]] bool backAndForth() const;
    [[nodiscard]] float scaleFactor() const;
    [[nodiscard]] float timeInterval() const;
    [[nodiscard]] int reposition() const;
    [[nodiscard]] bool repostionWhenMovieEnds() const;
    [[nodiscard]] std::optional<QString> backSaver() const;

    /// The loop mode of a movie view that plays a list of `entryCount` entries: 0 unless it is the only one;
    /// then 2 for back and forth, else 1, or nothing (the view keeps what it has) where it is re-placed at
    /// its end.
    [[nodiscard]] std::optional<int> loopMode(qsizetype entryCount) const;

private:
    SettingsStore& m_store;
    ViewKind m_view;
};

} // namespace kestro
