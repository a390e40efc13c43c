#pragma once

#include <QWidget>

namespace kestro {

class PlayButton;
class ScrubBar;

/// The bar below a movie: a button that plays and pauses, and the position. It knows no movie: it shows what
/// it is told and tells what a person wants. Sixteen points high. Owned as any widget is. Main thread.
/// Tested by MoviePreviewTest.
class ControllerBar final : public QWidget {
    Q_OBJECT

public:
    static constexpr int barHeight = 16; ///< points

    explicit ControllerBar(QWidget* parent = nullptr);

    /// What there is to show; times in movie time units.
    struct State {
        bool hasMovie = false;
        bool isPlaying = false;
        int position = 0;
        int duration = 0; ///< 0 while unknown: then there is nowhere to go to
    };
    void showState(const State& state);

    [[nodiscard]] PlayButton& playButton() { return *m_playButton; }
    [[nodiscard]] ScrubBar& scrubBar() { return *m_scrubBar; }

Q_SIGNALS:
    /// Play, or pause where it plays.
    void toggled();
    void sought(int position);

private:
    PlayButton* m_playButton; ///< Qt's parent owns both
    ScrubBar* m_scrubBar;
};

} // namespace kestro
