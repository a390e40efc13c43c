#pragma once

#include "engine/AfterImageTrail.h"
#include "engine/Bounce.h"
#include "engine/CaptureThread.h"
#include "engine/Dissolve.h"
#include "engine/FadeOut.h"
#include "engine/MovieGeometry.h"
#include "engine/MovieSearch.h"
#include "engine/MovieSequencer.h"
#include "engine/MovieSteps.h"
#include "engine/MovieTurn.h"
#include "engine/PiggyBack.h"
#include "engine/RestState.h"
#include "engine/ResumePoint.h"
#include "engine/RetrySchedule.h"
#include "engine/SaverActs.h"
#include "engine/SaverServices.h"
#include "engine/StillAhead.h"
#include "platform/saver/ScreenSaverView.h"
#include "settings/ConfigurableSaver.h"
#include "settings/Playlist.h"
#include "settings/Settings.h"

#include <memory>
#include <optional>

namespace kestro {

class MovieFrame;
class Timer;

/// The movie screen saver: the view of one screen. It conducts: what plays next, how large and where, how it
/// moves and what it leaves behind are the concerns of the classes it holds. A host creates it, starts it,
/// ticks it at its interval and stops it. Main thread.
class MySaver final : public ScreenSaverView, public SaverControl, public ConfigurableSaver {
public:
    /// Makes the saver for one screen and answers the view that the host is to show: the saver, or, where
    /// another one is chosen to run behind it, that one's view, above which the saver then runs by itself.
    /// Null inside the making of such a view. Shared by the host and by whatever keeps the saver running.
    [[nodiscard]] static std::shared_ptr<ScreenSaverView>
    initWithFrameIsPreview(const Rect& frame, bool isPreview, const SaverServices& services);

    MySaver(const Rect& frame, bool isPreview, const SaverServices& services);
    ~MySaver() override;

    void startAnimation() override;
    void stopAnimation() override;
    void animateOneFrame() override;
    void drawRect(Painter& painter, const Rect& rect) override;
    [[nodiscard]] bool hasConfigureSheet() const override { return true; }
    void setFrame(const Rect& frame) override;
    void setFrameSize(Size size) override;

    /// Holds everything up for ten seconds, this saver and the one behind it; then lets it go on, unless it
    /// was stopped meanwhile. Nothing while it rests.
    void captureStop();
    /// Starts anew with the settings as they are now.
    void resetMovie() override;

    void rest(Rest how) override;
    void changeMovie(MovieStep step) override;
    void act(SaverAct what) override;
    [[nodiscard]] SaverSnapshot snapshot() const override;
    [[nodiscard]] ConfigurableSaver* options() override { return this; }

    [[nodiscard]] Settings& settings() override { return m_settings; }
    [[nodiscard]] Playlist& playlist() override { return m_playlist; }
    [[nodiscard]] MovieLibrary& movies() override { return m_services.movies; }
    [[nodiscard]] QStringList reloadBackSavers() override;
    void applyLoopMode() override;

    /// The movie frame, null while the sign picture shows.
    [[nodiscard]] MovieFrame* movieView() const { return m_movieView.get(); }
    /// Whether a still is being taken.
    [[nodiscard]] bool isCapturing() const { return m_captures.isBusy(); }
    /// The view of the saver behind this one, null when there is none.
    [[nodiscard]] std::shared_ptr<ScreenSaverView> otherSaver() const { return m_piggyBack.otherSaver(); }

private:
    static constexpr double movieInterval = 0.05; ///< seconds between two ticks while a movie plays
    static constexpr double signInterval = 0.1;   ///< the same while a picture wanders about

    // life cycle
    void forgetBackSaverThatIsGone();
    [[nodiscard]] std::shared_ptr<ScreenSaverView> loadOtherSaver();
    void openFadeOut();
    void storeResumePoint();
    [[nodiscard]] bool isFirstScreen() const;
    void goToResumePoint(const MovieContent& content);
    void placeInTime(QTMovie& movie);

    // rest
    [[nodiscard]] bool isHeldUp() const;
    void standStill();
    void goOn();
    void letGo();
    void beStill();
    void tickWhileStill();
    [[nodiscard]] bool takeStill();
    void placeStill();
    void drawStill(Painter& painter);

    // the search for the next movie
    void beginSearch(MovieSearch::Purpose purpose);
    [[nodiscard]] std::unique_ptr<PlayableSearch> playableSearch();
    [[nodiscard]] std::unique_ptr<MoviePick> newPick(MovieSearch::Purpose purpose);
    void advanceSearch();
    void found(MovieSearch::Purpose purpose);
    void beginAnew();
    void foundNothing(MovieSearch::Purpose purpose);
    void loopWhatIsAlone();
    void endLoneLoopInTime();
    bool takeNews();
    void retry();
    [[nodiscard]] bool replaceBrokenMovie();
    void startMovie();

    // the sign picture and what it is drawn on
    void drawGround(Painter& painter, const Rect& rect, const Rect& hidden);
    void showSign(const Picture& sign);
    void placeSign();
    void hideSign();
    void fallBackToSign(const Picture& sign);
    [[nodiscard]] const Picture& signForStart();

    // one tick
    void tickWhileSearching();
    void showSignInLongSearch();
    void moveMovie();
    void sizeLate();
    void moveMovieWindow();
    void flyMovie();
    [[nodiscard]] bool isTimeToFly();
    [[nodiscard]] bool isTurnOver();
    void switchMovie();
    void move(SignImage& sign);

    // the movie frame
    [[nodiscard]] std::unique_ptr<MovieFrame> createMovieFrame(const Rect& rect);
    [[nodiscard]] bool makeMovieFrame();
    void dropMovieFrame();
    /// Puts `content` into the movie frame, which is made where there is none. False where it cannot.
    bool _resetMovie(const MovieContent& content);
    void resetMovieViewFrame();
    void setMovieFrame(const Rect& rect);
    void fitToFrame();
    void applySound();
    [[nodiscard]] Screen* screen() const;

    // what is left behind
    [[nodiscard]] bool hasEffects() const;
    [[nodiscard]] bool leavesPictures() const;
    void dissolve();
    [[nodiscard]] Point placeInView() const;
    [[nodiscard]] Rect coveredByMovie() const;
    [[nodiscard]] StillAhead::Moment pictureIn(double seconds) const;
    void askForStillAhead();
    [[nodiscard]] double secondsLeft(const QTMovie& movie);
    [[nodiscard]] double secondsToSwitch(double most);
    [[nodiscard]] double secondsToFade();
    [[nodiscard]] double secondsToFly() const;
    [[nodiscard]] Picture pictureLeft();
    void queueImageThread();
    void afterImageEffect();
    void queueImageNoThread();
    void markTrail();
    void markStill(const Rect& place);

    SaverServices m_services;
    bool m_windowMode = false;
    Settings m_settings;
    Playlist m_playlist;
    MovieSequencer m_sequencer;
    MovieGeometry m_geometry;
    Bounce m_bounce;
    SignImage m_sign;
    FadeOut m_fadeOut;
    Dissolve m_dissolve;
    AfterImageTrail m_trail;
    CaptureThread m_captures; ///< goes before the trail that it hands stills to
    StillAhead m_stillAhead;
    PiggyBack m_piggyBack;
    ResumePoint m_resumePoint;
    MovieTurn m_turn;
    RetrySchedule m_retries;
    MovieSteps m_steps;
    SaverActs m_acts;
    std::unique_ptr<MovieFrame> m_movieView;
    std::unique_ptr<MovieSearch> m_search; ///< null while nothing is looked for
    std::optional<double> m_endOfLoneLoop; ///< nothing where it goes on for ever
    std::optional<int> m_played;           ///< curIdx at the end of the last movie, until another one loads
    std::unique_ptr<Timer> m_captureTimer; ///< ends captureStop's pause
    std::optional<double> m_flyTime;       ///< time of the last re-placement; nothing where the movie stays
    int m_stepCount = 11; ///< window mode: ticks since the last capture; the first tick takes one
    bool m_saverInited = false;
    RestState m_rest;
};

} // namespace kestro
