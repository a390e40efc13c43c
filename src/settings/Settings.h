#pragma once

#include "settings/Options.h"

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

    /// Any one option, as its accessor below answers it.
    template <typename Kind>
    [[nodiscard]] auto value(const Kind& option) const
    {
        return readOption(option, m_store);
    }

    [[nodiscard]] int plistVersion() const { return value(option::ver); }
    [[nodiscard]] bool isSoundOn() const { return value(option::soundOn); }
    [[nodiscard]] bool _isFlyMode() const { return value(option::flyMode); }
    [[nodiscard]] bool _isBounceMode() const { return value(option::bounce); }
    [[nodiscard]] bool isFullScreen() const { return value(option::fullScreenMode); }
    [[nodiscard]] bool isDynamicMode() const;
    [[nodiscard]] int partialMode() const { return value(option::partialMode); }
    [[nodiscard]] bool isFlyMode() const;
    [[nodiscard]] bool isBounceMode() const;
    [[nodiscard]] bool isRandomMode() const { return value(option::randomMode); }
    [[nodiscard]] bool isContinue() const { return value(option::resume); }
    [[nodiscard]] bool canContinue() const;
    void resetContinue();
    [[nodiscard]] int playMode() const { return value(option::playMode); }
    [[nodiscard]] bool fadeoutEffect() const { return value(option::fadeout); }
    [[nodiscard]] bool backAndForth() const { return value(option::backAndForth); }
    [[nodiscard]] float scaleFactor() const { return value(option::scale); }
    [[nodiscard]] float timeInterval() const { return value(option::interval); }
    [[nodiscard]] int reposition() const { return value(option::reposition); }
    [[nodiscard]] bool repostionWhenMovieEnds() const;
    [[nodiscard]] std::optional<QString> backSaver() const { return value(option::backSaver); }
    /// Takes it out of the options in memory; the file keeps it until it is written next.
    void forgetBackSaver();

    /// The loop mode of a movie view that plays a list of `entryCount` entries: 0 unless it is the only one;
    /// then 2 for back and forth, else 1, or nothing (the view keeps what it has) where it is re-placed at
    /// its end.
    [[nodiscard]] std::optional<int> loopMode(qsizetype entryCount) const;

private:
    [[nodiscard]] bool isMovingBy(PartialMode mode, const StoredOption<bool>& older) const;

    SettingsStore& m_store;
    ViewKind m_view;
};

} // namespace kestro
